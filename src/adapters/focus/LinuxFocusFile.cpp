// SPDX-License-Identifier: MIT
#include "adapters/focus/LinuxFocusFile.h"

#include "adapters/focus/NotificationSwitch.h"
#include "adapters/focus/SettingSwitch.h"
#include "adapters/focus/XfconfSwitch.h"

#include <utility>

namespace zeph {

LinuxFocusFile::LinuxFocusFile(const FocusSource &source, const QDBusConnection &bus,
                               const Background &background) {
    const auto news = [this] { switched(); };
    if (const auto *setting = std::get_if<QuietSetting>(&source)) {
        m_switch = std::make_unique<SettingSwitch>(*setting, background, news);
    } else if (std::get<QuietService>(source) == QuietService::xfconf) {
        m_switch = std::make_unique<XfconfSwitch>(bus, news);
    } else {
        m_switch = std::make_unique<NotificationSwitch>(bus, news);
    }
}

LinuxFocusFile::~LinuxFocusFile() = default;

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
    if (m_hasRefused && m_switch->isQuiet()) {
        m_hasRefused = false;
        m_changes.send();
    }
}

} // namespace zeph
