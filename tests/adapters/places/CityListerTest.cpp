// SPDX-License-Identifier: MIT
#include "adapters/places/CityLister.h"

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
    /// What a program of these lines answers.
    std::optional<QByteArray> listedBy(const QByteArray &script) {
        return askCityLister(write(script), "question", isEnding);
    }
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

TEST_F(CityLister, answersALineForEachPositionAndAnEmptyOneForNonsense) {
    const auto answer = askCityLister(QStringLiteral(ZEPH_CITY_LISTER),
                                      "52.52\t13.405\nnonsense\n35\t-45\n", isEnding);
    EXPECT_EQ(answer, "Berlin\tBerlin\tGermany\t\t\n\n\t\t\tAtlantic Ocean\t\n");
}

TEST_F(CityLister, answersWhatTheProgramPrinted) {
    EXPECT_EQ(listedBy("echo one; sleep 0.1; echo two"), "one\ntwo\n");
}

TEST_F(CityLister, tellsTheProgramTheQuestion) {
    EXPECT_EQ(listedBy("cat; echo; echo $#"), "question\n0\n");
}

TEST_F(CityLister, answersNothingForAProgramThatIsNotThereOrFails) {
    EXPECT_EQ(askCityLister(folder.filePath(u"missing"_s), "question", isEnding), std::nullopt);
    EXPECT_EQ(listedBy("echo one; exit 1"), std::nullopt);
    EXPECT_EQ(listedBy("echo one; kill -SEGV $$"), std::nullopt);
    EXPECT_EQ(listedBy(""), QByteArray());
}

TEST_F(CityLister, endsAProgramThatPrintsWithoutEnd) {
    EXPECT_EQ(listedBy("exec yes"), std::nullopt);
}

TEST_F(CityLister, endsAProgramThatTakesTooLongWhenTheProcessEnds) {
    const QString program = write("exec sleep 60");
    auto listed =
        std::async(std::launch::async, [&] { return askCityLister(program, {}, isEnding); });
    isEnding = true;
    EXPECT_EQ(listed.wait_for(std::chrono::seconds(8)), std::future_status::ready)
        << "and not after the patience for a slow program";
    EXPECT_EQ(listed.get(), std::nullopt);
}

} // namespace

} // namespace zeph
