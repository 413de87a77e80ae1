// SPDX-License-Identifier: MIT
#include "adapters/desktop/SettingsPages.h"

#include "adapters/bus/PrivateBus.h"
#include "adapters/desktop/ProgramFolder.h"

#include <QUrl>

#include <csignal>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

class SettingsPagesTest : public testing::Test {
protected:
    void installProgram(const QString &name) {
        folder.install(name, "echo \"$0 $*\" >\"$FOLDER/tmp\"; /bin/mv \"$FOLDER/tmp\" "
                             "\"$FOLDER/called\"");
    }
    void installPage(const QString &evidence) { folder.write(u"share/"_s + evidence, "x"); }

    SettingsPages pagesOf(const QString &desktop) const {
        return {desktop, {folder.path(u"nowhere"_s), folder.path(u"share"_s)}};
    }
    static QUrl link(const QString &page) { return QUrl(u"zeph-settings:"_s + page); }

    /// What opening the page calls.
    QString opened(const QString &desktop, const QString &page) {
        SettingsPages pages = pagesOf(desktop);
        QFile::remove(folder.path(u"called"_s));
        EXPECT_TRUE(pages.canOpen(link(page)));
        pages.open(link(page));
        EXPECT_TRUE(eventually([&] { return QFile::exists(folder.path(u"called"_s)); }));
        return QString::fromUtf8(folder.read(u"called"_s)).trimmed().section(u'/', -1);
    }

    ProgramFolder folder;
};

} // namespace

TEST_F(SettingsPagesTest, areThoseOfGnome) {
    installProgram(u"gnome-control-center"_s);
    installPage(u"applications/gnome-location-panel.desktop"_s);
    installPage(u"applications/gnome-online-accounts-panel.desktop"_s);
    for (const QString &desktop : {u"GNOME"_s, u"ubuntu:GNOME"_s, u"gnome"_s}) {
        EXPECT_EQ(opened(desktop, u"location"_s), u"gnome-control-center location"_s);
        EXPECT_EQ(opened(desktop, u"calendar"_s), u"gnome-control-center online-accounts"_s);
        EXPECT_EQ(opened(desktop, u"reminders"_s), u"gnome-control-center online-accounts"_s);
        EXPECT_EQ(opened(desktop, u"privacy"_s), u"gnome-control-center location"_s);
        EXPECT_FALSE(pagesOf(desktop).canOpen(link(u"accessibility"_s)));
    }
}

TEST_F(SettingsPagesTest, ofANewerGnomeAreTogether) {
    installProgram(u"gnome-control-center"_s);
    installPage(u"applications/gnome-privacy-panel.desktop"_s);
    EXPECT_EQ(opened(u"GNOME"_s, u"location"_s), u"gnome-control-center privacy"_s);
    EXPECT_EQ(opened(u"GNOME"_s, u"privacy"_s), u"gnome-control-center privacy"_s);
    EXPECT_FALSE(pagesOf(u"GNOME"_s).canOpen(link(u"calendar"_s)));
}

TEST_F(SettingsPagesTest, areThoseOfTheFirstDesktopThatHasThem) {
    installProgram(u"gnome-control-center"_s);
    installPage(u"applications/gnome-location-panel.desktop"_s);
    EXPECT_EQ(opened(u"Budgie:GNOME"_s, u"location"_s), u"gnome-control-center location"_s);
    installProgram(u"budgie-control-center"_s);
    installPage(u"applications/budgie-location-panel.desktop"_s);
    EXPECT_EQ(opened(u"Budgie:GNOME"_s, u"location"_s), u"budgie-control-center location"_s);
}

TEST_F(SettingsPagesTest, areThoseOfCinnamonAndPlasma) {
    installProgram(u"cinnamon-settings"_s);
    installPage(u"cinnamon/cinnamon-settings/modules/cs_privacy.py"_s);
    installPage(u"cinnamon/cinnamon-settings/modules/cs_online_accounts.py"_s);
    EXPECT_EQ(opened(u"X-Cinnamon"_s, u"privacy"_s), u"cinnamon-settings privacy"_s);
    EXPECT_EQ(opened(u"X-Cinnamon"_s, u"calendar"_s), u"cinnamon-settings online-accounts"_s);
    EXPECT_FALSE(pagesOf(u"X-Cinnamon"_s).canOpen(link(u"location"_s)));
    installPage(u"applications/kcm_recentFiles.desktop"_s);
    installProgram(u"systemsettings5"_s);
    EXPECT_EQ(opened(u"KDE"_s, u"privacy"_s), u"systemsettings5 kcm_recentFiles"_s);
    installProgram(u"systemsettings"_s);
    EXPECT_EQ(opened(u"KDE"_s, u"privacy"_s), u"systemsettings kcm_recentFiles"_s);
}

TEST_F(SettingsPagesTest, areNotThereUntilBothTheProgramAndThePageAre) {
    EXPECT_FALSE(pagesOf(u"GNOME"_s).canOpen(link(u"location"_s)));
    installProgram(u"gnome-control-center"_s);
    EXPECT_FALSE(pagesOf(u"GNOME"_s).canOpen(link(u"location"_s)));
    installPage(u"applications/gnome-location-panel.desktop"_s);
    EXPECT_TRUE(pagesOf(u"GNOME"_s).canOpen(link(u"location"_s)));
    QFile::remove(folder.path(u"bin/gnome-control-center"_s));
    EXPECT_FALSE(pagesOf(u"GNOME"_s).canOpen(link(u"location"_s)));
}

TEST_F(SettingsPagesTest, areNoneOfAnyOtherDesktopOrLink) {
    installProgram(u"gnome-control-center"_s);
    installPage(u"applications/gnome-location-panel.desktop"_s);
    for (const QString &desktop : {u""_s, u"XFCE"_s, u"sway"_s, u"MATE"_s}) {
        EXPECT_FALSE(pagesOf(desktop).canOpen(link(u"location"_s)));
    }
    for (const QString &other : {u"zeph-settings:"_s, u"zeph-settings:no"_s, u"https:location"_s,
                                 u"location"_s, u"zeph-settings:location;rm"_s}) {
        EXPECT_FALSE(pagesOf(u"GNOME"_s).canOpen(QUrl(other))) << other.toStdString();
    }
}

TEST_F(SettingsPagesTest, whichAreMissingOpenNothing) {
    installProgram(u"gnome-control-center"_s);
    pagesOf(u"GNOME"_s).open(link(u"location"_s));
    EXPECT_FALSE(eventually([&] { return QFile::exists(folder.path(u"called"_s)); }, 100));
}

TEST_F(SettingsPagesTest, areNotWaitedFor) {
    folder.install(u"gnome-control-center"_s,
                   "echo $$ >\"$FOLDER/tmp\"; /bin/mv \"$FOLDER/tmp\" \"$FOLDER/called\"; "
                   "exec /bin/sleep 60");
    installPage(u"applications/gnome-location-panel.desktop"_s);
    const QDeadlineTimer soon(30'000);
    pagesOf(u"GNOME"_s).open(link(u"location"_s));
    EXPECT_TRUE(eventually([&] { return QFile::exists(folder.path(u"called"_s)); }));
    EXPECT_FALSE(soon.hasExpired());
    const pid_t page = folder.read(u"called"_s).trimmed().toInt();
    ASSERT_GT(page, 1);
    EXPECT_EQ(::kill(page, SIGKILL), 0);
}

} // namespace zeph
