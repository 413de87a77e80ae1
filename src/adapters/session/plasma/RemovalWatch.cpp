// SPDX-License-Identifier: MIT
#include "adapters/session/plasma/RemovalWatch.h"

#include "ports/RunLoop.h"

#include <QFileInfo>

#include <utility>

namespace zeph {

namespace {

// An update may take the old file away some time before the new one is there.
constexpr std::chrono::milliseconds kRest{10'000};

} // namespace

RemovalWatch::RemovalWatch(QString path, RunLoop &runLoop, std::function<void()> removed)
    : m_path(std::move(path)), m_runLoop(runLoop), m_removed(std::move(removed)) {
    QObject::connect(&m_watcher, &QFileSystemWatcher::fileChanged, &m_watcher, [this] {
        if (!std::exchange(m_isLookDue, true)) {
            m_runLoop.after(kRest, m_work.whileAlive([this] { look(); }));
        }
    });
    m_watcher.addPath(m_path);
}

void RemovalWatch::look() {
    m_isLookDue = false;
    if (QFileInfo::exists(m_path)) {
        m_watcher.addPath(m_path); // another file has no watch yet
    } else if (const auto removed = std::exchange(m_removed, nullptr)) {
        removed();
    }
}

} // namespace zeph
