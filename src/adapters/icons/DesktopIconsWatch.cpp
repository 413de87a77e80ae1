// SPDX-License-Identifier: MIT
#include "adapters/icons/DesktopIconsWatch.h"

#include "base/Background.h"

#include <utility>

namespace zeph {

namespace {

// A file that comes is followed by the program's note of its place, and often by more files.
constexpr std::chrono::milliseconds kRest{1000};

} // namespace

DesktopIconsWatch::DesktopIconsWatch(std::optional<IconStore> store, const Background &background)
    : m_store(std::move(store)), m_background(background) {
    m_rest.setSingleShot(true);
    m_rest.setInterval(kRest);
    QObject::connect(&m_rest, &QTimer::timeout, &m_rest, [this] { read(); });
}

void DesktopIconsWatch::setOn(bool isOn) {
    if (!m_store || std::exchange(m_isOn, isOn) == isOn) {
        return;
    }
    if (isOn) {
        read();
    } else {
        m_rest.stop();
        m_monitor.reset();
        take({});
    }
}

Subscription DesktopIconsWatch::subscribe(std::function<void()> handler) {
    return m_changes.subscribe(std::move(handler));
}

void DesktopIconsWatch::read() {
    // From before the reading, so that no change falls in between.
    m_monitor.emplace(m_store->watchedPaths());
    m_monitor->whenChanged([this] { m_rest.start(); });
    m_background.run(
        m_work, [store = *m_store] { return store.read(); },
        [this](DesktopIcons icons) {
            if (m_isOn) {
                take(std::move(icons));
            }
        });
}

void DesktopIconsWatch::take(DesktopIcons icons) {
    if (m_icons != icons) {
        m_icons = std::move(icons);
        m_changes.send();
    }
}

} // namespace zeph
