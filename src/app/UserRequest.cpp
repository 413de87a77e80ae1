// SPDX-License-Identifier: MIT
#include "app/UserRequest.h"

#include "adapters/bus/ApplicationRequest.h"

using namespace Qt::StringLiterals;

namespace zeph {

std::optional<UserRequest> userRequestOf(const ApplicationRequest &request) {
    if (request.kind != ApplicationRequest::Kind::action) {
        return UserRequest::reopen; // there is no file that the program could open
    }
    // The actions of the desktop entry.
    if (request.action == u"settings"_s) {
        return UserRequest::openSettings;
    }
    if (request.action == u"check-updates"_s) {
        return UserRequest::checkForUpdates;
    }
    if (request.action == u"quit"_s) {
        return UserRequest::quit;
    }
    return std::nullopt;
}

} // namespace zeph
