// SPDX-License-Identifier: MIT
#include "sensing/FocusMonitor.h"

#include "sensing/FocusAssertions.h"
#include "support/FakeFocusFile.h"

#include <gtest/gtest.h>

namespace zeph {

namespace {

class FocusSample : public testing::Test {
protected:
    FocusState sampled(const std::optional<QByteArray> &bytes) {
        file.bytes = bytes;
        monitor.sample();
        return monitor.state();
    }

    FakeFocusFile file;
    FocusMonitor monitor{file};
};

const QByteArray oneRecord = R"({"data":[{"storeAssertionRecords":[{"mode":"work"}]}]})";
const QByteArray noRecord = R"({"data":[{"storeAssertionRecords":[]}]})";

TEST_F(FocusSample, startsUnknownAndReadsNothingUnasked) {
    EXPECT_EQ(monitor.state(), FocusState::unknown);
    EXPECT_EQ(file.readings, 0);
}

TEST_F(FocusSample, ofAFileThatCannotBeReadIsUnknown) {
    EXPECT_EQ(sampled(std::nullopt), FocusState::unknown);
}

TEST_F(FocusSample, withOneRecordIsOnAndWithNoneOff) {
    EXPECT_EQ(sampled(oneRecord), FocusState::on);
    EXPECT_EQ(sampled(noRecord), FocusState::off);
}

TEST_F(FocusSample, readsTheFileAnewEachTime) {
    sampled(oneRecord);
    EXPECT_EQ(sampled(noRecord), FocusState::off);
    EXPECT_EQ(sampled(std::nullopt), FocusState::unknown) << "the earlier state does not stay";
    EXPECT_EQ(file.readings, 3);
}

TEST(FocusAssertions, thatAreNoJsonAreUnknown) {
    for (const char *bytes : {"", " ", "{", "{\"data\":[}", "data", "\xff\xfe{}", "{}}",
                              R"({"data":[{"storeAssertionRecords":[{}]}])"}) {
        EXPECT_EQ(focusStateIn(bytes), FocusState::unknown) << bytes;
    }
    const QByteArray deep = QByteArray(100'000, '[') + QByteArray(100'000, ']');
    EXPECT_EQ(focusStateIn(deep), FocusState::unknown);
}

TEST(FocusAssertions, withAnotherTopLevelThanADictionaryAreUnknown) {
    for (const char *bytes :
         {"[]", R"([{"data":[{"storeAssertionRecords":[{}]}]}])", "1", "null", "\"data\""}) {
        EXPECT_EQ(focusStateIn(bytes), FocusState::unknown) << bytes;
    }
}

TEST(FocusAssertions, withoutDataAreOff) {
    for (const char *bytes : {"{}", R"({"Data":[{"storeAssertionRecords":[{}]}]})",
                              R"({"storeAssertionRecords":[{}]})"}) {
        EXPECT_EQ(focusStateIn(bytes), FocusState::off) << bytes;
    }
}

TEST(FocusAssertions, whoseDataAreNoListOfDictionariesAreOff) {
    for (const char *bytes :
         {R"({"data":null})", R"({"data":{"storeAssertionRecords":[{}]}})", R"({"data":"x"})",
          R"({"data":[1]})", R"({"data":[{"storeAssertionRecords":[{}]},2]})",
          R"({"data":[null,{"storeAssertionRecords":[{}]}]})"}) {
        EXPECT_EQ(focusStateIn(bytes), FocusState::off) << bytes;
    }
}

TEST(FocusAssertions, whoseDataAreEmptyAreOff) {
    EXPECT_EQ(focusStateIn(R"({"data":[]})"), FocusState::off);
}

TEST(FocusAssertions, whoseFirstElementHasNoRecordListAreOff) {
    EXPECT_EQ(focusStateIn(R"({"data":[{}]})"), FocusState::off);
    EXPECT_EQ(focusStateIn(R"({"data":[{},{"storeAssertionRecords":[{}]}]})"), FocusState::off)
        << "only the first counts";
}

TEST(FocusAssertions, whoseRecordsAreNoListOfDictionariesAreOff) {
    for (const char *bytes : {R"({"data":[{"storeAssertionRecords":null}]})",
                              R"({"data":[{"storeAssertionRecords":{"a":{}}}]})",
                              R"({"data":[{"storeAssertionRecords":"on"}]})",
                              R"({"data":[{"storeAssertionRecords":[1]}]})",
                              R"({"data":[{"storeAssertionRecords":[{},true]}]})"}) {
        EXPECT_EQ(focusStateIn(bytes), FocusState::off) << bytes;
    }
}

TEST(FocusAssertions, areOnWhateverTheRecordsAndTheOtherKeysHold) {
    for (const char *bytes : {R"({"data":[{"storeAssertionRecords":[{}]}]})",
                              R"({"header":{"version":1},"data":[{"other":1,
                                  "storeAssertionRecords":[{"until":0},{"until":"x"}]},{}]})"}) {
        EXPECT_EQ(focusStateIn(bytes), FocusState::on) << bytes;
    }
}

} // namespace

} // namespace zeph
