// SPDX-License-Identifier: MIT
#include "adapters/icons/IconStore.h"

#include "adapters/desktop/ProgramFolder.h"
#include "support/QtPrinters.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

class IconStoreTest : public testing::Test {
protected:
    IconStore store(IconStore::Kind kind) const {
        return {kind,
                {m_home.filePath(u"config"_s), m_home.filePath(u"data"_s),
                 QFile::encodeName(m_home.filePath(u"Desktop"_s))}};
    }
    void write(const QString &name, const QByteArray &text = "x") const {
        const QString path = m_home.filePath(name);
        QDir().mkpath(QFileInfo(path).path());
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
    }

    QString room() const { return m_home.path(); }

    ProgramFolder tools;

private:
    QTemporaryDir m_home;
};

} // namespace

TEST_F(IconStoreTest, ofXfdesktopIsItsNewestArrangement) {
    write(u"config/xfce4/desktop/icons.screen0-1264x784.rc"_s,
          "[a]\nrow=1\ncol=1\n[b]\nrow=0\ncol=0\n");
    write(u"config/xfce4/desktop/icons.screen.latest.rc"_s, "[a]\nrow=1\ncol=2\n");
    const auto icons = store(IconStore::Kind::xfdesktop).read();
    EXPECT_EQ(icons.places.size(), 1U);
    EXPECT_EQ(icons.unplaced, 0);
}

TEST_F(IconStoreTest, ofXfdesktopCountsTheFilesBeforeItsFirstArrangement) {
    write(u"Desktop/one"_s);
    write(u"Desktop/.hidden"_s);
    EXPECT_EQ(store(IconStore::Kind::xfdesktop).read().unplaced, 1 + 3);
}

TEST_F(IconStoreTest, ofXfdesktopFollowsItsSettings) {
    write(u"Desktop/one"_s);
    write(
        u"config/xfce4/xfconf/xfce-perchannel-xml/xfce4-desktop.xml"_s,
        R"(<channel><property name="desktop-icons"><property name="style" value="0"/></property></channel>)");
    EXPECT_EQ(store(IconStore::Kind::xfdesktop).read().unplaced, 0);
}

TEST_F(IconStoreTest, ofPcmanfmIsItsFileAndTheFolder) {
    write(u"Desktop/one"_s);
    write(u"Desktop/two"_s);
    write(u"config/pcmanfm/LXDE/desktop-items-0.conf"_s, "[one]\nx=5\ny=5\n");
    const auto icons = store(IconStore::Kind::pcmanfm).read();
    EXPECT_EQ(icons.places.size(), 1U);
    EXPECT_EQ(icons.unplaced, 1);
}

TEST_F(IconStoreTest, ofPcmanfmIsThatOfTheProfileItRunsWith) {
    write(u"Desktop/one"_s);
    write(u"config/pcmanfm/LXDE/desktop-items-0.conf"_s, "[one]\nx=5\ny=5\n");
    write(u"config/pcmanfm/work/desktop-items-0.conf"_s, "[one]\nx=700\ny=5\n");
    IconStore running = store(IconStore::Kind::pcmanfm);
    running.profile = [] { return u"work"_s; };
    EXPECT_EQ(running.read().places, (std::vector<QPointF>{{700, 5}}));
    const QStringList watched = running.watchedPaths();
    EXPECT_TRUE(std::any_of(watched.begin(), watched.end(),
                            [](const QString &one) { return one.endsWith(u"/pcmanfm/work"_s); }));
}

TEST_F(IconStoreTest, ofFilesIsWhatTheToolListsOfThem) {
    write(u"Desktop/one"_s);
    write(u"Desktop/two"_s);
    tools.install(u"gsettings"_s, "exit 1");
    tools.install(u"gio"_s, "/usr/bin/gio \"$@\"");
    for (const auto kind : {IconStore::Kind::caja, IconStore::Kind::nemo}) {
        const auto icons = store(kind).read();
        EXPECT_TRUE(icons.places.empty()) << "nothing was placed";
        EXPECT_EQ(icons.unplaced, 2 + 3);
        EXPECT_FALSE(icons.cell.isEmpty());
    }
}

TEST_F(IconStoreTest, ofFilesCountsTheIconsBesideThemThatAreShown) {
    write(u"Desktop/one"_s);
    tools.install(u"gsettings"_s, "test $1 = list-recursively || exit 1\n"
                                  "echo $2 computer-icon-visible false\n"
                                  "echo $2 home-icon-visible false\n"
                                  "case $2 in\n"
                                  "org.mate.caja.desktop) echo $2 trash-icon-visible true ;;\n"
                                  "org.nemo.desktop) echo $2 trash-icon-visible false ;;\n"
                                  "esac");
    EXPECT_EQ(store(IconStore::Kind::caja).read().unplaced, 1 + 1);
    EXPECT_EQ(store(IconStore::Kind::nemo).read().unplaced, 1);
}

