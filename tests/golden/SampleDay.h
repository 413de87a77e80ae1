// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/WidgetFixture.h"

namespace zeph {

/// Days of an invented user, full enough to fill every local widget.
class SampleDay : public WidgetFixture {
protected:
    SampleDay();

    /// A Thursday morning in May, all widgets on.
    void fillMorning();

    /// Accounts at web services, two at some, beside others that failed.
    void fillAccounts();

    /// One account at each service, with little to tell.
    void fillFewAccounts();

    /// Accounts with long names and numbers from zero to the largest.
    void fillOddAccounts();

    /// The same Thursday shortly before midnight, after a long day.
    void fillNight();

    /// The morning with long names, emoji, and texts written from right to left or in Han.
    void fillWorldly();

private:
    void fillApplications();
    void fillMachine();
    void fillCalendar();
    void fillHistory();
};

} // namespace zeph
