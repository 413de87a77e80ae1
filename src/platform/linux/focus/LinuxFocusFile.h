// SPDX-License-Identifier: MIT
#pragma once

#include "platform/FocusFile.h"
#include "platform/linux/focus/FocusSource.h"

#include <memory>

class QDBusConnection;

namespace zeph {

class QuietSwitch;
class RunLoop;
class TaskExecutor;

/// The desktop's do-not-disturb as the state file that is read elsewhere. Main thread only.
class LinuxFocusFile : public FocusFile {
public:
    /// `source` is what focusSourceFor answers, `bus` the session bus. `runLoop` has to outlive the
    /// tasks of `executor`.
    LinuxFocusFile(const FocusSource &source, const QDBusConnection &bus, TaskExecutor &executor,
                   RunLoop &runLoop);
    ~LinuxFocusFile() override;

    std::optional<QByteArray> contents() override;
    void setContentsHandler(std::function<void()> handler) override;

private:
    void switched();

    std::unique_ptr<QuietSwitch> m_switch;
    std::function<void()> m_handler;
    bool m_hasRefused = false;
};

} // namespace zeph
