// SPDX-License-Identifier: MIT
#pragma once

#include "platform/WindowServer.h"

#include <string>

namespace zeph {

/// What happened to all surfaces of a `FakeWindowServer` in order, such as "0 shown".
using SurfaceStory = std::vector<std::string>;

/// What happened to the surfaces of a `FakeWindowServer`, outliving them.
struct SurfaceLog {
    Screen screen;
    bool visible = false;
    bool alive = true;
    bool wantsTransparency = false;
    int presents = 0;
    qint64 presentedPixels = 0;
    int screenChanges = 0;
    QImage lastFrame;
    std::size_t number = 0;
    std::shared_ptr<SurfaceStory> story;

    void tell(const char *event) const { story->push_back(std::to_string(number) + ' ' + event); }
};

/// A surface that keeps its pixels in memory and counts what is presented.
class FakeDesktopSurface : public DesktopSurface {
public:
    FakeDesktopSurface(const Screen &screen, bool transparent, std::shared_ptr<SurfaceLog> log)
        : m_transparent(transparent), m_log(std::move(log)) {
        resize(screen);
        m_log->tell("made");
    }
    ~FakeDesktopSurface() override {
        m_log->tell("gone");
        m_log->alive = false;
        m_log->visible = false;
    }

    void setScreen(const Screen &screen) override {
        ++m_log->screenChanges;
        if (screen.deviceFrame.size() != m_frame.size()) {
            resize(screen);
        }
        m_log->screen = screen;
    }
    QImage &frameBuffer() override { return m_frame; }
    bool isTransparent() const override { return m_transparent; }
    void present(const QRegion &damage) override {
        m_log->tell("presented");
        ++m_log->presents;
        for (const QRect &rect : damage) {
            m_log->presentedPixels += qint64(rect.width()) * rect.height();
        }
        m_log->lastFrame = m_frame;
    }
    void orderFront() override {
        m_log->tell("shown");
        m_log->visible = true;
    }
    void orderOut() override {
        m_log->tell("hidden");
        m_log->visible = false;
    }

private:
    void resize(const Screen &screen) {
        m_log->screen = screen;
        m_frame =
            QImage(screen.deviceFrame.size(),
                   m_transparent ? QImage::Format_ARGB32_Premultiplied : QImage::Format_RGB32);
        m_frame.fill(Qt::black);
    }

    bool m_transparent;
    QImage m_frame;
    std::shared_ptr<SurfaceLog> m_log; // the test reads it after the surface is gone
};

/// Makes surfaces in memory; transparency is granted while `compositing`.
class FakeWindowServer : public WindowServer {
public:
    std::unique_ptr<DesktopSurface> makeDesktopSurface(const Screen &screen,
                                                       bool wantsTransparency) override {
        auto log = std::make_shared<SurfaceLog>();
        log->wantsTransparency = wantsTransparency;
        log->number = logs.size();
        log->story = story;
        logs.push_back(log);
        return std::make_unique<FakeDesktopSurface>(screen, wantsTransparency && compositing, log);
    }
    void setCompositingHandler(std::function<void()> handler) override {
        compositingHandler = std::move(handler);
    }
    void setLostHandler(std::function<void()> handler) override {
        lostHandler = std::move(handler);
    }

    bool compositing = false;
    std::vector<std::shared_ptr<SurfaceLog>> logs; // shared with the surfaces
    std::shared_ptr<SurfaceStory> story = std::make_shared<SurfaceStory>(); // shared with them too
    std::function<void()> compositingHandler;
    std::function<void()> lostHandler;
};

} // namespace zeph
