// SPDX-License-Identifier: MIT
#pragma once

#include <optional>

namespace zeph {

struct ApplicationRequest;

/// What the user asks of the running program from outside of its windows.
enum class UserRequest {
    reopen, ///< started once more
    openSettings,
    checkForUpdates,
    quit,
};

/// What a request of the desktop means; absent for an action that there is not.
std::optional<UserRequest> userRequestOf(const ApplicationRequest &request);

} // namespace zeph
