// SPDX-License-Identifier: MIT
#include "ui/pages/EveryPageFixture.h"

#include <QApplication>

#include <malloc.h>

namespace zeph {

/// The window as it is kept over months.
class OpenedOftenTest : public EveryPageFixture {
protected:
    /// Bytes on the heap that showing and closing adds, beyond what the toolkit keeps of any
    /// window.
    qint64 growth(QWidget &shown, int times) {
        const auto onHeap = [] { return static_cast<qint64>(mallinfo2().uordblks); };
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
    constexpr int often = 500;
    constexpr int untilCachesAreFull = 20;
    constexpr qint64 flat = qint64{48} << 10;
    open();
    for (const SettingsPages::Page &page : pages.pages()) {
        page.show(); // so that every pane is there
        settle();
    }
    pages.pages().front().show();
    QWidget empty;
    empty.setAttribute(Qt::WA_QuitOnClose, false);
    growth(empty, untilCachesAreFull);
    const qint64 own = growth(empty, often);
    growth(*window, untilCachesAreFull);
    EXPECT_LT(growth(*window, often), own + flat);
}

} // namespace zeph
