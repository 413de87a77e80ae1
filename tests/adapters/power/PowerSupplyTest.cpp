// SPDX-License-Identifier: MIT
#include "adapters/power/PowerSupply.h"

#include "support/QtPrinters.h"

#include <gtest/gtest.h>

#include <limits>

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

TEST(AttributeNumber, readsWholeDecimalNumbers) {
    EXPECT_EQ(parseAttributeNumber("42\n"), 42);
    EXPECT_EQ(parseAttributeNumber("  -17 \n"), -17);
    EXPECT_EQ(parseAttributeNumber("0"), 0);
    EXPECT_EQ(parseAttributeNumber("9223372036854775807"), std::numeric_limits<qint64>::max());
}

TEST(AttributeNumber, refusesEverythingElse) {
    for (const char *text : {"", "\n", "-", "+5", "--5", "- 5", "5 6", "5%", "0x10", "1.5", "1e3",
                             "five", "9223372036854775808", "99999999999999999999999"}) {
        EXPECT_EQ(parseAttributeNumber(text), std::nullopt) << '"' << text << '"';
    }
    EXPECT_EQ(parseAttributeNumber(QByteArrayView("5\0 6", 4)), std::nullopt);
}

TEST(AttributeText, takesTheFirstLineWithoutItsEdges) {
    EXPECT_EQ(parseAttributeText("  Travel Mouse \nsecond\n"), u"Travel Mouse"_s);
    EXPECT_EQ(parseAttributeText("no end"), u"no end"_s);
}

TEST(AttributeText, isAbsentWhenNothingIsLeft) {
    EXPECT_EQ(parseAttributeText(""), std::nullopt);
    EXPECT_EQ(parseAttributeText(" \t\n"), std::nullopt);
    EXPECT_EQ(parseAttributeText("\nlater"), std::nullopt);
}

TEST(AttributeText, showsWhatCantBeShownAsSpaceOrReplacementCharacter) {
    EXPECT_EQ(parseAttributeText("a\x01"
                                 "b"),
              u"a b"_s);
    EXPECT_EQ(parseAttributeText("caf\xE9"), QString::fromUtf8("caf\uFFFD"));
}

TEST(AttributeText, cutsWhatIsTooLongForAName) {
    EXPECT_EQ(parseAttributeText(QByteArray(5000, 'x'))->size(), 128);
}

TEST(PowerSupplyAmounts, areEnergyWhereTheVoltageIsKnown) {
    const AttributeReader read = [](const QString &name) -> QByteArray {
        if (name == u"charge_now"_s) {
            return "2000000";
        }
        if (name == u"charge_full"_s) {
            return "4000000";
        }
        if (name == u"current_now"_s) {
            return "-1000000";
        }
        return name == u"voltage_now"_s ? "11000000" : "";
    };
    PowerSupply battery;
    battery.kind = SupplyKind::battery;
    readMachineSupply(read, battery);
    EXPECT_TRUE(battery.amounts.isEnergy);
    EXPECT_EQ(battery.amounts.now, 22'000'000);
    EXPECT_EQ(battery.amounts.full, 44'000'000);
    EXPECT_EQ(battery.amounts.rate, 11'000'000) << "the sign only tells the direction";
    EXPECT_EQ(battery.amounts.design, std::nullopt);
}

TEST(PowerSupplyAmounts, areAbsentWhereTheyCantBeTrue) {
    const AttributeReader read = [](const QString &name) -> QByteArray {
        if (name == u"energy_now"_s) {
            return "-5";
        }
        if (name == u"energy_full"_s) {
            return "0";
        }
        return name == u"energy_full_design"_s ? "9223372036854775807" : "garbage";
    };
    PowerSupply battery;
    battery.kind = SupplyKind::battery;
    readMachineSupply(read, battery);
    EXPECT_EQ(battery.amounts, BatteryAmounts{});
    EXPECT_EQ(battery.capacity, std::nullopt);
    EXPECT_EQ(battery.status, ChargeStatus::unknown);
    EXPECT_TRUE(battery.isPresent) << "no driver without the attribute means an empty bay";
}

} // namespace

} // namespace zeph
