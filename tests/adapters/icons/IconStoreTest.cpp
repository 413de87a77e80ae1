// SPDX-License-Identifier: MIT
#include "adapters/icons/IconStore.h"

#include "support/QtPrinters.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

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

TEST_F(IconStoreTest, ofFilesIsWhatTheToolListsOfThem) {
    write(u"Desktop/one"_s);
    write(u"Desktop/two"_s);
    for (const auto kind : {IconStore::Kind::caja, IconStore::Kind::nemo}) {
        const auto icons = store(kind).read();
        EXPECT_TRUE(icons.places.empty()) << "nothing was placed";
        EXPECT_EQ(icons.unplaced, 2 + 3);
        EXPECT_FALSE(icons.cell.isEmpty());
    }
}

TEST_F(IconStoreTest, withoutADesktopFolderIsOfTheIconsBesideFiles) {
    IconStore none = store(IconStore::Kind::caja);
    none.folders.desktop.clear();
    EXPECT_EQ(none.read().unplaced, 3);
    EXPECT_EQ(none.watchedFolders().size(), 1);
}

TEST_F(IconStoreTest, watchesTheFolderAndWhereThePlacesAreKept) {
    for (const auto kind : {IconStore::Kind::xfdesktop, IconStore::Kind::caja,
                            IconStore::Kind::nemo, IconStore::Kind::pcmanfm}) {
        const auto watched = store(kind).watchedFolders();
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
    EXPECT_EQ(iconStoreKindFor(u"KDE"_s), std::nullopt);
    EXPECT_EQ(iconStoreKindFor({}), std::nullopt);
}

} // namespace zeph
