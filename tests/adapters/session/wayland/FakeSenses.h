// SPDX-License-Identifier: MIT
#pragma once

#include "support/CompositorThread.h"

#include <QString>

#include <memory>
#include <vector>

namespace zeph {

/// A compositor that tells of idle times and of windows, and of nothing else, as a test says.
class FakeSenses {
public:
    struct Options {
        bool hasSeat = true;
        bool hasIdleNotifier = true;
        bool hasOlderIdleNotifier = true;
        std::uint32_t toplevelVersion = 3; ///< 0 for none
    };

    /// A watch of a client.
    struct Watch {
        std::uint32_t milliseconds = 0;
        bool isOlder = false; ///< by the older protocol

        bool operator==(const Watch &) const = default;
    };

    explicit FakeSenses(const Options &options);
    FakeSenses() : FakeSenses(Options()) {}
    ~FakeSenses();
    FakeSenses(const FakeSenses &) = delete;
    FakeSenses &operator=(const FakeSenses &) = delete;

    QByteArray socket() const { return m_thread.socket(); }

    std::vector<Watch> watches();

    /// Tells all watches that their time is reached, or that there was input.
    void tellIdle(bool isIdle);

    /// A new window; answers its number. Nothing is told of it that is not done.
    int addWindow(const QByteArray &name, bool isActive = false);
    void setActive(int window, bool isActive);
    void setName(int window, const QByteArray &name);
    void done(int window);

    /// The compositor says that it is gone.
    void closeWindow(int window);

    /// The compositor tells of no windows any more.
    void finishWindows();

private:
    struct State;

    std::unique_ptr<State> m_state; // the thread's own
    CompositorThread m_thread;
};

} // namespace zeph
