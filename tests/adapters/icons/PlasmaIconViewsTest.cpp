// SPDX-License-Identifier: MIT
#include "adapters/icons/PlasmaIconViews.h"

#include "support/QtPrinters.h"

#include <gtest/gtest.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

const QString kActivity = u"268c7161"_s;

QJsonObject plasmaDesktop(int screen = 0) {
    return {{u"type"_s, u"org.kde.plasma.folder"_s},
            {u"screen"_s, screen},
            {u"x"_s, 1280 * screen},
            {u"y"_s, 0},
            {u"width"_s, 1280},
            {u"height"_s, 800},
            {u"url"_s, u"desktop:/"_s},
            {u"iconSize"_s, 3},
            {u"labelWidth"_s, 1},
            {u"textLines"_s, 2},
            {u"filterPattern"_s, u"*"_s},
            {u"filterMimeTypes"_s, u"all/all"_s}};
}

QJsonObject having(QJsonObject object, const QString &key, const QJsonValue &value) {
    object[key] = value;
    return object;
}

/// As Plasma 5.27 keeps it.
QJsonObject arranged(const QString &places) {
    QString list = uR"({"1280x800":["3","11",)"_s + places + uR"(],"800x600":["2","7"]})"_s;
    list.replace(u',', u"\\,"_s);
    return having(having(plasmaDesktop(), u"sortMode"_s, -1), u"positions"_s, list);
}

QByteArray printed(const QJsonArray &desktops, const QString &mapping = {}, double unit = 18) {
    return QJsonDocument(QJsonObject{{u"unit"_s, unit},
                                     {u"activity"_s, kActivity},
                                     {u"mapping"_s, mapping},
                                     {u"desktops"_s, desktops}})
               .toJson(QJsonDocument::Compact) +
           '\n';
}

std::vector<PlasmaIconView> viewsIn(const QJsonArray &desktops, const QString &mapping = {}) {
    return plasmaIconViewsIn(printed(desktops, mapping)).value_or(std::vector<PlasmaIconView>());
}

DisplayIcons iconsOf(const QJsonObject &desktop, const std::optional<QStringList> &entries) {
    const auto views = viewsIn({desktop});
    return views.size() == 1 ? plasmaIconsOf(views.front(), entries) : DisplayIcons();
}

const QStringList kThree{u"a.txt"_s, u"b.txt"_s, u"c.odt"_s};

QSizeF leastCell(const QString &key, int value) {
    return iconsOf(having(plasmaDesktop(), key, value), {}).leastCell;
}

} // namespace

TEST(PlasmaIconView, thatNobodyMovedAreLaidOutByPlasma) {
    const DisplayIcons icons = iconsOf(plasmaDesktop(), kThree);
    EXPECT_EQ(icons.display, QRect(0, 0, 1280, 800));
    EXPECT_EQ(icons.unplaced, 3);
    EXPECT_TRUE(icons.taken.empty());
    EXPECT_EQ(icons.perStripe, 0);
    EXPECT_FALSE(icons.isByColumns);
    EXPECT_FALSE(icons.isFromRight);
    const auto turned = having(having(plasmaDesktop(), u"arrangement"_s, 1), u"alignment"_s, 1);
    EXPECT_TRUE(iconsOf(turned, kThree).isByColumns);
    EXPECT_TRUE(iconsOf(turned, kThree).isFromRight);
}

TEST(PlasmaIconView, thatWereMovedLieInTheirCells) {
    const QString places = uR"("desktop:/a.txt","2","1","desktop:/c.odt","0","4")"_s;
    const DisplayIcons icons = iconsOf(arranged(places), kThree);
    EXPECT_EQ(icons.perStripe, 11);
    EXPECT_EQ(icons.taken, (std::set<IconCell>{{0, 4}, {2, 1}}));
    EXPECT_EQ(icons.unplaced, 1) << "b.txt";
    EXPECT_EQ(iconsOf(arranged(places), std::nullopt).taken.size(), 2U) << "of a folder elsewhere";
    EXPECT_EQ(iconsOf(arranged(places), QStringList()).taken.size(), 0U) << "files that are gone";
    const DisplayIcons sorted = iconsOf(having(arranged(places), u"sortMode"_s, 1), kThree);
    EXPECT_TRUE(sorted.taken.empty()) << "where Plasma sorts, the places are those of another time";
    EXPECT_EQ(sorted.unplaced, 3);
}

TEST(PlasmaIconView, areKnownByTheirNamesAsPlasmaWritesThem) {
    QString list = uR"({"1280x800":["1","11","desktop:/a b,c%22ü.txt","0","1",)"_s
                   uR"("desktop:/back%5Cslash%2520.txt","0","6"]})"_s;
    list.replace(u',', u"\\,"_s);
    const auto moved = having(having(plasmaDesktop(), u"sortMode"_s, -1), u"positions"_s, list);
    const DisplayIcons icons =
        iconsOf(moved, QStringList{u"a b,c\"ü.txt"_s, u"back\\slash%20.txt"_s});
    EXPECT_EQ(icons.taken, (std::set<IconCell>{{0, 1}, {0, 6}}));
    EXPECT_EQ(icons.unplaced, 0);
}

