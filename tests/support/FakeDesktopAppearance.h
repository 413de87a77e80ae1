// SPDX-License-Identifier: MIT
#pragma once

#include "ports/DesktopAppearance.h"

namespace zeph {

/// A desktop whose wishes the test sets.
class FakeDesktopAppearance : public DesktopAppearance {
public:
    Scheme scheme() const override { return wantedScheme; }
    bool wantsHighContrast() const override { return wantedContrast; }
    bool wantsMotion() const override { return wantedMotion; }
    Subscription subscribe(std::function<void()> handler) override {
        return m_changes.subscribe(std::move(handler));
    }

    /// Tells of what was changed in the members.
    void tell() { m_changes.send(); }

    Scheme wantedScheme = Scheme::dark;
    bool wantedContrast = false;
    bool wantedMotion = false;

private:
    ChangePublisher m_changes;
};

} // namespace zeph
