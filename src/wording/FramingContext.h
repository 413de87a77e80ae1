// SPDX-License-Identifier: MIT
#pragma once

namespace zeph {

class Calendar;
class Formatters;
class PreferencesStore;

/// What wording depends on beyond its arguments. The objects outlive whoever is handed this; the
/// settings are read at each call.
struct FramingContext {
    const PreferencesStore &preferences;
    const Calendar &calendar;
    const Formatters &formatters;
};

} // namespace zeph
