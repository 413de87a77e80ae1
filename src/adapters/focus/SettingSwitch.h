// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/focus/FocusSource.h"
#include "adapters/focus/QuietSwitch.h"
#include "base/WorkOwner.h"

#include <functional>
#include <memory>

namespace zeph {

class Background;
struct GioLibrary;

/// A switch among the desktop's settings. The settings library follows them by itself and keeps
/// them in memory, so that they are read when asked for; getting it ready reads files and loads
/// modules, which a task does. Absent before, and where the desktop's settings are not installed.
class SettingSwitch : public QuietSwitch {
public:
    /// `news` runs when the switch can be read.
    SettingSwitch(QuietSetting setting, const Background &background, std::function<void()> news);
    /// The same by the library that `load` answers on any thread, null where there is none.
    SettingSwitch(QuietSetting setting, const Background &background, std::function<void()> news,
                  std::function<const GioLibrary *()> load);
    ~SettingSwitch() override;

    std::optional<bool> isQuiet() const override;

private:
    struct Schema;
    struct Settings;

    static std::shared_ptr<Schema> prepare(const QuietSetting &setting, const GioLibrary *gio);
    static void outliveBus(const std::shared_ptr<Settings> &settings);
    void open(const Schema &schema);

    QuietSetting m_setting;
    std::function<void()> m_news;
    std::shared_ptr<Settings> m_settings; // the library's answer to a question holds it weakly
    WorkOwner m_owner;
};

} // namespace zeph
