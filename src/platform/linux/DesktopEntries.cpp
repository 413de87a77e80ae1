// SPDX-License-Identifier: MIT
#include "platform/linux/DesktopEntries.h"

#include "platform/RunLoop.h"
#include "platform/TaskExecutor.h"

#include <utility>

namespace zeph {

DesktopEntries::DesktopEntries(QStringList dataDirectories, const QString &locale,
                               TaskExecutor &executor, RunLoop &runLoop)
    : m_directories(std::move(dataDirectories)),
      m_locales(desktopEntryLocales(locale)),
      m_executor(executor),
      m_runLoop(runLoop),
      m_self(std::make_shared<DesktopEntries *>(this)) {}

void DesktopEntries::find(const ApplicationHints &hints, const Found &found) {
    if (!m_index) {
        m_index = std::make_shared<const ApplicationIndex>(m_directories, m_locales);
    }
    const InstalledApplication *const known = m_index->match(hints);
    if (known == nullptr && (!m_waiting.empty() || m_index->isOutdated())) {
        m_waiting.push_back({hints, found});
        if (m_waiting.size() == 1) {
            readAnew();
        }
    } else {
        found(known);
    }
}

void DesktopEntries::readAnew() {
    m_executor.run([directories = m_directories, locales = m_locales, &runLoop = m_runLoop,
                    weakSelf = std::weak_ptr(m_self)] {
        runLoop.post(
            [weakSelf, index = std::make_shared<const ApplicationIndex>(directories, locales)] {
                if (const auto self = weakSelf.lock()) {
                    (*self)->adopt(index);
                }
            });
    });
}

void DesktopEntries::adopt(std::shared_ptr<const ApplicationIndex> index) {
    m_index = std::move(index);
    for (const auto &[hints, found] : std::exchange(m_waiting, {})) {
        found(m_index->match(hints));
    }
}

} // namespace zeph
