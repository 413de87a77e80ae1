// SPDX-License-Identifier: MIT
#include "adapters/session/plasma/PlasmaPackage.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace zeph {

class PlasmaPackageTest : public testing::Test {
protected:
    void SetUp() override {
        put(source(u"metadata.json"_s), "{1}");
        put(source(u"contents/ui/main.qml"_s), "Item {}");
    }

    QString source(const QString &name = {}) const { return room.filePath(u"from/"_s + name); }
    QString target(const QString &name = {}) const { return room.filePath(u"a/b/to/"_s + name); }

    static void put(const QString &path, const QByteArray &bytes) {
        QDir().mkpath(QFileInfo(path).path());
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }
    static QByteArray bytes(const QString &path) {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("nothing");
    }

    const QTemporaryDir room;
};

TEST_F(PlasmaPackageTest, bringsAllFiles) {
    ASSERT_TRUE(installPlasmaPackage(source(), target()));
    EXPECT_EQ(bytes(target(u"metadata.json"_s)), "{1}");
    EXPECT_EQ(bytes(target(u"contents/ui/main.qml"_s)), "Item {}");
}

TEST_F(PlasmaPackageTest, bringsWhatIsNew) {
    ASSERT_TRUE(installPlasmaPackage(source(), target()));
    put(source(u"contents/ui/main.qml"_s), "Rectangle {}");
    ASSERT_TRUE(installPlasmaPackage(source(), target()));
    EXPECT_EQ(bytes(target(u"contents/ui/main.qml"_s)), "Rectangle {}");
}

TEST_F(PlasmaPackageTest, writesNothingThatIsTheSame) {
    ASSERT_TRUE(installPlasmaPackage(source(), target()));
    QFile file(target(u"metadata.json"_s));
    const QDateTime then(QDate(2001, 2, 3), QTime(4, 5));
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    ASSERT_TRUE(file.setFileTime(then, QFileDevice::FileModificationTime));
    file.close();
    ASSERT_TRUE(installPlasmaPackage(source(), target()));
    EXPECT_EQ(QFileInfo(file).lastModified(), then);
}

TEST_F(PlasmaPackageTest, isRefusedWithoutAPackage) {
    EXPECT_FALSE(installPlasmaPackage(room.filePath(u"nowhere"_s), target()));
    QFile::remove(source(u"metadata.json"_s));
    EXPECT_FALSE(installPlasmaPackage(source(), target()));
    EXPECT_FALSE(QFileInfo::exists(target())) << "no half of it";
}

TEST_F(PlasmaPackageTest, isRefusedWhereAFileLiesInTheWay) {
    put(room.filePath(u"a"_s), "file");
    EXPECT_FALSE(installPlasmaPackage(source(), target()));
}

} // namespace zeph
