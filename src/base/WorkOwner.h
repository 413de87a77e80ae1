// SPDX-License-Identifier: MIT
#pragma once

#include <limits>
#include <memory>
#include <utility>

namespace zeph {

/// Stands for an object that gives work away from the main thread (see `Background`); a member of
/// it. What is delivered after its end is dropped. Main thread only.
class WorkOwner {
public:
    static constexpr int unlimited = std::numeric_limits<int>::max();

    /// At most `sideBySide` pieces of work are under way at a time. Of further ones only the
    /// newest is kept waiting, so that work that hangs again and again can't pile up.
    explicit WorkOwner(int sideBySide = unlimited);
    ~WorkOwner();
    WorkOwner(const WorkOwner &) = delete;
    WorkOwner &operator=(const WorkOwner &) = delete;

    /// Whether the next piece of work would have to wait.
    bool isBusy() const;

    /// The piece of work that waits is no longer wanted.
    void forgetWaiting();

    /// `action`, wrapped so that it does nothing after the end of this owner. The result takes the
    /// arguments of `action` and is to be called on the main thread.
    template <typename Action>
    auto whileAlive(Action action) const {
        return [weak = std::weak_ptr<State>(m_state),
                action = std::move(action)](const auto &...arguments) {
            if (!weak.expired()) {
                action(arguments...);
            }
        };
    }

private:
    friend class Background;
    struct State;

    std::shared_ptr<State> m_state; // held by nobody else for longer than a call
};

} // namespace zeph
