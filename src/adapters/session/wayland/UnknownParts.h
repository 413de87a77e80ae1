// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/session/wayland/SessionParts.h"
#include "ports/InputEvents.h"
#include "ports/VirtualDesktops.h"
#include "ports/Workspace.h"

namespace zeph {

/// Where the compositor does not tell which application is in front.
class UnknownWorkspace : public Workspace {
public:
    std::optional<RunningApplication> frontmostApplication() const override { return {}; }
    Subscription
    subscribeToActivations(std::function<void(const RunningApplication &)> /*handler*/) override {
        return {};
    }
};

/// Where the compositor tells nothing of the input.
class UnknownInputEvents : public InputEvents {
public:
    double secondsSinceLastEvent() const override { return 0; }
    bool isTrusted() const override { return false; }
    Subscription subscribeToTrust(std::function<void()> /*handler*/) override { return {}; }
    std::unique_ptr<InputEventTap>
    makeTap(std::function<void(const InputEvent &)> /*handler*/) override {
        return nullptr;
    }
};

/// Where the compositor has no workspaces, or does not tell of them.
class NoVirtualDesktops : public VirtualDesktops {
public:
    std::vector<ManagedDisplay> managedDisplays() const override { return {}; }
    Subscription subscribe(std::function<void()> /*handler*/) override { return {}; }
};

/// Where the desktop tells nothing at all.
class UnknownParts : public SessionParts {
public:
    Workspace &workspace() override { return m_workspace; }
    InputEvents &inputEvents() override { return m_inputEvents; }
    VirtualDesktops &virtualDesktops() override { return m_virtualDesktops; }
    UsableAreas *usableAreas() override { return nullptr; }

private:
    UnknownWorkspace m_workspace;
    UnknownInputEvents m_inputEvents;
    NoVirtualDesktops m_virtualDesktops;
};

} // namespace zeph
