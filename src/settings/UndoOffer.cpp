// SPDX-License-Identifier: MIT
#include "settings/UndoOffer.h"

#include "ports/RunLoop.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace zeph {

UndoOffer::UndoOffer(RunLoop &runLoop) : m_runLoop(runLoop) {}

UndoOffer::~UndoOffer() {
    changed = nullptr;
    settle();
}

void UndoOffer::offer(const QString &title, std::function<void()> takeBack,
                      std::function<void()> settle) {
    if (m_text && m_settle) {
        std::exchange(m_settle, nullptr)();
    }
    m_text = u"Removed %1."_s.arg(title);
    m_takeBack = std::move(takeBack);
    m_settle = std::move(settle);
    m_runLoop.after(time, m_owner.whileAlive([this, offer = ++m_offers] {
        if (offer == m_offers) {
            this->settle();
        }
    }));
    if (changed) {
        changed();
    }
}

void UndoOffer::takeBack() {
    end(std::exchange(m_takeBack, nullptr));
}

void UndoOffer::settle() {
    end(std::exchange(m_settle, nullptr));
}

/// The offer is over before its action runs, which may make the next one.
void UndoOffer::end(std::function<void()> action) {
    if (!std::exchange(m_text, std::nullopt)) {
        return;
    }
    m_takeBack = nullptr;
    m_settle = nullptr;
    ++m_offers;
    const auto tell = m_owner.whileAlive([this] {
        if (changed) {
            changed();
        }
    });
    if (action) {
        action(); // which may end the window that this belongs to
    }
    tell();
}

} // namespace zeph
