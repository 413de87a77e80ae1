// SPDX-License-Identifier: MIT
#include "adapters/bus/PrivateBus.h"
#include "support/XvfbSession.h"

#include <QProcess>
#include <QStringList>

#include <gmock/gmock.h>

namespace zeph {

using namespace Qt::StringLiterals;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsSupersetOf;

namespace {

/// A desktop with a bus for screen readers, on which one of our windows shows.
class AccessibilityWalk : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(session.isRunning());
        session.setVariable("DBUS_SESSION_BUS_ADDRESS", bus.address().toUtf8());
        session.setVariable("XDG_RUNTIME_DIR", folder.path().toUtf8());
        session.setVariable("GSETTINGS_BACKEND", "memory");
        session.setVariable("QT_LINUX_ACCESSIBILITY_ALWAYS_ON", "1");
        session.setVariable("QT_QPA_PLATFORM", "xcb");
        ASSERT_TRUE(session.startOpenbox());
        ASSERT_GT(session.start({u"/usr/libexec/at-spi-bus-launcher"_s, u"--launch-immediately"_s}),
                  0);
    }

    /// What the walk through that window tells; with "pages" through each of its pages, with
    /// "over" through what keys bring up over the first one.
    QStringList walk(const QString &window, const QString &how = {}) {
        EXPECT_GT(session.start({QStringLiteral(ZEPH_WINDOW_SHOW), window}), 0);
        const QByteArray told = session.run({u"/bin/sh"_s, u"-c"_s,
                                             u"/usr/bin/python3 %1 %2 || true"_s.arg(
                                                 QStringLiteral(ZEPH_ACCESSIBILITY_WALK), how)});
        return QString::fromUtf8(told).split(u'\n', Qt::SkipEmptyParts);
    }

    /// The pages that were walked.
    static QStringList pages(const QStringList &lines) { return linesOf(u"page | "_s, lines); }
    static QStringList faults(const QStringList &lines) { return lines.filter(u"WRONG"_s); }
    static QStringList stops(const QStringList &lines) { return linesOf(u"tab | "_s, lines); }

    /// What stands behind `mark` at the beginning of a line.
    static QStringList linesOf(const QString &mark, const QStringList &lines) {
        QStringList found;
        for (const QString &line : lines) {
            if (line.startsWith(mark)) {
                found << line.mid(mark.size());
            }
        }
        return found;
    }

    QTemporaryDir folder;
    PrivateBus bus;
    XvfbSession session;
};

} // namespace

TEST_F(AccessibilityWalk, theWelcomeSaysWhatItIsAndHasOneStop) {
    const QStringList told = walk(u"0"_s);
    EXPECT_EQ(faults(told), QStringList()) << told.join(u'\n').toStdString();
    EXPECT_THAT(told, IsSupersetOf({u"window | Welcome to Tavi"_s,
                                    u"progress bar | Step 1 of 6 | enabled"_s,
                                    u"push button | Continue | focusable enabled"_s}));
    EXPECT_THAT(stops(told), ElementsAre(u"push button | Continue"_s));
}

TEST_F(AccessibilityWalk, aPermissionIsAskedForByButtonsOfTheirOwn) {
    const QStringList told = walk(u"2"_s);
    EXPECT_EQ(faults(told), QStringList()) << told.join(u'\n').toStdString();
    EXPECT_THAT(told, Contains(u"label | Weather & sunrise | enabled"_s));
    EXPECT_THAT(stops(told), ElementsAre(u"push button | Continue"_s, u"push button | Allow"_s,
                                         u"push button | Back"_s));
}

TEST_F(AccessibilityWalk, backgroundsAreOneStopOfWhichOneIsChosen) {
    const QStringList told = walk(u"4"_s);
    EXPECT_EQ(faults(told), QStringList()) << told.join(u'\n').toStdString();
    EXPECT_THAT(told, IsSupersetOf({u"radio button | Solid | focusable checked enabled"_s,
                                    u"radio button | Time of day | focusable enabled"_s,
                                    u"radio button | Transparent | focusable enabled"_s}));
    EXPECT_THAT(stops(told), ElementsAre(u"push button | Continue"_s, u"radio button | Solid"_s,
                                         u"push button | Back"_s));
}

TEST_F(AccessibilityWalk, everyControlOfTheSettingsIsNamedAndReached) {
    const QStringList told = walk(u"settings"_s);
    EXPECT_EQ(faults(told), QStringList()) << told.join(u'\n').toStdString();
    EXPECT_THAT(told, IsSupersetOf({u"check box | Switch | focusable enabled"_s,
                                    u"radio button | Metric | focusable enabled"_s,
                                    u"slider | Slider | focusable enabled"_s,
                                    u"spin button | Stepper | focusable enabled"_s,
                                    u"password text | Secret | focusable enabled"_s,
                                    u"radio button | Midnight | focusable enabled"_s,
                                    u"push button | Remove | focusable enabled"_s,
                                    u"list item | Sun, 2 of 2 | focusable enabled"_s}));
    EXPECT_GT(stops(told).size(), 15);
}

TEST_F(AccessibilityWalk, everyPaneIsNamedAndWalkedToItsEnd) {
    const QStringList told = walk(u"pages"_s, u"pages"_s);
    EXPECT_EQ(faults(told), QStringList()) << told.join(u'\n').toStdString();
    EXPECT_THAT(pages(told),
                ElementsAre(u"general"_s, u"integrations"_s, u"widgets"_s, u"layout"_s,
                            u"permissions"_s, u"about"_s, u"accounts"_s, u"no accounts"_s,
                            u"endpoint"_s, u"new endpoint"_s, u"quote"_s));
}

TEST_F(AccessibilityWalk, whatASearchFindsIsNamedAndReached) {
    const QStringList told = walk(u"pages"_s, u"over"_s);
    EXPECT_EQ(faults(told), QStringList()) << told.join(u'\n').toStdString();
    ASSERT_THAT(pages(told),
                ElementsAre(u"search for clock"_s, u"search for zzzz"_s, u"shortcuts"_s));
    EXPECT_THAT(told, IsSupersetOf({u"found | 24-hour clock | General"_s,
                                    u"says | Nothing found."_s, u"tab | list | Search results"_s}));
    const QStringList said = linesOf(u"says | "_s, told);
    ASSERT_EQ(said.size(), 3);
    EXPECT_THAT(said.constLast().toStdString(), HasSubstr("Ctrl+F: Search the settings"));
    EXPECT_THAT(told,
                IsSupersetOf({u"tab | dialog | Keyboard shortcuts"_s, u"label | Ctrl+F | enabled"_s,
                              u"label | Search the settings | enabled"_s}));
}

TEST_F(AccessibilityWalk, theFormOfEveryServiceIsNamedAndWalkedToItsEnd) {
    const QStringList told = walk(u"forms"_s, u"pages"_s);
    EXPECT_EQ(faults(told), QStringList()) << told.join(u'\n').toStdString();
    EXPECT_THAT(pages(told), IsSupersetOf({u"stripe"_s, u"github"_s, u"rss"_s, u"currency"_s}));
    EXPECT_GE(pages(told).size(), 16);
}

} // namespace zeph
