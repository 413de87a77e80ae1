// SPDX-License-Identifier: MIT
#include "adapters/apps/FrontApplication.h"

#include "adapters/apps/DesktopEntries.h"

#include <utility>

namespace zeph {

namespace {

RunningApplication applicationOf(const ApplicationHints &hints,
                                 const InstalledApplication *installed) {
    if (installed != nullptr) {
        return {installed->identifier, installed->entry.name, installed->path};
    }
    const QString &name = hints.windowClass.isEmpty() ? hints.program : hints.windowClass;
    return name.isEmpty() ? RunningApplication{} : RunningApplication{name, name, std::nullopt};
}

} // namespace

FrontApplication::FrontApplication(DesktopEntries &entries)
    : m_entries(entries), m_entriesChanges(entries.subscribe([this] { find(); })) {}

void FrontApplication::set(const std::optional<ApplicationHints> &hints) {
    ++m_turn;
    m_hints = hints;
    if (m_hints) {
        find();
    } else {
        take(std::nullopt);
    }
}

void FrontApplication::find() {
    if (!m_hints) {
        return;
    }
    const auto found = [this, turn = m_turn](const InstalledApplication *installed) {
        if (turn == m_turn && m_hints) {
            take(applicationOf(*m_hints, installed));
        }
    };
    m_entries.find(*m_hints, m_questions.whileAlive(found));
}

void FrontApplication::take(std::optional<RunningApplication> front) {
    if (m_front == front) {
        return;
    }
    m_front = std::move(front);
    if (m_front) {
        m_activations.send();
    }
    m_changes.send();
}

Subscription
FrontApplication::subscribeToActivations(std::function<void(const RunningApplication &)> handler) {
    return m_activations.subscribe([this, handler = std::move(handler)] {
        if (const auto front = m_front) {
            handler(*front);
        }
    });
}

Subscription FrontApplication::subscribe(std::function<void()> handler) {
    return m_changes.subscribe(std::move(handler));
}

} // namespace zeph
