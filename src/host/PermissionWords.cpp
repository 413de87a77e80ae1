// SPDX-License-Identifier: MIT
#include "host/PermissionWords.h"

#include "ports/LocationClient.h"

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

/// Without a service the position is still known roughly, so that what is missing is told only of
/// a location that is allowed. A refusal is told of one that is not.
QString locationNote(bool isGranted, LocationHindrance hindrance) {
    switch (hindrance) {
    case LocationHindrance::none:
        break;
    case LocationHindrance::refused:
        return isGranted ? QString() : u"Your desktop's location service refused."_s;
    case LocationHindrance::noAgent:
        return isGranted ? u"There is no location agent on this desktop, so the main city of your "
                           u"time zone stands in."_s
                         : QString();
    case LocationHindrance::noService:
        return isGranted ? u"There is no location service on this computer, so the main city of "
                           u"your time zone stands in."_s
                         : QString();
    }
    return {};
}

} // namespace

PermissionState permissionState(bool isGranted) {
    return {isGranted ? u"Allowed"_s : u"Not allowed"_s};
}

PermissionState inputState(bool isGranted, bool canCountKeys, bool tellsFront) {
    PermissionState state = permissionState(isGranted);
    if (!canCountKeys) {
        state.note = u"Your desktop does not tell how often keys are pressed, so there is no "
                     u"typing rhythm here."_s;
        state.isOffered = tellsFront;
        if (tellsFront) {
            state.note += u" If you allow this, Tavi can still see which app is in front."_s;
        }
    }
    return state;
}

PermissionState locationState(bool isGranted, LocationHindrance hindrance) {
    return {permissionState(isGranted).word, locationNote(isGranted, hindrance)};
}

} // namespace zeph
