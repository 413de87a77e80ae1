// SPDX-License-Identifier: MIT
#include "base/Background.h"

namespace zeph {

struct WorkOwner::State {
    int sideBySide;
    int underWay = 0;
    std::function<void()> waiting = {};
};

WorkOwner::WorkOwner(int sideBySide) : m_state(std::make_shared<State>(State{sideBySide})) {}

WorkOwner::~WorkOwner() = default;

bool WorkOwner::isBusy() const {
    return m_state->underWay >= m_state->sideBySide;
}

void WorkOwner::forgetWaiting() {
    m_state->waiting = nullptr;
}

Background::Background(Post away, Post toMain)
    : m_away(std::move(away)), m_toMain(std::move(toMain)) {}

void Background::start(WorkOwner &owner, std::function<void()> work,
                       std::function<void()> deliver) const {
    const std::weak_ptr<WorkOwner::State> weak = owner.m_state;
    const auto delivered = [weak, deliver = std::move(deliver)] {
        if (auto state = weak.lock()) {
            --state->underWay;
            // Before the result, which may end the owner.
            if (auto next = std::exchange(state->waiting, nullptr)) {
                next();
            }
            state.reset();
            deliver();
        }
    };
    auto begin = [weak, away = m_away, toMain = m_toMain, work = std::move(work), delivered] {
        if (const auto state = weak.lock()) {
            ++state->underWay;
            away([work, toMain, delivered] {
                try {
                    work();
                } catch (const std::exception &) {
                    // Told by the result that is missing.
                }
                toMain(delivered);
            });
        }
    };
    if (owner.isBusy()) {
        owner.m_state->waiting = std::move(begin);
    } else {
        begin();
    }
}

} // namespace zeph
