// SPDX-License-Identifier: MIT
#include "platform/linux/focus/LinuxFocusFile.h"

#include "platform/linux/focus/NotificationSwitch.h"
#include "platform/linux/focus/SettingSwitch.h"
#include "platform/linux/focus/XfconfSwitch.h"

#include <utility>

namespace zeph {

LinuxFocusFile::LinuxFocusFile(const FocusSource &source, const QDBusConnection &bus,
                               TaskExecutor &executor, RunLoop &runLoop) {
    const auto news = [this] { switched(); };
    if (const auto *setting = std::get_if<QuietSetting>(&source)) {
        m_switch = std::make_unique<SettingSwitch>(*setting, executor, runLoop, news);
    } else if (std::get<QuietService>(source) == QuietService::xfconf) {
        m_switch = std::make_unique<XfconfSwitch>(bus, news);
    } else {
        m_switch = std::make_unique<NotificationSwitch>(bus, news);
    }
}

LinuxFocusFile::~LinuxFocusFile() = default;

void LinuxFocusFile::setContentsHandler(std::function<void()> handler) {
    m_handler = std::move(handler);
}

std::optional<QByteArray> LinuxFocusFile::contents() {
    const std::optional<bool> isQuiet = m_switch->isQuiet();
    m_hasRefused = !isQuiet;
    if (!isQuiet) {
        return std::nullopt;
    }
    return *isQuiet ? QByteArray(R"({"data":[{"storeAssertionRecords":[{}]}]})")
                    : QByteArray(R"({"data":[{"storeAssertionRecords":[]}]})");
}

void LinuxFocusFile::switched() {
    if (m_hasRefused && m_handler && m_switch->isQuiet()) {
        m_hasRefused = false;
        m_handler();
    }
}

} // namespace zeph
