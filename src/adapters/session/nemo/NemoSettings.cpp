// SPDX-License-Identifier: MIT
#include "adapters/session/nemo/NemoSettings.h"

#include "adapters/desktop/NemoLayout.h"
#include "adapters/session/nemo/PrintedTexts.h"
#include "ports/UserDefaults.h"

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

const QString kHandlersKey = u"ignored-desktop-handlers"_s;

// The instance that our windows name, as the tool prints it.
const QString kOurs = u"'tavi'"_s;

const QString kListed = u"zeph.nemo.isListed"_s;
const QString kEarlierLayout = u"zeph.nemo.earlierLayout"_s;

bool isFailure(NemoOutcome outcome) {
    return outcome == NemoOutcome::refused || outcome == NemoOutcome::unavailable;
}

} // namespace

NemoSettings::NemoSettings(Tool tool, UserDefaults &defaults)
    : m_tool(std::move(tool)), m_defaults(defaults) {}

NemoOutcome NemoSettings::getAlong() const {
    const auto printed = read(kHandlersKey);
    if (!printed) {
        return NemoOutcome::unavailable;
    }
    const auto handlers = printedTextsIn(*printed);
    if (!handlers) {
        return NemoOutcome::refused;
    }
    if (handlers->contains(kOurs)) {
        return NemoOutcome::nothingToDo;
    }
    if (!keep(kListed, true)) {
        return NemoOutcome::refused;
    }
    const NemoOutcome written = write(kHandlersKey, listOfPrinted(*handlers + QStringList{kOurs}));
    if (written == NemoOutcome::refused) {
        m_defaults.remove(kListed);
    }
    return written;
}

NemoOutcome NemoSettings::changeLayout() const {
    if (const NemoOutcome mended = giveLayoutBack(); isFailure(mended)) {
        return mended;
    }
    const auto layout = read(nemoLayoutKey);
    if (!layout) {
        return NemoOutcome::unavailable;
    }
    // The other words that nobody gave back are ours: usual ones are as new to Nemo as these.
    const QString usual = inUsualWords(*layout);
    const auto other = inOtherWords(usual);
    if (!other) {
        return NemoOutcome::nothingToDo;
    }
    if (!keep(kEarlierLayout, usual)) {
        return NemoOutcome::refused;
    }
    if (*other == *layout) {
        return NemoOutcome::done;
    }
    const NemoOutcome written = write(nemoLayoutKey, *other);
    if (written == NemoOutcome::refused) {
        m_defaults.remove(kEarlierLayout);
    }
    return written;
}

NemoOutcome NemoSettings::giveLayoutBack() const {
    const auto earlier = m_defaults.get<QString>(kEarlierLayout);
    if (!earlier) {
        return NemoOutcome::nothingToDo;
    }
    const auto layout = read(nemoLayoutKey);
    if (!layout) {
        return NemoOutcome::unavailable;
    }
    NemoOutcome outcome = NemoOutcome::nothingToDo;
    if (layout == inOtherWords(*earlier)) {
        outcome = write(nemoLayoutKey, *earlier);
        if (outcome == NemoOutcome::done && read(nemoLayoutKey) == layout) {
            outcome = NemoOutcome::refused;
        }
    }
    if (!isFailure(outcome)) {
        m_defaults.remove(kEarlierLayout);
    }
    return outcome;
}

NemoOutcome NemoSettings::leaveHandlers() const {
    if (!m_defaults.boolean(kListed)) {
        return NemoOutcome::nothingToDo;
    }
    const auto printed = read(kHandlersKey);
    if (!printed) {
        return NemoOutcome::unavailable;
    }
    auto handlers = printedTextsIn(*printed);
    if (!handlers) {
        return NemoOutcome::refused;
    }
    NemoOutcome outcome = NemoOutcome::nothingToDo;
    if (handlers->removeAll(kOurs) > 0) {
        outcome = write(kHandlersKey, listOfPrinted(*handlers));
        if (outcome == NemoOutcome::done && read(kHandlersKey) == printed) {
            outcome = NemoOutcome::refused;
        }
    }
    if (!isFailure(outcome)) {
        m_defaults.remove(kListed);
    }
    return outcome;
}

NemoOutcome NemoSettings::giveBack() const {
    const NemoOutcome layout = giveLayoutBack();
    const NemoOutcome handlers = leaveHandlers();
    for (const NemoOutcome one :
         {NemoOutcome::refused, NemoOutcome::unavailable, NemoOutcome::done}) {
        if (layout == one || handlers == one) {
            return one;
        }
    }
    return NemoOutcome::nothingToDo;
}

bool NemoSettings::keepsAnything() const {
    return m_defaults.boolean(kListed) || m_defaults.contains(kEarlierLayout);
}

/// Before a setting is changed, since only what is on the disk outlives a kill.
bool NemoSettings::keep(const QString &key, const DefaultsValue &value) const {
    m_defaults.set(key, value);
    if (m_defaults.isSaved()) {
        return true;
    }
    m_defaults.remove(key);
    return false;
}

std::optional<QString> NemoSettings::read(const QString &key) const {
    const auto answer = m_tool({u"get"_s, nemoDesktopSchema, key});
    return answer && answer->exitCode == 0 ? std::optional(answer->output) : std::nullopt;
}

/// The tool succeeds also where what it wrote is never stored: who must know reads it again.
NemoOutcome NemoSettings::write(const QString &key, const QString &value) const {
    const auto answer = m_tool({u"set"_s, nemoDesktopSchema, key, value});
    if (!answer) {
        return NemoOutcome::unavailable;
    }
    return answer->exitCode == 0 ? NemoOutcome::done : NemoOutcome::refused;
}

} // namespace zeph
