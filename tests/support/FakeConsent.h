// SPDX-License-Identifier: MIT
#pragma once

#include "ports/Consent.h"

namespace zeph {

/// An answer that is kept nowhere.
class FakeConsent : public Consent {
public:
    explicit FakeConsent(ConsentState state = ConsentState::notDetermined) : m_state(state) {}

    ConsentState state() const override { return m_state; }
    void set(ConsentState state) override {
        if (m_state != state) {
            m_state = state;
            m_changes.send();
        }
    }
    Subscription subscribe(std::function<void()> handler) override {
        return m_changes.subscribe(std::move(handler));
    }

private:
    ConsentState m_state;
    ChangePublisher m_changes;
};

} // namespace zeph
