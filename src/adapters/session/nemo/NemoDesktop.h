// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/session/nemo/NemoSettings.h"
#include "adapters/session/x11/InsistenceLimit.h"
#include "adapters/session/x11/X11IconCover.h"
#include "base/WorkOwner.h"

namespace zeph {

class Background;
class RunLoop;

/// Gets along with the desktop of Nemo: has it start beside our windows, and make its own windows
/// anew where ours cover them, by two writes of a setting with the end of the old windows between
/// them. Main thread only.
class NemoDesktop {
public:
    /// All but `settings` outlive it. `background` does one thing after the other.
    struct Surroundings {
        const Background &background;
        RunLoop &runLoop;
        NemoSettings settings;
    };

    /// `isOfSession`: Nemo draws the desktop of this session, so that it can start at any moment.
    /// Where it does not, what an earlier run has changed is undone.
    NemoDesktop(bool isOfSession, Surroundings surroundings);

    /// What is known of its windows by now.
    void follow(const X11IconCover::Facts &facts);

private:
    enum class Step {
        none,
        changing, ///< the first write is under way
        changed,  ///< until the old windows are gone
        backing,  ///< the second write is under way
    };

    void getAlong();
    void look();
    void makeAnew();
    void lookForEnd();
    void giveLayoutBack();

    Surroundings m_with;
    X11IconCover::Facts m_facts;
    bool m_isAlong = false;
    Step m_step = Step::none;
    int m_round = 0;
    int m_vain = 0;                  // tries in a row that did not help
    std::vector<xcb_window_t> m_old; // of Nemo, before the first write
    InsistenceLimit m_limit;
    WorkOwner m_work;
};

} // namespace zeph
