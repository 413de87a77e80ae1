// SPDX-License-Identifier: MIT
#include "FakeNemo.h"

#include "support/QtPrinters.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

class NemoSettingsTest : public testing::Test {
protected:
    /// Those of a run; the next one knows what is in the defaults alone.
    NemoSettings run() { return nemo.settings(defaults); }

    FakeUserDefaults defaults;
    FakeNemo nemo;
};

} // namespace

TEST_F(NemoSettingsTest, weAreAddedToTheOthersAndTakenOutAgain) {
    nemo.handlers() = u"['conky', \"it's\"]"_s;
    EXPECT_EQ(run().getAlong(), NemoOutcome::done);
    EXPECT_EQ(nemo.handlers(), u"['conky', \"it's\", 'tavi']"_s);
    nemo.handlers() = u"['tavi', 'other']"_s;
    EXPECT_EQ(run().giveBack(), NemoOutcome::done);
    EXPECT_EQ(nemo.handlers(), u"['other']"_s) << "what others wrote meanwhile stays";
    EXPECT_FALSE(run().keepsAnything());
}

TEST_F(NemoSettingsTest, anEmptyListBecomesEmptyAgain) {
    nemo.handlers() = u"@as []"_s;
    EXPECT_EQ(run().getAlong(), NemoOutcome::done);
    EXPECT_EQ(nemo.handlers(), u"['tavi']"_s);
    EXPECT_EQ(run().giveBack(), NemoOutcome::done);
    EXPECT_EQ(nemo.handlers(), u"@as []"_s);
}

TEST_F(NemoSettingsTest, whatTheUserAddedStays) {
    nemo.handlers() = u"['conky', 'tavi']"_s;
    EXPECT_EQ(run().getAlong(), NemoOutcome::nothingToDo);
    EXPECT_EQ(run().giveBack(), NemoOutcome::nothingToDo);
    EXPECT_TRUE(nemo.written.isEmpty());
    EXPECT_EQ(defaults.writes, 0);
}

TEST_F(NemoSettingsTest, whatTheUserTookOutIsNotWrittenAgain) {
    run().getAlong();
    nemo.handlers() = u"['conky']"_s;
    nemo.written.clear();
    EXPECT_EQ(run().giveBack(), NemoOutcome::nothingToDo);
    EXPECT_TRUE(nemo.written.isEmpty());
    EXPECT_FALSE(run().keepsAnything());
}

TEST_F(NemoSettingsTest, aListThatNobodyUnderstandsIsLeftAlone) {
    nemo.handlers() = u"<unknown>"_s;
    EXPECT_EQ(run().getAlong(), NemoOutcome::refused);
    EXPECT_EQ(nemo.handlers(), u"<unknown>"_s);
    EXPECT_FALSE(run().keepsAnything());
}

TEST_F(NemoSettingsTest, aKilledRunOfOursIsTakenOutByTheNextOne) {
    run().getAlong();
    EXPECT_EQ(run().getAlong(), NemoOutcome::nothingToDo);
    EXPECT_EQ(run().giveBack(), NemoOutcome::done);
    EXPECT_EQ(nemo.handlers(), u"['conky']"_s);
}

TEST_F(NemoSettingsTest, nothingIsKeptOfWhatCouldNotBeWritten) {
    nemo.isWritable = false;
    EXPECT_EQ(run().getAlong(), NemoOutcome::refused);
    EXPECT_EQ(run().changeLayout(), NemoOutcome::refused);
    EXPECT_FALSE(run().keepsAnything());
    nemo.values.clear();
    EXPECT_EQ(run().getAlong(), NemoOutcome::unavailable);
    EXPECT_EQ(run().changeLayout(), NemoOutcome::unavailable);
    EXPECT_FALSE(run().keepsAnything());
    nemo.isInstalled = false;
    EXPECT_EQ(run().getAlong(), NemoOutcome::unavailable);
    EXPECT_FALSE(run().keepsAnything());
}

