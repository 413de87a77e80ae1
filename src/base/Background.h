// SPDX-License-Identifier: MIT
#pragma once

#include "base/WorkOwner.h"

#include <exception>
#include <functional>
#include <memory>
#include <optional>
#include <type_traits>
#include <utility>

namespace zeph {

/// The one way to do work away from the main thread. Main thread only.
class Background {
public:
    /// Passes an action on to where it is to run. Callable from any thread.
    using Post = std::function<void(std::function<void()>)>;

    /// `away` runs actions on threads of a pool, or drops them once the process ends; `toMain`
    /// runs them in a later turn of the main loop.
    Background(Post away, Post toMain);

    /// On the threads of `executor` and the main thread of `runLoop`, which outlive this.
    template <typename Executor, typename Loop>
    static Background over(Executor &executor, Loop &runLoop) {
        return {[&executor](std::function<void()> task) { executor.run(std::move(task)); },
                [&runLoop](std::function<void()> task) { runLoop.post(std::move(task)); }};
    }

    /// Runs `work` on a pool thread and then hands its result to `deliver` on the main thread,
    /// unless `owner` has ended by then. `work` takes all it needs by value or from what outlives
    /// the pool. Work that throws delivers nothing.
    template <typename Work, typename Deliver>
    void run(WorkOwner &owner, Work work, Deliver deliver) const {
        using Result = std::invoke_result_t<Work>;
        if constexpr (std::is_void_v<Result>) {
            auto finished = std::make_shared<bool>(false);
            start(
                owner,
                [work = std::move(work), finished]() mutable {
                    work();
                    *finished = true;
                },
                [deliver = std::move(deliver), finished]() mutable {
                    if (*finished) {
                        deliver();
                    }
                });
        } else {
            auto result = std::make_shared<std::optional<Result>>();
            start(
                owner, [work = std::move(work), result]() mutable { result->emplace(work()); },
                [deliver = std::move(deliver), result]() mutable {
                    if (*result) {
                        deliver(std::move(**result));
                    }
                });
        }
    }

private:
    void start(WorkOwner &owner, std::function<void()> work, std::function<void()> deliver) const;

    Post m_away;
    Post m_toMain;
};

} // namespace zeph
