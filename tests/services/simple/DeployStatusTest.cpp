// SPDX-License-Identifier: MIT
#include "services/simple/DeployStatus.h"

#include "support/QtPrinters.h"

#include <gtest/gtest.h>

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

void expectChip(std::initializer_list<QString> states, const QString &icon, const QString &text) {
    for (const QString &state : states) {
        const IntegrationChip chip = DeployStatus::chip(state);
        EXPECT_EQ(chip.icon, icon) << qPrintable(state);
        EXPECT_EQ(chip.text, text) << qPrintable(state);
    }
}

} // namespace

TEST(DeployStatus, wordsEachKnownState) {
    expectChip({u"READY"_s}, u"checkmark.circle"_s, u"Deployed"_s);
    expectChip({u"ERROR"_s, u"FAILED"_s}, u"xmark.circle"_s, u"Build failed"_s);
    expectChip({u"CANCELED"_s, u"CANCELLED"_s}, u"slash.circle"_s, u"Canceled"_s);
    expectChip({u"BUILDING"_s, u"PROCESSING"_s}, u"clock"_s, u"Building…"_s);
    expectChip({u"QUEUED"_s, u"NEW"_s, u"INITIALIZING"_s, u"ENQUEUED"_s}, u"clock"_s, u"Queued"_s);
}

TEST(DeployStatus, aMissingStateReadsUnknown) {
    expectChip({u""_s, QString()}, u"circle"_s, u"Unknown"_s);
}

TEST(DeployStatus, anUnknownStateReadsInItsOwnWords) {
    expectChip({u"PAUSED"_s}, u"circle"_s, u"Paused"_s);
    expectChip({u"IN REVIEW"_s}, u"circle"_s, u"In Review"_s);
}

} // namespace zeph
