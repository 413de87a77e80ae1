// SPDX-License-Identifier: MIT
#pragma once

#include "ports/VirtualDesktops.h"

#include <utility>

namespace zeph {

/// Workspaces `first` to `first + count - 1`, shared by all displays or those of one.
inline ManagedDisplay display(int count, std::optional<quint64> current,
                              const QString &identifier = QStringLiteral("shared"),
                              quint64 first = 1) {
    ManagedDisplay made{.identifier = identifier, .currentSpace = current, .spaces = {}};
    for (int index = 0; index < count; ++index) {
        made.spaces.push_back({.id = first + static_cast<quint64>(index)});
    }
    return made;
}

/// Workspaces that the test adds, removes and switches between; none at first.
class FakeVirtualDesktops : public VirtualDesktops {
public:
    std::vector<ManagedDisplay> managedDisplays() const override { return displays; }
    Subscription subscribe(std::function<void()> handler) override {
        return m_changes.subscribe(std::move(handler));
    }

    /// Replaces them and tells of it.
    void change(std::vector<ManagedDisplay> next) {
        displays = std::move(next);
        m_changes.send();
    }

    std::vector<ManagedDisplay> displays;

private:
    ChangePublisher m_changes;
};

} // namespace zeph
