// SPDX-License-Identifier: MIT
#include "adapters/session/nemo/NemoDesktop.h"

#include "base/Background.h"
#include "base/Log.h"
#include "ports/RunLoop.h"

#include <algorithm>
#include <utility>

namespace zeph {

namespace {

// Nemo takes a tenth of a second for it, unless the computer is busy.
constexpr std::chrono::milliseconds kPatience{2000};

// One is needed each time that our windows are mapped anew, as after a change of displays or of the
// manager. Where two in a row do not help a third would neither.
constexpr int kMostTries = 6;
constexpr int kMostInVain = 2;
constexpr std::chrono::milliseconds kBurst{60'000};

} // namespace

NemoDesktop::NemoDesktop(bool isOfSession, Surroundings surroundings)
    : m_with(std::move(surroundings)), m_limit([this] { look(); }, kBurst) {
    if (isOfSession) {
        getAlong();
    } else if (m_with.settings.keepsAnything()) {
        m_with.background.run(
            m_work, [settings = m_with.settings] { settings.giveBack(); }, [] {});
    }
}

void NemoDesktop::follow(const X11IconCover::Facts &facts) {
    m_facts = facts;
    if (!m_facts.icons.empty()) {
        getAlong();
    }
    look();
}

void NemoDesktop::getAlong() {
    if (std::exchange(m_isAlong, true)) {
        return;
    }
    m_with.background.run(
        m_work,
        [settings = m_with.settings] {
            settings.giveLayoutBack(); // of a run that was killed
            return settings.getAlong();
        },
        [](NemoOutcome outcome) {
            if (outcome == NemoOutcome::refused || outcome == NemoOutcome::unavailable) {
                qCInfo(logSession, "Nemo's setting of desktops that it gets along with can't be "
                                   "written: it shows no icons if it starts later");
            }
        });
}

void NemoDesktop::look() {
    if (m_step == Step::changed) {
        lookForEnd();
    } else if (m_step == Step::none && !m_facts.areCovered) {
        m_vain = m_facts.icons.empty() ? m_vain : 0;
    } else if (m_step == Step::none && m_vain < kMostInVain && m_limit.allows(kMostTries)) {
        ++m_vain;
        makeAnew();
    }
}

void NemoDesktop::makeAnew() {
    m_step = Step::changing;
    m_old = m_facts.icons;
    m_with.background.run(
        m_work, [settings = m_with.settings] { return settings.changeLayout(); },
        [this](NemoOutcome outcome) {
            if (outcome != NemoOutcome::done) {
                // Nothing that could be waited for: with the next news it is tried again.
                m_step = Step::none;
                return;
            }
            m_step = Step::changed;
            m_with.runLoop.after(kPatience, m_work.whileAlive([this, round = ++m_round] {
                if (m_step == Step::changed && m_round == round) {
                    giveLayoutBack();
                }
            }));
            lookForEnd();
        });
}

void NemoDesktop::lookForEnd() {
    const auto &icons = m_facts.icons;
    if (std::find_first_of(icons.begin(), icons.end(), m_old.begin(), m_old.end()) == icons.end()) {
        giveLayoutBack();
    }
}

void NemoDesktop::giveLayoutBack() {
    m_step = Step::backing;
    m_with.background.run(
        m_work, [settings = m_with.settings] { settings.giveLayoutBack(); },
        [this] {
            m_step = Step::none;
            look();
        });
}

} // namespace zeph
