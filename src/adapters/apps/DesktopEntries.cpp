// SPDX-License-Identifier: MIT
#include "adapters/apps/DesktopEntries.h"

#include <utility>

namespace zeph {

DesktopEntries::DesktopEntries(QStringList dataDirectories, QString locale, Background background)
    : m_directories(std::move(dataDirectories)),
      m_locale(std::move(locale)),
      m_background(std::move(background)) {
    read();
}

void DesktopEntries::find(const ApplicationHints &hints, const Found &found) {
    const InstalledApplication *const known = m_index ? m_index->match(hints) : nullptr;
    if (known == nullptr && m_isReading) {
        m_waiting.push_back({hints, found});
    } else {
        found(known);
    }
}

Subscription DesktopEntries::subscribe(std::function<void()> handler) {
    return m_changes.subscribe(std::move(handler));
}

void DesktopEntries::read() {
    m_isReading = true;
    m_background.run(
        m_owner,
        [directories = m_directories, locale = m_locale] {
            return std::make_unique<ApplicationIndex>(directories, locale);
        },
        [this](std::unique_ptr<ApplicationIndex> index) { adopt(std::move(index)); });
}

void DesktopEntries::adopt(std::unique_ptr<ApplicationIndex> index) {
    m_isReading = false;
    m_index = std::move(index);
    m_index->whenOutdated([this] { read(); }); // may be the case already
    for (const auto &[hints, found] : std::exchange(m_waiting, {})) {
        find(hints, found);
    }
    m_changes.send();
}

} // namespace zeph
