// SPDX-License-Identifier: MIT
#include "adapters/icons/DesktopIconsWatch.h"

#include "base/Background.h"

#include <utility>

namespace zeph {

namespace {

// A file that comes is followed by the program's note of its place, and often by more files.
constexpr std::chrono::milliseconds kRest{1000};

// A service that starts is on the bus before it can tell; the rests add up to half a minute.
constexpr int kMostGuesses = 6;

} // namespace

DesktopIconsWatch::DesktopIconsWatch(std::optional<IconStore> store, const Background &background,
                                     QDBusConnection sessionBus)
    : m_store(std::move(store)), m_background(background), m_sessionBus(std::move(sessionBus)) {
    m_rest.setSingleShot(true);
    QObject::connect(&m_rest, &QTimer::timeout, &m_rest, [this] { read(); });
}

void DesktopIconsWatch::setOn(bool isOn) {
    if (m_store && std::exchange(m_isOn, isOn) != isOn) {
        isOn ? begin() : end();
    }
}

void DesktopIconsWatch::begin() {
    if (!m_store->service().isEmpty()) {
        m_service.emplace(m_sessionBus, m_store->service(), [this] { serviceChanged(); });
    }
    // It is asked once it is known whether it is there, and not twice.
    if (!m_service || m_service->isSettled()) {
        read();
    }
}

void DesktopIconsWatch::end() {
    m_service.reset();
    m_rest.stop();
    m_monitor.reset();
    m_areTold = false;
    take({});
}

/// One that has gone comes again soon, and shows its icons where they were.
void DesktopIconsWatch::serviceChanged() {
    m_guesses = 0;
    if (m_service->isThere() || !m_areTold) {
        read();
    }
}

Subscription DesktopIconsWatch::subscribe(std::function<void()> handler) {
    return m_changes.subscribe(std::move(handler));
}

void DesktopIconsWatch::read() {
    m_background.run(
        m_work,
        [store = *m_store] {
            // From before the reading, so that no change falls in between; and here, since a
            // folder on another machine may hang.
            auto monitor = std::make_unique<FolderMonitor>(store.watchedPaths());
            return Reading{std::move(monitor), store.read()};
        },
        [this](Reading reading) {
            if (m_isOn) {
                takeReading(std::move(reading));
            }
        });
}

void DesktopIconsWatch::takeReading(Reading reading) {
    takeRead(std::move(reading.icons));
    m_monitor = std::move(reading.monitor);
    m_monitor->whenChanged([this] { m_rest.start(kRest); });
}

/// A guess is better than nothing, and worse than what was told before.
void DesktopIconsWatch::takeRead(DesktopIcons icons) {
    if (!icons.isGuessed) {
        m_guesses = 0;
        m_areTold = true;
    } else if (m_service && m_service->isThere() && ++m_guesses < kMostGuesses) {
        m_rest.start(kRest * (1 << (m_guesses - 1)));
    }
    if (!icons.isGuessed || !m_areTold) {
        take(std::move(icons));
    }
}

void DesktopIconsWatch::take(DesktopIcons icons) {
    if (m_icons != icons) {
        m_icons = std::move(icons);
        m_changes.send();
    }
}

} // namespace zeph
