// SPDX-License-Identifier: MIT
#include "adapters/session/sway/SwayMessages.h"

#include <gtest/gtest.h>

namespace zeph {

namespace {

void feed(SwayMessageReader &reader, const QByteArray &bytes) {
    reader.add(bytes.constData(), bytes.size());
}

QByteArray event() {
    QByteArray bytes = swayRequest(SwayRequest::workspaces, "{\"change\":\"focus\"}");
    bytes[13] = static_cast<char>(0x80); // the highest bit of the kind
    return bytes;
}

} // namespace

TEST(SwayMessagesTest, aRequestIsTheLettersTheLengthTheKindAndThePayload) {
    EXPECT_EQ(swayRequest(SwayRequest::subscribe, "[\"window\"]"),
              QByteArray("i3-ipc\x0a\0\0\0\x02\0\0\0[\"window\"]", 24));
}

TEST(SwayMessagesTest, whatIsSentCanBeRead) {
    SwayMessageReader reader;
    feed(reader, swayRequest(SwayRequest::tree, "{}") + swayRequest(SwayRequest::workspaces, ""));
    EXPECT_EQ(reader.next(), (SwayMessage{4, false, "{}"}));
    EXPECT_EQ(reader.next(), (SwayMessage{1, false, QByteArray("")}));
    EXPECT_EQ(reader.next(), std::nullopt);
    EXPECT_FALSE(reader.isBroken());
}

TEST(SwayMessagesTest, anEventIsToldFromAnAnswer) {
    SwayMessageReader reader;
    feed(reader, event());
    EXPECT_EQ(reader.next(), (SwayMessage{1, true, "{\"change\":\"focus\"}"}));
}

TEST(SwayMessagesTest, aMessageMayComeByteByByte) {
    SwayMessageReader reader;
    const QByteArray bytes = swayRequest(SwayRequest::tree, "{\"a\":1}");
    for (qsizetype i = 0; i < bytes.size(); ++i) {
        EXPECT_EQ(reader.next(), std::nullopt) << i;
        reader.add(bytes.constData() + i, 1);
    }
    EXPECT_EQ(reader.next(), (SwayMessage{4, false, "{\"a\":1}"}));
}

TEST(SwayMessagesTest, nothingIsReadAfterWhatIsNoMessage) {
    SwayMessageReader reader;
    feed(reader, "HTTP/1.1 200 OK\r\n\r\n");
    EXPECT_EQ(reader.next(), std::nullopt);
    EXPECT_TRUE(reader.isBroken());
    feed(reader, swayRequest(SwayRequest::tree, "{}"));
    EXPECT_EQ(reader.next(), std::nullopt);
}

TEST(SwayMessagesTest, aLengthBeyondAllMeasureIsRefusedBeforeItIsWaitedFor) {
    SwayMessageReader reader;
    QByteArray bytes = swayRequest(SwayRequest::tree, "");
    bytes[9] = 0x7f; // the highest byte of the length
    feed(reader, bytes);
    EXPECT_EQ(reader.next(), std::nullopt);
    EXPECT_TRUE(reader.isBroken());
}

} // namespace zeph
