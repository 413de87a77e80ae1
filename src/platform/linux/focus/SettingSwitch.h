// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/focus/FocusSource.h"
#include "platform/linux/focus/QuietSwitch.h"

#include <functional>
#include <memory>

namespace zeph {

class RunLoop;
class TaskExecutor;

/// A switch among the desktop's settings. The settings library follows them by itself and keeps
/// them in memory, so that they are read when asked for; getting it ready reads files and loads
/// modules, which a task does. Absent before, and where the desktop's settings are not installed.
class SettingSwitch : public QuietSwitch {
public:
    /// `news` runs when the switch can be read. `runLoop` has to outlive the tasks of `executor`.
    SettingSwitch(QuietSetting setting, TaskExecutor &executor, RunLoop &runLoop,
                  std::function<void()> news);
    ~SettingSwitch() override;

    std::optional<bool> isQuiet() const override;

private:
    struct Schema;
    struct Settings;

    static std::shared_ptr<Schema> prepare(const QuietSetting &setting);
    static void outliveBus(const std::weak_ptr<Settings> &settings);
    void open(const Schema &schema);

    QuietSetting m_setting;
    std::function<void()> m_news;
    std::shared_ptr<Settings> m_settings;    // the library's answer to a question holds it weakly
    std::shared_ptr<SettingSwitch *> m_self; // the task holds it weakly: it may end after this
};

} // namespace zeph
