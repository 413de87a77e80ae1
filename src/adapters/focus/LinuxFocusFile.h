// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/focus/FocusSource.h"
#include "ports/FocusFile.h"

#include <memory>

class QDBusConnection;

namespace zeph {

class Background;
class QuietSwitch;

/// The desktop's do-not-disturb as the state file that is read elsewhere. Main thread only.
class LinuxFocusFile : public FocusFile {
public:
    /// `source` is what focusSourceFor answers, `bus` the session bus.
    LinuxFocusFile(const FocusSource &source, const QDBusConnection &bus,
                   const Background &background);
    ~LinuxFocusFile() override;

    std::optional<QByteArray> contents() override;
    Subscription subscribe(std::function<void()> handler) override {
        return m_changes.subscribe(std::move(handler));
    }

private:
    void switched();

    ChangePublisher m_changes;
    bool m_hasRefused = false;
    std::unique_ptr<QuietSwitch> m_switch; // last, since it calls back
};

} // namespace zeph
