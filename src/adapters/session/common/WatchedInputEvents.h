// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/session/common/IdleWatcher.h"
#include "ports/InputEvents.h"

namespace zeph {

class Consent;

/// The input of a desktop that shows a program the keys and the pointer of no other one, and only
/// tells when there was no input for some time.
class WatchedInputEvents : public InputEvents {
public:
    /// What the user's consent makes possible here.
    enum class ConsentUse { nothing, frontApplication };

    /// Of a null `watcher` nothing is known, and the user is never away. `consent` is that to input
    /// timing, and outlives this.
    WatchedInputEvents(std::unique_ptr<IdleWatcher> watcher, Consent &consent,
                       ConsentUse use = ConsentUse::nothing);

    /// Always 0: such desktops tell that a time has passed, and not how much.
    double secondsSinceLastEvent() const override { return 0; }

    /// One watch, which is set anew when it is asked for another time than before. Until that has
    /// passed once the user counts as there.
    bool isQuietForMoreThan(double seconds) const override;
    bool isTrusted() const override;
    Subscription subscribeToTrust(std::function<void()> handler) override;
    bool canCountKeys() const override { return false; }
    bool consentTellsFront() const override { return m_use == ConsentUse::frontApplication; }
    std::unique_ptr<InputEventTap>
    makeTap(std::function<void(const InputEvent &)> /*handler*/) override {
        return nullptr;
    }

private:
    std::unique_ptr<IdleWatcher> m_watcher;
    Consent &m_consent;
    ConsentUse m_use;
    mutable std::chrono::milliseconds m_limit{-1}; // of the watch
    mutable std::unique_ptr<IdleWatch> m_watch;
};

} // namespace zeph
