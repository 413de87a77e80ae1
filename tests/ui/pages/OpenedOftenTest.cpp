// SPDX-License-Identifier: MIT
#include "ui/pages/EveryPageFixture.h"

#include <QApplication>

#include <malloc.h>

#include <algorithm>
#include <array>

namespace zeph {

/// The window as it is kept over months.
class OpenedOftenTest : public EveryPageFixture {
protected:
    /// Bytes that the program has allocated, large ones for themselves, such as pictures, included.
    static qint64 onHeap() {
        const auto heap = mallinfo2();
        return static_cast<qint64>(heap.uordblks + heap.hblkhd);
    }

    /// Bytes that showing and closing adds, what the toolkit keeps of any window included.
    qint64 growth(QWidget &shown, int times) {
        const qint64 before = onHeap();
        for (int time = 0; time < times; ++time) {
            shown.show();
            QApplication::processEvents();
            shown.grab();
            shown.close();
            loop.drain();
            QApplication::processEvents();
        }
        return onHeap() - before;
    }
};

TEST_F(OpenedOftenTest, fiveHundredTimesTakesNoMoreMemoryThanAnEmptyWindow) {
    constexpr int aRound = 100;
    constexpr qint64 flat = qint64{8} << 10; // in a round
    open();
    for (const SettingsPages::Page &page : pages.pages()) {
        page.show(); // so that every pane is there
        settle();
    }
    pages.pages().front().show();
    QWidget empty;
    empty.setAttribute(Qt::WA_QuitOnClose, false);
    growth(empty, aRound / 5); // until caches are full
    const qint64 own = growth(empty, aRound);
    growth(*window, aRound / 5);
    std::array<qint64, 5> rounds{};
    for (qint64 &round : rounds) {
        round = growth(*window, aRound);
    }
    // Now and then a cache is filled or emptied.
    std::sort(rounds.begin(), rounds.end());
    EXPECT_LT(rounds[rounds.size() / 2], own + flat) << testing::PrintToString(rounds);
}

} // namespace zeph
