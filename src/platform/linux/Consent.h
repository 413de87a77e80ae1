// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace zeph {

class UserDefaults;

/// A permission that this desktop has no notion of, asked of the user by ourselves and kept in
/// the settings: a number, of which only 3 means that it was given.
class Consent {
public:
    Consent(const UserDefaults &defaults, QString key);

    /// The consent to input timing, under "zeph.consent.input".
    static Consent forInput(const UserDefaults &defaults);

    /// Read anew on every call, so that a withdrawal counts at once.
    bool isGranted() const;

private:
    const UserDefaults &m_defaults;
    QString m_key;
};

} // namespace zeph
