// SPDX-License-Identifier: MIT
#pragma once

#include "ports/InputEvents.h"

namespace zeph {

/// Input that the test makes up.
class FakeInputEvents : public InputEvents {
public:
    double secondsSinceLastEvent() const override { return idleSeconds; }
    bool isTrusted() const override { return trusted; }
    bool canCountKeys() const override { return countsKeys; }
    bool consentTellsFront() const override { return tellsFront; }
    Subscription subscribeToTrust(std::function<void()> handler) override {
        return m_trust.subscribe(std::move(handler));
    }

    /// Gives or withdraws the consent and tells of it.
    void setTrusted(bool isTrusted) {
        trusted = isTrusted;
        m_trust.send();
    }

    std::unique_ptr<InputEventTap>
    makeTap(std::function<void(const InputEvent &)> handler) override {
        if (!trusted || refuses) {
            return nullptr;
        }
        ++tapsMade;
        m_handler = std::move(handler);
        return std::make_unique<Tap>(*this);
    }

    void emitEvent(InputEventKind kind, QPointF location = {}) const {
        if (m_handler) {
            m_handler({kind, location});
        }
    }

    double idleSeconds = 0;
    bool trusted = true;
    bool refuses = false;
    bool countsKeys = true;
    bool tellsFront = false;
    int tapsMade = 0;
    int enables = 0;

private:
    class Tap : public InputEventTap {
    public:
        explicit Tap(FakeInputEvents &owner) : m_owner(owner) {}
        ~Tap() override { m_owner.m_handler = nullptr; }
        void enable() override { ++m_owner.enables; }

    private:
        FakeInputEvents &m_owner;
    };

    std::function<void(const InputEvent &)> m_handler;
    ChangePublisher m_trust;
};

} // namespace zeph
