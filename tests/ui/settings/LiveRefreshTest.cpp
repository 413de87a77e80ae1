// SPDX-License-Identifier: MIT
#include "ui/settings/LiveRefresh.h"

#include "support/ManualRunLoop.h"

#include <QWidget>

#include <gtest/gtest.h>

namespace zeph::ui {

class LiveRefreshTest : public testing::Test {
protected:
    ManualClock clock;
    ManualRunLoop loop{clock};
    ChangePublisher changes;
    QWidget view;
    int refreshes = 0;
    LiveRefresh *live = makeRefresh();

private:
    LiveRefresh *makeRefresh() {
        auto *made = new LiveRefresh(view, loop, [this] { ++refreshes; });
        made->follow(changes);
        return made;
    }
};

TEST_F(LiveRefreshTest, refreshesOnceForAllChangesOfATurn) {
    view.show();
    refreshes = 0;
    changes.send();
    changes.send();
    live->request();
    EXPECT_EQ(refreshes, 0); // what is told of is yet to happen
    loop.drain();
    EXPECT_EQ(refreshes, 1);
    changes.send();
    loop.drain();
    EXPECT_EQ(refreshes, 2);
}

TEST_F(LiveRefreshTest, restsWhileTheViewIsHiddenAndCatchesUpWhenItIsShown) {
    changes.send();
    loop.drain();
    EXPECT_EQ(refreshes, 0);
    view.show();
    EXPECT_EQ(refreshes, 1);
    view.hide();
    changes.send();
    loop.drain();
    EXPECT_EQ(refreshes, 1);
    view.show();
    EXPECT_EQ(refreshes, 2);
}

TEST_F(LiveRefreshTest, aViewHiddenMeanwhileIsNotRefreshed) {
    view.show();
    refreshes = 0;
    changes.send();
    view.hide();
    loop.drain();
    EXPECT_EQ(refreshes, 0);
}

TEST_F(LiveRefreshTest, endsWithTheView) {
    auto *brief = new QWidget;
    int count = 0;
    auto *following = new LiveRefresh(*brief, loop, [&count] { ++count; });
    following->follow(changes);
    const auto handler = following->handler();
    brief->show();
    count = 0;
    changes.send();
    delete brief;
    changes.send();
    handler();
    loop.drain();
    EXPECT_EQ(count, 0);
}

} // namespace zeph::ui
