// SPDX-License-Identifier: MIT
#include "host/UpdateWords.h"

#include "ports/UpdateFramework.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

using Phase = UpdateStatus::Phase;
using Action = UpdateWords::Action;

QString detailAt(Phase phase, int progress = -1) {
    return updateWords({phase, u"2.0"_s, u"It broke."_s, progress}).detail;
}

Action actionAt(Phase phase) {
    return updateWords({.phase = phase}).action;
}

} // namespace

TEST(UpdateWords, offerTheSearchAtFirst) {
    EXPECT_EQ(updateWords({}),
              (UpdateWords{u"Check for a newer version and install it in place — no reinstall."_s,
                           u"Check for updates"_s, Action::check}));
}

TEST(UpdateWords, tellHowFarTheSearchIs) {
    EXPECT_EQ(detailAt(Phase::checking), u"Looking for a newer version…"_s);
    EXPECT_EQ(detailAt(Phase::checking, 0), u"Looking for a newer version · 0%"_s);
    EXPECT_EQ(detailAt(Phase::checking, 40), u"Looking for a newer version · 40%"_s);
    EXPECT_EQ(detailAt(Phase::checking, 101), u"Looking for a newer version · 100%"_s);
}

TEST(UpdateWords, tellTheVersionThatIsThere) {
    EXPECT_EQ(updateWords({.phase = Phase::available, .version = u"2.0"_s}),
              (UpdateWords{u"Version 2.0 is ready to install."_s, u"Install"_s, Action::install}));
}

TEST(UpdateWords, tellHowFarTheInstallationIs) {
    EXPECT_EQ(detailAt(Phase::installing), u"Installing version 2.0…"_s);
    EXPECT_EQ(detailAt(Phase::installing, 7), u"Installing version 2.0 · 7%"_s);
}

TEST(UpdateWords, tellHowItEnded) {
    EXPECT_EQ(detailAt(Phase::upToDate), u"Tavi is up to date."_s);
    EXPECT_EQ(detailAt(Phase::installed),
              u"Version 2.0 is installed. You will see it from the next start on."_s);
    EXPECT_EQ(detailAt(Phase::failed), u"It broke."_s);
    EXPECT_EQ(detailAt(Phase::refused),
              u"Version 2.0 was not allowed to be installed. Nothing has changed."_s);
}

TEST(UpdateWords, sayWhyNobodyCanBeAsked) {
    EXPECT_EQ(detailAt(Phase::notPackaged),
              u"This Tavi was started from a build, so no package can replace it. Build it anew to "
              u"update it."_s);
    EXPECT_EQ(detailAt(Phase::sandboxed),
              u"Tavi runs in a sandbox here. The store that it came from brings newer versions."_s);
    EXPECT_EQ(detailAt(Phase::noService),
              u"There is no PackageKit on this computer to ask. Tavi is updated together with your "
              u"other software."_s);
}

TEST(UpdateWords, offerWhatCanBeDone) {
    for (const Phase phase : {Phase::idle, Phase::upToDate, Phase::noService, Phase::failed}) {
        EXPECT_EQ(actionAt(phase), Action::check);
    }
    for (const Phase phase : {Phase::checking, Phase::installing}) {
        EXPECT_EQ(actionAt(phase), Action::cancel);
        EXPECT_EQ(updateWords({.phase = phase}).button, u"Cancel"_s);
    }
    for (const Phase phase : {Phase::available, Phase::refused}) {
        EXPECT_EQ(actionAt(phase), Action::install);
        EXPECT_EQ(updateWords({.phase = phase}).button, u"Install"_s);
    }
    for (const Phase phase : {Phase::installed, Phase::notPackaged, Phase::sandboxed}) {
        EXPECT_EQ(actionAt(phase), Action::none);
        EXPECT_EQ(updateWords({.phase = phase}).button, u"Check for updates"_s);
    }
    EXPECT_EQ(updateWords({.phase = Phase::failed}).button, u"Try again"_s);
}

} // namespace zeph