TEST_F(NemoSettingsTest, theLayoutIsWrittenInOtherWordsAndBack) {
    EXPECT_EQ(run().changeLayout(), NemoOutcome::done);
    EXPECT_EQ(nemo.layout(), kOther);
    EXPECT_EQ(run().giveLayoutBack(), NemoOutcome::done);
    EXPECT_EQ(nemo.layout(), kUsual);
    EXPECT_EQ(nemo.written,
              (QStringList{u"desktop-layout "_s + kOther, u"desktop-layout "_s + kUsual}));
    EXPECT_FALSE(run().keepsAnything());
}

TEST_F(NemoSettingsTest, theWayBackIsKeptBeforeEachWrite) {
    int writes = 0;
    nemo.beforeWrite = [&] {
        ++writes;
        EXPECT_TRUE(run().keepsAnything());
    };
    run().changeLayout();
    run().giveLayoutBack();
    run().getAlong();
    run().giveBack();
    EXPECT_EQ(writes, 4);
}

TEST_F(NemoSettingsTest, aRunKilledBetweenTheTwoWritesIsMendedByTheNextOne) {
    nemo.layout() = u"'true::true'"_s;
    run().changeLayout();
    EXPECT_EQ(run().giveBack(), NemoOutcome::done);
    EXPECT_EQ(nemo.layout(), u"'true::true'"_s);

    run().changeLayout();
    EXPECT_EQ(run().changeLayout(), NemoOutcome::done);
    EXPECT_EQ(run().giveLayoutBack(), NemoOutcome::done);
    EXPECT_EQ(nemo.layout(), u"'true::true'"_s) << "the other words were not taken for the usual";
}

TEST_F(NemoSettingsTest, hiddenIconsStayHidden) {
    for (const auto &layout : {u"'false::false'"_s, u"''"_s, u"'something'"_s}) {
        nemo.layout() = layout;
        EXPECT_EQ(run().changeLayout(), NemoOutcome::nothingToDo);
        EXPECT_EQ(nemo.layout(), layout);
    }
    EXPECT_EQ(defaults.writes, 0);
}

TEST_F(NemoSettingsTest, aLayoutThatTheUserChoseMeanwhileWins) {
    run().changeLayout();
    nemo.layout() = u"'false::false'"_s;
    EXPECT_EQ(run().giveLayoutBack(), NemoOutcome::nothingToDo);
    EXPECT_EQ(nemo.layout(), u"'false::false'"_s);
    EXPECT_FALSE(run().keepsAnything());
}

TEST_F(NemoSettingsTest, whatIsNotTakenBackIsStillKept) {
    run().getAlong();
    run().changeLayout();
    nemo.isWritable = false;
    EXPECT_EQ(run().giveBack(), NemoOutcome::refused);
    nemo.isInstalled = false;
    EXPECT_EQ(run().giveBack(), NemoOutcome::unavailable);
    nemo.isWritable = true;
    nemo.isInstalled = true;
    EXPECT_EQ(run().giveBack(), NemoOutcome::done);
    EXPECT_EQ(nemo.layout(), kUsual);
    EXPECT_EQ(nemo.handlers(), u"['conky']"_s);
}

TEST_F(NemoSettingsTest, whatTheToolTookAndDidNotStoreIsStillKept) {
    run().getAlong();
    run().changeLayout();
    nemo.isStored = false;
    EXPECT_EQ(run().giveBack(), NemoOutcome::refused);
    nemo.isStored = true;
    EXPECT_EQ(run().giveBack(), NemoOutcome::done);
    EXPECT_EQ(nemo.layout(), kUsual);
    EXPECT_EQ(nemo.handlers(), u"['conky']"_s);
}

TEST_F(NemoSettingsTest, nothingIsChangedWhereTheWayBackCanNotBeKept) {
    defaults.canSave = false;
    EXPECT_EQ(run().getAlong(), NemoOutcome::refused);
    EXPECT_EQ(run().changeLayout(), NemoOutcome::refused);
    EXPECT_TRUE(nemo.written.isEmpty());
    EXPECT_FALSE(run().keepsAnything());
}

TEST_F(NemoSettingsTest, otherWordsThatNobodyKeptTheUsualOnesOfAreGivenBackAsWell) {
    nemo.layout() = kOther;
    EXPECT_EQ(run().changeLayout(), NemoOutcome::done);
    EXPECT_EQ(run().giveLayoutBack(), NemoOutcome::done);
    EXPECT_EQ(nemo.layout(), kUsual);
}

} // namespace zeph
