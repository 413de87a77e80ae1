// SPDX-License-Identifier: MIT
#include "adapters/session/identity/Edid.h"

#include "EdidBlock.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace zeph {
namespace {

TEST(Edid, saysMakerModelAndSerialNumber) {
    EXPECT_EQ(readEdid(edidBlock("Panel 24", "SN-0042")),
              (EdidWords{u"ACM"_s, u"Panel 24"_s, u"SN-0042"_s}));
}

TEST(Edid, takesTheNumberWhereThereIsNoSerialText) {
    QByteArray block = edidBlock("Panel 24", {});
    EXPECT_EQ(readEdid(block).serialNumber, QString());
    block.replace(12, 4, QByteArray("\x39\x30\0\0", 4));
    EXPECT_EQ(readEdid(block).serialNumber, u"12345"_s);
}

TEST(Edid, aTextEndsAtItsLineAndHasNoControlCharacters) {
    EXPECT_EQ(readEdid(edidBlock("A\x07"
                                 "B\n left",
                                 "x"))
                  .model,
              u"A-B"_s);
    EXPECT_EQ(readEdid(edidBlock("thirteenchars", "x")).model, u"thirteenchars"_s);
}

TEST(Edid, aBlockThatIsNoneSaysNothing) {
    const QByteArray block = edidBlock("Panel 24", "1");
    EXPECT_EQ(readEdid({}), EdidWords());
    EXPECT_EQ(readEdid(block.left(127)), EdidWords());
    EXPECT_EQ(readEdid(QByteArray(128, '\0')), EdidWords());
    QByteArray noMaker = block;
    noMaker.replace(8, 2, QByteArray("\x7F\xFF", 2));
    EXPECT_EQ(readEdid(noMaker).manufacturer, QString());
}

} // namespace
} // namespace zeph
