// SPDX-License-Identifier: MIT
#include "settings/UndoOffer.h"

#include "support/ManualRunLoop.h"
#include "support/QtPrinters.h"

#include <QStringList>

#include <gmock/gmock.h>

#include <memory>

using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::IsEmpty;

namespace zeph {

namespace {

class UndoOfferTest : public testing::Test {
protected:
    UndoOfferTest() {
        undo->changed = [this] { ++changes; };
    }

    void offer(const QString &title) {
        undo->offer(
            title, [this, title] { events << u"back "_s + title; },
            [this, title] { events << u"settled "_s + title; });
    }

    ManualClock clock;
    ManualRunLoop loop{clock};
    QStringList events; // before the offer, which settles at its end
    int changes = 0;
    std::unique_ptr<UndoOffer> undo = std::make_unique<UndoOffer>(loop);
};

TEST_F(UndoOfferTest, standsForEightSecondsAndThenSettles) {
    offer(u"Rent"_s);
    EXPECT_EQ(undo->text(), u"Removed Rent."_s);
    loop.advance(7.9);
    EXPECT_TRUE(undo->text());
    EXPECT_THAT(events, IsEmpty());
    loop.advance(0.1);
    EXPECT_EQ(undo->text(), std::nullopt);
    EXPECT_THAT(events, ElementsAre(u"settled Rent"_s));
    EXPECT_EQ(changes, 2);
}

TEST_F(UndoOfferTest, takenBackIsNotSettledLater) {
    offer(u"Rent"_s);
    undo->takeBack();
    EXPECT_EQ(undo->text(), std::nullopt);
    loop.advance(20);
    undo->takeBack();
    undo.reset();
    EXPECT_THAT(events, ElementsAre(u"back Rent"_s));
}

TEST_F(UndoOfferTest, aFurtherOneSettlesTheOneBeforeAndHasItsWholeTime) {
    offer(u"Rent"_s);
    loop.advance(5);
    offer(u"Trip"_s);
    EXPECT_THAT(events, ElementsAre(u"settled Rent"_s));
    EXPECT_EQ(undo->text(), u"Removed Trip."_s);
    loop.advance(5);
    EXPECT_EQ(undo->text(), u"Removed Trip."_s) << "the end of the first one's time is not its";
    undo->takeBack();
    EXPECT_THAT(events, ElementsAre(u"settled Rent"_s, u"back Trip"_s));
}

TEST_F(UndoOfferTest, settlesAtItsEndUntold) {
    offer(u"Rent"_s);
    changes = 0;
    undo.reset();
    EXPECT_THAT(events, ElementsAre(u"settled Rent"_s));
    EXPECT_EQ(changes, 0);
    loop.advance(20);
    EXPECT_THAT(events, ElementsAre(u"settled Rent"_s));
}

TEST_F(UndoOfferTest, mayEndByWhatItTakesBack) {
    undo->offer(u"Rent"_s, [this] { undo.reset(); });
    changes = 0;
    undo->takeBack();
    EXPECT_EQ(undo, nullptr);
    EXPECT_EQ(changes, 0);
}

TEST_F(UndoOfferTest, mayBeMadeAnewByWhatItSettles) {
    undo->offer(u"Rent"_s, {}, [this] { offer(u"Trip"_s); });
    undo->settle();
    EXPECT_EQ(undo->text(), u"Removed Trip."_s);
    EXPECT_THAT(events, IsEmpty());
}

TEST_F(UndoOfferTest, withoutOneNothingHappens) {
    undo->takeBack();
    undo->settle();
    EXPECT_THAT(events, IsEmpty());
    EXPECT_EQ(changes, 0);
}

} // namespace

} // namespace zeph
