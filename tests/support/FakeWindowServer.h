// SPDX-License-Identifier: MIT
#pragma once

#include "ports/WindowServer.h"

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
    bool isTransparent() const override { return m_transparent; }
    QRegion show(FramePainter paint) override {
        m_waiting = nullptr;
        if (m_isBusy) {
            m_waiting = std::move(paint);
            return {};
        }
        const QRegion painted = paint(m_frame) & m_frame.rect();
        if (!painted.isEmpty()) {
            present(painted);
        }
        return painted;
    }

    /// Pretends that the display is reading the pixels, or has read them.
    void setBusy(bool isBusy) {
        m_isBusy = isBusy;
        if (!isBusy && m_waiting) {
            show(std::exchange(m_waiting, nullptr));
        }
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
    void present(const QRegion &painted) {
        m_log->tell("presented");
        ++m_log->presents;
        for (const QRect &rect : painted) {
            m_log->presentedPixels += qint64(rect.width()) * rect.height();
        }
        m_log->lastFrame = m_frame.copy();
    }

    void resize(const Screen &screen) {
        m_waiting = nullptr;
        m_log->screen = screen;
        m_frame =
            QImage(screen.deviceFrame.size(),
                   m_transparent ? QImage::Format_ARGB32_Premultiplied : QImage::Format_RGB32);
        m_frame.fill(Qt::black);
    }

    bool m_transparent;
    bool m_isBusy = false;
    QImage m_frame;
    FramePainter m_waiting;
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
    Subscription subscribeToCompositing(std::function<void()> handler) override {
        return m_compositing.subscribe(std::move(handler));
    }
    Subscription subscribeToLoss(std::function<void()> handler) override {
        return m_loss.subscribe(std::move(handler));
    }

    DrawingWay drawingWay() const override { return m_way; }
    Subscription subscribeToDrawingWay(std::function<void()> handler) override {
        return m_ways.subscribe(std::move(handler));
    }

    /// Has surfaces get onto the desktop in another way, and tells of it.
    void setDrawingWay(DrawingWay way) {
        m_way = std::move(way);
        m_ways.send();
    }

    /// Tells that the window system has gone away.
    void lose() { m_loss.send(); }

    /// Starts or stops the compositor and tells of it.
    void setCompositing(bool isRunning) {
        compositing = isRunning;
        m_compositing.send();
    }

    bool compositing = false;
    std::vector<std::shared_ptr<SurfaceLog>> logs; // shared with the surfaces
    std::shared_ptr<SurfaceStory> story = std::make_shared<SurfaceStory>(); // shared with them too

private:
    DrawingWay m_way;
    ChangePublisher m_ways;
    ChangePublisher m_compositing;
    ChangePublisher m_loss;
};

} // namespace zeph
