// SPDX-License-Identifier: MIT
#include "adapters/session/plasma/PlasmaPictureSurface.h"

#include "adapters/session/plasma/PictureFolders.h"
#include "base/Background.h"
#include "ports/RunLoop.h"

#include <utility>

namespace zeph {

namespace {

QSize withArea(const Screen &screen) {
    return screen.deviceFrame.size().expandedTo(QSize(1, 1));
}

} // namespace

PlasmaPictureSurface::PlasmaPictureSurface(Tools tools, const Screen &screen)
    : m_tools(std::move(tools)), m_budget(withArea(screen)) {
    takeFolder(screen.connector);
    makeFrame(withArea(screen));
}

void PlasmaPictureSurface::takeFolder(const QString &connector) {
    m_connector = connector;
    m_folder = m_tools.folders.of(connector);
    m_writer = m_folder->takeOver();
}

void PlasmaPictureSurface::makeFrame(QSize size) {
    m_frame.reset(); // first, since two of a large screen would be a lot of memory
    m_frame = std::make_shared<QImage>(size, QImage::Format_RGB32);
    m_frame->fill(Qt::black);
    m_budget = PatchBudget(size);
    m_changed = {};
    m_waiting = nullptr;
}

void PlasmaPictureSurface::setScreen(const Screen &screen) {
    const bool isElsewhere = screen.connector != m_connector;
    if (isElsewhere) {
        takeFolder(screen.connector);
    }
    if (withArea(screen) != m_frame->size()) {
        makeFrame(withArea(screen));
    } else if (isElsewhere) {
        showAll();
    }
}

QRegion PlasmaPictureSurface::show(FramePainter paint) {
    if (m_read == m_frame) {
        m_waiting = std::move(paint);
        return {};
    }
    m_waiting = nullptr;
    QRegion painted = paint(*m_frame) & m_frame->rect();
    m_changed += painted;
    goOn();
    return painted;
}

void PlasmaPictureSurface::orderFront() {
    m_isHidingDue = false;
    if (!std::exchange(m_isShown, true)) {
        showAll();
    }
}

void PlasmaPictureSurface::orderOut() {
    if (std::exchange(m_isShown, false)) {
        m_tools.runLoop.post(m_work.whileAlive([this] {
            m_isHidingDue = !m_isShown;
            goOn();
        }));
    }
}

void PlasmaPictureSurface::showAll() {
    m_changed = m_frame->rect();
    m_budget.exhaust();
    goOn();
}

/// Writes what is due, one after the other: what changes meanwhile goes with the next.
void PlasmaPictureSurface::goOn() {
    if (m_isWriting) {
        return;
    }
    if (m_isShown && !m_changed.isEmpty()) {
        auto parts = m_budget.spend(std::exchange(m_changed, {}));
        start(
            [folder = m_folder, writer = m_writer, frame = m_frame, parts = std::move(parts)] {
                return parts.empty() ? folder->writeWhole(writer, *frame)
                                     : folder->writePatches(writer, *frame, parts);
            },
            m_frame);
    } else if (std::exchange(m_isHidingDue, false)) {
        start([folder = m_folder, writer = m_writer] { return folder->writeNothing(writer); },
              nullptr);
    }
}

void PlasmaPictureSurface::start(std::function<bool()> write, Frame read) {
    m_isWriting = true;
    m_read = std::move(read);
    m_tools.background.run(m_work, std::move(write), [this](bool isDone) { written(isDone); });
}

void PlasmaPictureSurface::written(bool isDone) {
    m_isWriting = false;
    m_read.reset();
    if (!isDone) {
        m_tools.refused();
    } else if (m_waiting) {
        show(std::exchange(m_waiting, nullptr));
    } else {
        goOn();
    }
}

} // namespace zeph
