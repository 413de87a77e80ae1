// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace zeph {

enum class LocationHindrance;

/// What the row of a permission says of its state.
struct PermissionState {
    QString word;          ///< one or two words
    QString note = {};     ///< one sentence on what stands in the way; mostly empty
    bool isOffered = true; ///< whether anything would come of it here

    bool operator==(const PermissionState &) const = default;
};

/// Of a permission that is ours alone to give.
PermissionState permissionState(bool isGranted);

/// Of input timing: not every desktop tells of keys, and on some of those the same consent lets
/// the application in front be known.
PermissionState inputState(bool isGranted, bool canCountKeys, bool tellsFront);

/// Of the location, which the system's service has a say in.
PermissionState locationState(bool isGranted, LocationHindrance hindrance);

} // namespace zeph
