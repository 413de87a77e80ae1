// SPDX-License-Identifier: MIT
#pragma once

#include "ports/Workspace.h"

namespace zeph {

/// A foreground that the test chooses.
class FakeWorkspace : public Workspace {
public:
    std::optional<RunningApplication> frontmostApplication() const override { return front; }
    Subscription
    subscribeToActivations(std::function<void(const RunningApplication &)> handler) override {
        return m_activations.subscribe(
            [this, handler = std::move(handler)] { handler(m_activated); });
    }

    /// Brings an application to the front and tells of it.
    void activate(const RunningApplication &application) {
        front = application;
        emitActivation(application);
    }
    void emitActivation(const RunningApplication &application) {
        m_activated = application;
        m_activations.send();
    }

    std::optional<RunningApplication> front;

private:
    RunningApplication m_activated;
    ChangePublisher m_activations;
};

/// An application with an identifier, and a name unless that is empty.
inline RunningApplication application(const QString &identifier, const QString &name = {},
                                      const QString &path = {}) {
    const auto optional = [](const QString &text) {
        return text.isEmpty() ? std::nullopt : std::optional(text);
    };
    return {optional(identifier), optional(name), optional(path)};
}

} // namespace zeph
