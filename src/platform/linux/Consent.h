// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace zeph {

class UserDefaults;

/// A permission that this desktop has no notion of, asked of the user by ourselves and kept in
/// the settings: a number from 0 (not asked yet) to 3, of which only 3 means that it was given.
class Consent {
public:
    Consent(const UserDefaults &defaults, QString key);

    /// The consent to input timing, under "zeph.consent.input".
    static Consent forInput(const UserDefaults &defaults);

    /// The consent to read calendars, under "zeph.consent.calendar".
    static Consent forCalendar(const UserDefaults &defaults);

    /// The consent to read task lists, under "zeph.consent.reminders".
    static Consent forReminders(const UserDefaults &defaults);

    /// Read anew on every call, so that a withdrawal counts at once.
    bool isGranted() const { return state() == 3; }

    /// 0 not determined, 1 restricted, 2 denied, 3 granted; anything else that is stored there
    /// counts as 0.
    int state() const;

private:
    const UserDefaults &m_defaults;
    QString m_key;
};

} // namespace zeph