TEST_F(IconStoreTest, ofGnomeIsWhatItsExtensionKeepsWithTheFiles) {
    tools.install(u"gnome-extensions"_s, "test \"$*\" = 'list --enabled' || exit 1\n"
                                         "echo ding@rastersoft.com");
    tools.install(u"gsettings"_s, "echo $2 icon-size \"'small'\"\n"
                                  "echo $2 show-trash false\n"
                                  "echo $2 start-corner \"'top-right'\"");
    tools.install(u"gio"_s,
                  "test $2 = --attributes=metadata::nautilus-icon-position || exit 1\n"
                  "printf 'a\\t6\\t(regular)\\tmetadata::nautilus-icon-position=102,34\\n'\n"
                  "printf 'b\\t6\\t(regular)\\n'");
    const auto icons = store(IconStore::Kind::extension).read();
    EXPECT_EQ(icons.places, (std::vector<QPointF>{{100, 32}}));
    EXPECT_EQ(icons.unplaced, 1 + 1) << "a file without a place, and the home";
    EXPECT_EQ(icons.cell.height(), 98);
    EXPECT_TRUE(icons.isFromRight);
    EXPECT_TRUE(store(IconStore::Kind::extension).areAboveDesktopWindows());
}

TEST_F(IconStoreTest, ofGnomeAreNoneWithoutItsExtension) {
    write(u"Desktop/one"_s);
    EXPECT_EQ(store(IconStore::Kind::extension).read(), DesktopIcons()) << "no tool to ask";
    tools.install(u"gnome-extensions"_s, "echo other@extension.example");
    EXPECT_EQ(store(IconStore::Kind::extension).read(), DesktopIcons());
}

TEST_F(IconStoreTest, ofPlasmaIsWhatItsShellTellsOfTheFolder) {
    write(u"Desktop/one"_s);
    write(u"Desktop/two"_s);
    IconStore running = store(IconStore::Kind::plasma);
    QString view = uR"({"type":"org.kde.plasma.folder","screen":0,"width":1280,"height":800)"_s
                   uR"(,"url":"%1"})"_s;
    QString address = u"desktop:/"_s;
    running.evaluate = [&](const QString &script) {
        EXPECT_TRUE(script.contains(u"print("_s));
        return std::optional(uR"({"desktops":[%1]})"_s.arg(view.arg(address)));
    };
    ASSERT_EQ(running.read().displays.size(), 1U);
    EXPECT_EQ(running.read().displays.front().unplaced, 2);
    write(u"Work/three"_s);
    address = u"file://"_s + room() + u"/Work"_s;
    EXPECT_EQ(running.read().displays.front().unplaced, 1);
    address = u"smb://elsewhere/"_s;
    EXPECT_EQ(running.read().displays.front().unplaced, 0) << "nobody lists it here";
}

TEST_F(IconStoreTest, ofPlasmaCountsTheFilesWhereItsShellTellsNothing) {
    write(u"Desktop/one"_s);
    IconStore running = store(IconStore::Kind::plasma);
    EXPECT_EQ(running.read().unplaced, 1);
    running.evaluate = [](const QString &) { return std::optional<QString>(); };
    EXPECT_EQ(running.read().unplaced, 1);
    EXPECT_FALSE(running.read().cell.isEmpty());
    EXPECT_TRUE(running.read().isGuessed);
}

TEST_F(IconStoreTest, withoutADesktopFolderIsOfTheIconsBesideFiles) {
    IconStore none = store(IconStore::Kind::caja);
    none.folders.desktop.clear();
    EXPECT_EQ(none.read().unplaced, 3);
    EXPECT_EQ(none.watchedPaths().size(), 2);
}

TEST_F(IconStoreTest, watchesTheFolderAndWhereThePlacesAreKept) {
    for (const auto kind :
         {IconStore::Kind::xfdesktop, IconStore::Kind::caja, IconStore::Kind::nemo,
          IconStore::Kind::pcmanfm, IconStore::Kind::extension, IconStore::Kind::plasma}) {
        const auto watched = store(kind).watchedPaths();
        EXPECT_TRUE(watched.last().endsWith(u"/Desktop"_s));
        EXPECT_GE(watched.size(), 2);
    }
}

TEST(IconStoreKind, isThatOfTheDesktop) {
    EXPECT_EQ(iconStoreKindFor(u"XFCE"_s), IconStore::Kind::xfdesktop);
    EXPECT_EQ(iconStoreKindFor(u"MATE"_s), IconStore::Kind::caja);
    EXPECT_EQ(iconStoreKindFor(u"X-Cinnamon"_s), IconStore::Kind::nemo);
    EXPECT_EQ(iconStoreKindFor(u"LXDE"_s), IconStore::Kind::pcmanfm);
    EXPECT_EQ(iconStoreKindFor(u"Debian:XFCE"_s), IconStore::Kind::xfdesktop);
    EXPECT_EQ(iconStoreKindFor(u"ubuntu:GNOME"_s), IconStore::Kind::extension);
    EXPECT_EQ(iconStoreKindFor(u"KDE"_s), IconStore::Kind::plasma);
    EXPECT_EQ(iconStoreKindFor(u"LXQt"_s), std::nullopt);
    EXPECT_EQ(iconStoreKindFor({}), std::nullopt);
}

} // namespace zeph
