// SPDX-License-Identifier: MIT
#pragma once

#include "base/WorkOwner.h"

#include <QString>

#include <chrono>
#include <functional>
#include <optional>

namespace zeph {

class RunLoop;

/// The offer to take a removal back, for some seconds. A new offer, the end of the time and the
/// end of this object settle what was offered before. Main thread only.
class UndoOffer {
public:
    static constexpr std::chrono::seconds time{8};

    /// `runLoop` outlives this.
    explicit UndoOffer(RunLoop &runLoop);
    ~UndoOffer();
    UndoOffer(const UndoOffer &) = delete;
    UndoOffer &operator=(const UndoOffer &) = delete;

    /// Called after the text has changed; not called at the end of this object.
    std::function<void()> changed;

    /// Offers to take back the removal of `title`. One of the two is called, once.
    void offer(const QString &title, std::function<void()> takeBack,
               std::function<void()> settle = {});

    /// "Removed {title}."; absent while nothing is offered.
    const std::optional<QString> &text() const { return m_text; }

    /// Takes back what is offered; does nothing without an offer.
    void takeBack();

    /// The removal stands from now on.
    void settle();

private:
    void end(const std::function<void()> &action);

    RunLoop &m_runLoop;
    std::optional<QString> m_text;
    std::function<void()> m_takeBack;
    std::function<void()> m_settle;
    int m_offers = 0; // so that the end of an earlier one's time is known as such
    WorkOwner m_owner;
};

} // namespace zeph
