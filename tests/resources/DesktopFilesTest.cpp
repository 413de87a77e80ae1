// SPDX-License-Identifier: MIT
#include <QFile>
#include <QImage>
#include <QMap>
#include <QPainter>
#include <QRegularExpression>
#include <QSet>
#include <QSvgRenderer>
#include <QXmlStreamReader>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace zeph {
namespace {

const QString applicationId = u"com.tavi.Tavi"_s;

QByteArray readResource(const QString &name) {
    QFile file(QStringLiteral(ZEPH_RESOURCES "/") + name);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << qPrintable(name);
    return file.readAll();
}

/// The keys of a group of the desktop entry; every line of the entry that is neither a group nor a
/// key is a failure.
QMap<QString, QString> desktopEntry(const QString &group = u"Desktop Entry"_s) {
    static const QRegularExpression groupLine(u"^\\[([A-Za-z -]+)\\]$"_s);
    static const QRegularExpression keyLine(u"^([A-Za-z0-9-]+)=(\\S.*\\S|\\S)$"_s);
    QMap<QString, QMap<QString, QString>> groups;
    const QByteArray text = readResource(applicationId + u".desktop"_s);
    EXPECT_TRUE(text.endsWith('\n'));
    QString current;
    for (const QString &line : QString::fromUtf8(text).chopped(1).split(u'\n')) {
        const QRegularExpressionMatch opening = groupLine.match(line);
        const QRegularExpressionMatch match = keyLine.match(line);
        EXPECT_TRUE(opening.hasMatch() || match.hasMatch() || line.isEmpty()) << qPrintable(line);
        if (opening.hasMatch()) {
            current = opening.captured(1);
            EXPECT_FALSE(groups.contains(current)) << qPrintable(line);
        } else if (match.hasMatch()) {
            EXPECT_FALSE(groups[current].contains(match.captured(1))) << qPrintable(line);
            groups[current].insert(match.captured(1), match.captured(2));
        }
    }
    return groups[group];
}

/// What the metadata says once: the text or the attribute of an element below the root.
struct Metainfo {
    QMap<QString, QString> texts;
    QString launchable;
    QString newestRelease;
    QString binary;
    QString rating;
    int paragraphs = 0;
};

void readElement(QXmlStreamReader &reader, Metainfo &info) {
    static const QSet<QString> plain{u"id"_s, u"metadata_license"_s, u"project_license"_s,
                                     u"name"_s, u"summary"_s};
    const QString name = reader.name().toString();
    const QXmlStreamAttributes attributes = reader.attributes();
    if (plain.contains(name)) {
        EXPECT_FALSE(info.texts.contains(name)) << qPrintable(name);
        info.texts.insert(name, reader.readElementText());
    } else if (name == u"launchable") {
        EXPECT_EQ(attributes.value(u"type"_s), u"desktop-id");
        info.launchable = reader.readElementText();
    } else if (name == u"release" && info.newestRelease.isEmpty()) {
        info.newestRelease = attributes.value(u"version"_s).toString();
    } else if (name == u"binary") {
        info.binary = reader.readElementText();
    } else if (name == u"content_rating") {
        info.rating = attributes.value(u"type"_s).toString();
    } else if (name == u"p") {
        ++info.paragraphs;
    }
}

Metainfo metainfo() {
    Metainfo info;
    QXmlStreamReader reader(readResource(applicationId + u".metainfo.xml"_s));
    EXPECT_TRUE(reader.readNextStartElement());
    EXPECT_EQ(reader.name(), u"component");
    EXPECT_EQ(reader.attributes().value(u"type"_s), u"desktop-application");
    while (!reader.atEnd()) {
        if (reader.readNext() == QXmlStreamReader::StartElement) {
            readElement(reader, info);
        }
    }
    EXPECT_FALSE(reader.hasError()) << qPrintable(reader.errorString());
    return info;
}

TEST(DesktopEntry, hasTheKeysOfAnApplication) {
    const QMap<QString, QString> keys = desktopEntry();
    EXPECT_EQ(keys[u"Type"_s], u"Application");
    EXPECT_EQ(keys[u"Version"_s], u"1.4") << "what the validator of Debian 12 knows";
    EXPECT_EQ(keys[u"Name"_s], u"Tavi");
    EXPECT_EQ(keys[u"Exec"_s], u"tavi");
    EXPECT_EQ(keys[u"Terminal"_s], u"false");
    EXPECT_FALSE(keys[u"Comment"_s].isEmpty());
    EXPECT_FALSE(keys[u"Comment"_s].endsWith(u'.'));
    EXPECT_NE(keys[u"Comment"_s], keys[u"Name"_s]);
}

TEST(DesktopEntry, usesOnlyKeysOfTheFormat) {
    static const QSet<QString> known{u"Type"_s,        u"Version"_s,       u"Name"_s,
                                     u"GenericName"_s, u"Comment"_s,       u"Exec"_s,
                                     u"Icon"_s,        u"Terminal"_s,      u"Categories"_s,
                                     u"Keywords"_s,    u"StartupNotify"_s, u"StartupWMClass"_s,
                                     u"NoDisplay"_s,   u"Actions"_s,       u"DBusActivatable"_s};
    for (const QString &key : desktopEntry().keys()) {
        EXPECT_TRUE(known.contains(key)) << qPrintable(key);
    }
}

TEST(DesktopEntry, itsListsEndEachItemAndNameOneMainCategory) {
    static const QSet<QString> mainCategories{
        u"AudioVideo"_s, u"Development"_s, u"Education"_s, u"Game"_s,   u"Graphics"_s, u"Network"_s,
        u"Office"_s,     u"Science"_s,     u"Settings"_s,  u"System"_s, u"Utility"_s};
    const QMap<QString, QString> keys = desktopEntry();
    for (const QString &list : {u"Categories"_s, u"Keywords"_s, u"Actions"_s}) {
        EXPECT_TRUE(keys[list].endsWith(u';')) << qPrintable(list);
    }
    int mains = 0;
    for (const QString &category : keys[u"Categories"_s].chopped(1).split(u';')) {
        mains += mainCategories.contains(category) ? 1 : 0;
    }
    EXPECT_EQ(mains, 1);
}

TEST(DesktopEntry, itsActionsAreTheChoicesOfTheMenu) {
    QStringList names;
    for (const QString &action : desktopEntry()[u"Actions"_s].chopped(1).split(u';')) {
        const QMap<QString, QString> keys = desktopEntry(u"Desktop Action "_s + action);
        names.append(keys[u"Name"_s]);
        EXPECT_FALSE(keys[u"Exec"_s].isEmpty()) << "for launchers that don't use the bus";
    }
    EXPECT_EQ(names,
              QStringList({u"Settings & Permissions…"_s, u"Check for Updates…"_s, u"Quit Tavi"_s}));
}

TEST(DesktopEntry, theBusStartsTheProgramUnderItsName) {
    EXPECT_EQ(desktopEntry()[u"DBusActivatable"_s], u"true");
    const QByteArray service = readResource(applicationId + u".service.in"_s);
    EXPECT_TRUE(service.contains("Name=com.tavi.Tavi\n"));
    EXPECT_TRUE(service.contains("Exec=@program@\n")) << "known when it is installed";
}

TEST(DesktopEntry, namesTheApplicationIdForIconAndWindow) {
    const QMap<QString, QString> keys = desktopEntry();
    EXPECT_EQ(keys[u"Icon"_s], applicationId);
    EXPECT_EQ(keys[u"StartupWMClass"_s], applicationId);
    EXPECT_TRUE(QFile::exists(QStringLiteral(ZEPH_RESOURCES "/") + keys[u"Icon"_s] + u".svg"_s));
}

TEST(Metainfo, describesTheProgramThatTheDesktopEntryStarts) {
    const Metainfo info = metainfo();
    const QMap<QString, QString> keys = desktopEntry();
    EXPECT_EQ(info.texts[u"id"_s], applicationId);
    EXPECT_EQ(info.texts[u"name"_s], keys[u"Name"_s]);
    EXPECT_EQ(info.texts[u"summary"_s], keys[u"Comment"_s]);
    EXPECT_EQ(info.launchable, applicationId + u".desktop"_s);
    EXPECT_EQ(info.binary, keys[u"Exec"_s]);
}

TEST(Metainfo, statesLicencesRatingDescriptionAndTheVersionBuilt) {
    const Metainfo info = metainfo();
    EXPECT_EQ(info.texts[u"metadata_license"_s], u"MIT");
    EXPECT_EQ(info.texts[u"project_license"_s], u"MIT");
    EXPECT_EQ(info.rating, u"oars-1.1");
    EXPECT_GE(info.paragraphs, 2);
    EXPECT_EQ(info.newestRelease, QStringLiteral(ZEPH_VERSION));
}

TEST(ApplicationIcon, fillsARoundedSquareAndLeavesItsCornersClear) {
    QSvgRenderer renderer(readResource(applicationId + u".svg"_s));
    ASSERT_TRUE(renderer.isValid());
    EXPECT_EQ(renderer.viewBox(), QRect(0, 0, 128, 128));
    QImage image(64, 64, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    renderer.render(&painter);
    painter.end();
    for (const QPoint corner : {QPoint(0, 0), QPoint(63, 0), QPoint(0, 63), QPoint(63, 63)}) {
        EXPECT_EQ(qAlpha(image.pixel(corner)), 0);
    }
    const QColor sky = image.pixelColor(32, 7);
    const QColor sun = image.pixelColor(32, 34);
    EXPECT_EQ(sky.alpha(), 255);
    EXPECT_GT(sky.blue(), sky.red());
    EXPECT_GT(sun.red(), sun.blue());
}

// Panels replace the fill of such an icon, and would fill an outline.
TEST(TrayIcon, consistsOfFilledShapesAlone) {
    const QByteArray text = readResource(applicationId + u"-symbolic.svg"_s);
    EXPECT_FALSE(text.contains("stroke"));
    EXPECT_FALSE(text.contains("fill=\"none\""));
    QSvgRenderer renderer(text);
    ASSERT_TRUE(renderer.isValid());
    QImage image(48, 48, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    renderer.render(&painter);
    painter.end();
    EXPECT_EQ(qAlpha(image.pixel(24, 24)), 0) << "a ring, not a disc";
    EXPECT_GT(qAlpha(image.pixel(24, 15)), 200);
    EXPECT_GT(qAlpha(image.pixel(42, 24)), 100) << "a dot beside it";
}

} // namespace
} // namespace zeph
