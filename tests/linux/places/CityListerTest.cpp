// SPDX-License-Identifier: MIT
#include "platform/linux/places/CityLister.h"

#include "platform/linux/places/CityTable.h"

#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <future>
#include <thread>

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

class CityLister : public testing::Test {
protected:
    /// What a program of these lines lists.
    QByteArray listedBy(const QByteArray &script) { return listCities(write(script), isEnding); }
    QString write(const QByteArray &script) const {
        const QString path = folder.filePath(u"lister"_s);
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("#!/bin/sh\n" + script + '\n');
        EXPECT_TRUE(file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
        return path;
    }

    QTemporaryDir folder;
    std::atomic<bool> isEnding = false;
};

TEST_F(CityLister, listsThousandsOfCitiesOfTheLibrary) {
    const QByteArray text = listCities(QStringLiteral(ZEPH_CITY_LISTER), isEnding);
    EXPECT_GT(text.count('\n'), 3000);
    EXPECT_LT(text.size(), 1 << 20);
    qsizetype damaged = 0;
    for (const QByteArray &line : text.split('\n')) {
        damaged += line.isEmpty() || !CityTable(line).isEmpty() ? 0 : 1;
    }
    EXPECT_LE(damaged, 5) << "the library itself has a city or so off the globe";
}

TEST_F(CityLister, answersWhatTheProgramPrinted) {
    EXPECT_EQ(listedBy("echo one; sleep 0.1; echo two"), "one\ntwo\n");
}

TEST_F(CityLister, answersNothingForAProgramThatIsNotThereOrFails) {
    EXPECT_EQ(listCities(folder.filePath(u"missing"_s), isEnding), QByteArray());
    EXPECT_EQ(listedBy("echo one; exit 1"), QByteArray());
    EXPECT_EQ(listedBy("echo one; kill -SEGV $$"), QByteArray());
    EXPECT_EQ(listedBy(""), QByteArray());
}

TEST_F(CityLister, endsAProgramThatPrintsWithoutEnd) {
    EXPECT_EQ(listedBy("exec yes"), QByteArray());
}

TEST_F(CityLister, endsAProgramThatTakesTooLongWhenTheProcessEnds) {
    const QString program = write("exec sleep 60");
    auto listed = std::async(std::launch::async, [&] { return listCities(program, isEnding); });
    isEnding = true;
    EXPECT_EQ(listed.wait_for(std::chrono::seconds(8)), std::future_status::ready)
        << "and not after the patience for a slow program";
    EXPECT_EQ(listed.get(), QByteArray());
}

} // namespace

} // namespace zeph
