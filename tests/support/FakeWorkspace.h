// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Workspace.h"

namespace zeph {

/// A foreground that the test chooses.
class FakeWorkspace : public Workspace {
public:
    std::optional<RunningApplication> frontmostApplication() const override { return front; }
    void setActivationHandler(std::function<void(const RunningApplication &)> handler) override {
        m_handler = std::move(handler);
    }

    /// Brings an application to the front and tells of it.
    void activate(const RunningApplication &application) {
        front = application;
        emitActivation(application);
    }
    void emitActivation(const RunningApplication &application) {
        if (m_handler) {
            m_handler(application);
        }
    }

    std::optional<RunningApplication> front;

private:
    std::function<void(const RunningApplication &)> m_handler;
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