TEST(PlasmaIconView, haveTheRoomThatPlasmaGivesThem) {
    EXPECT_EQ(plasmaUsualCell(), QSizeF(108, 116));
    EXPECT_EQ(leastCell(u"iconSize"_s, 3), plasmaUsualCell());
    EXPECT_EQ(leastCell(u"iconSize"_s, 6), QSizeF(300, 308));
    EXPECT_EQ(leastCell(u"iconSize"_s, 0).width(), 96) << "the name needs no less";
    EXPECT_EQ(leastCell(u"labelWidth"_s, 2).width(), 128);
    EXPECT_EQ(leastCell(u"textLines"_s, 4).height(), 152);
    for (const int damaged : {-1, 7, 2'000'000'000}) {
        EXPECT_EQ(leastCell(u"iconSize"_s, damaged), plasmaUsualCell());
        EXPECT_EQ(leastCell(u"labelWidth"_s, damaged), plasmaUsualCell());
    }
}

TEST(PlasmaIconView, growWithItsFont) {
    const auto cell = [](double unit) {
        return plasmaIconViewsIn(printed({plasmaDesktop()}, {}, unit))->front().icons.leastCell;
    };
    EXPECT_EQ(cell(36), QSizeF(218, 236)) << "twice the dots to the inch";
    EXPECT_EQ(cell(25), QSizeF(126, 138)) << "a larger font";
}

TEST(PlasmaIconView, thatAreFilteredOutAreNone) {
    const auto filtered = [](int mode, const QString &pattern, const QString &kinds) {
        return iconsOf(having(having(having(plasmaDesktop(), u"filterMode"_s, mode),
                                     u"filterPattern"_s, pattern),
                              u"filterMimeTypes"_s, kinds),
                       kThree)
            .unplaced;
    };
    EXPECT_EQ(filtered(0, u"*.txt"_s, u"all/all"_s), 3);
    EXPECT_EQ(filtered(1, u"*.txt"_s, u"all/all"_s), 2);
    EXPECT_EQ(filtered(1, u"*.odt b*"_s, u"all/all"_s), 2);
    EXPECT_EQ(filtered(1, u"__none__"_s, u"__none__/__none__"_s), 0);
    EXPECT_EQ(filtered(2, u"*.txt"_s, u"all/all"_s), 1);
    EXPECT_EQ(filtered(2, u"*.txt"_s, u"image/png"_s), 3) << "pictures alone would be hidden";
}

TEST(PlasmaIconView, ofEachDisplayAreItsOwn) {
    const QString mapping =
        u"desktop:/b.txt,1,%1,desktop:/c.odt,1,other,desktop:/x\\,y,1,%1"_s.arg(kActivity);
    const auto views = viewsIn({plasmaDesktop(0), plasmaDesktop(1)}, mapping);
    ASSERT_EQ(views.size(), 2U);
    const QStringList entries = kThree + QStringList{u"x,y"_s};
    EXPECT_EQ(plasmaIconsOf(views[0], entries).unplaced, 2) << "a.txt, and c.odt in this activity";
    EXPECT_EQ(plasmaIconsOf(views[1], entries).unplaced, 2) << "b.txt and x,y";
    EXPECT_EQ(plasmaIconsOf(views[1], entries).display.topLeft(), QPoint(1280, 0));
}

TEST(PlasmaIconView, ofADisplayThatIsGoneAreOnTheFirst) {
    const QString mapping = u"desktop:/b.txt,1,%1"_s.arg(kActivity);
    EXPECT_EQ(plasmaIconsOf(viewsIn({plasmaDesktop(0)}, mapping).at(0), kThree).unplaced, 3);
}

TEST(PlasmaIconView, ofAnotherFolderAreNotThoseOfTheDesktop) {
    const auto views =
        viewsIn({plasmaDesktop(0), having(plasmaDesktop(1), u"url"_s, u"file:///home/ada/Work"_s)},
                u"desktop:/b.txt,0,%1"_s.arg(kActivity));
    ASSERT_EQ(views.size(), 2U);
    EXPECT_EQ(views[1].folder, u"file:///home/ada/Work/"_s);
    EXPECT_EQ(plasmaIconsOf(views[1], kThree).unplaced, 3);
}

TEST(PlasmaIconViews, areOfDesktopsThatShowAFolder) {
    EXPECT_TRUE(
        viewsIn({having(plasmaDesktop(), u"type"_s, u"org.kde.desktopcontainment"_s)}).empty());
    EXPECT_TRUE(viewsIn({plasmaDesktop(-1)}).empty()) << "of a display that is not there";
}

TEST(PlasmaIconViews, areUnknownFromAnythingElse) {
    EXPECT_TRUE(plasmaIconViewsIn(printed({plasmaDesktop()})));
    EXPECT_EQ(plasmaIconViewsIn(printed({})).has_value(), false) << "a shell that is starting";
    for (const QByteArray odd : {"", "[]", "{}", "Error: x", "{\"desktops\":7}"}) {
        EXPECT_EQ(plasmaIconViewsIn(odd).has_value(), false) << odd.constData();
    }
}

TEST(PlasmaIconViews, damagedPlacesCountForNothing) {
    for (const QString &places : {uR"("desktop:/a.txt","-1","1")"_s, uR"("desktop:/a.txt","1")"_s,
                                  uR"("desktop:/a.txt","x","1")"_s,
                                  uR"("desktop:/a.txt","1","99999999999")"_s, uR"(7)"_s}) {
        const DisplayIcons icons = iconsOf(arranged(places), kThree);
        EXPECT_TRUE(icons.taken.empty()) << places.toStdString();
        EXPECT_EQ(icons.unplaced, 3);
    }
    for (const QString &positions : {QString(), u"{"_s, u"[]"_s, u"1,2,3"_s}) {
        const auto icons = iconsOf(
            having(having(plasmaDesktop(), u"sortMode"_s, -1), u"positions"_s, positions), kThree);
        EXPECT_EQ(icons.unplaced, 3) << positions.toStdString();
    }
}

} // namespace zeph
