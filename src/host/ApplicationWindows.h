// SPDX-License-Identifier: MIT
#pragma once

#include "ports/Port.h"

#include <functional>

namespace zeph {

/// What the first-run window tells.
struct OnboardingEvents {
    std::function<void()> onDone;   ///< the user went through to the end
    std::function<void()> onClosed; ///< the user closed the window before that
};

/// The program's own windows. None is made before it is opened; main thread only.
class ApplicationWindows : public Port {
public:
    /// Shows the settings, in the tab that was shown last, at the right edge of the main screen,
    /// in front of other programs. The window is kept when the user closes it.
    virtual void openSettings() = 0;

    /// The same, with what tells of newer versions of the program.
    virtual void openUpdates() = 0;

    /// Shows the first-run window in front of other programs. One that was shown before comes
    /// back as the user left it, and `events` are those of its first time.
    virtual void showOnboarding(OnboardingEvents events) = 0;

    /// Closes the first-run window for good, without a word to its `onClosed`. May be called from
    /// within its `onDone`.
    virtual void closeOnboarding() = 0;
};

} // namespace zeph
