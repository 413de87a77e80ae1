// SPDX-License-Identifier: MIT
#include "adapters/storage/JsonUserDefaults.h"

#include "support/FileMode.h"
#include "support/FullDisk.h"
#include "support/PrintedLines.h"

#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QTemporaryDir>

#include <gmock/gmock.h>

#include <sys/stat.h>

#include <thread>
#include <vector>

using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::IsEmpty;

namespace zeph {

namespace {

class JsonUserDefaultsTest : public testing::Test {
protected:
    QString folder() const { return base.filePath(u"config/Zeph"_s); }
    QString path(const QString &suffix = {}) const {
        return folder() + u"/defaults.json"_s + suffix;
    }
    QByteArray content(const QString &suffix = {}) const {
        QFile file(path(suffix));
        return file.open(QFile::ReadOnly) ? file.readAll() : QByteArray("absent");
    }
    void put(const QByteArray &content, const QString &suffix = {}) const {
        QDir().mkpath(folder());
        QFile file(path(suffix));
        ASSERT_TRUE(file.open(QFile::WriteOnly));
        ASSERT_EQ(file.write(content), content.size());
    }
    QJsonObject json() const { return QJsonDocument::fromJson(content()).object(); }
    QStringList files() const { return QDir(folder()).entryList(QDir::Files | QDir::Hidden); }
    QString keptInMemory() const {
        return u"[Zeph] can't keep settings in %1; changes last until the program ends"_s.arg(
            path());
    }
    QString setAside(const QString &suffix) const {
        return u"[Zeph] the settings were damaged and are kept as "_s + path(suffix);
    }

    QTemporaryDir base;
};

TEST_F(JsonUserDefaultsTest, eachTypeIsReadBackAfterARestart) {
    const QByteArray bytes("\0\xff{}\n", 5);
    {
        JsonUserDefaults defaults(path());
        defaults.set(u"zeph.yes"_s, true);
        defaults.set(u"zeph.half"_s, 0.5);
        defaults.set(u"zeph.one"_s, 1.0);
        defaults.set(u"zeph.word"_s, u"Zoë · 🌤"_s);
        defaults.set(u"zeph.bytes"_s, bytes);
        defaults.set(u"zeph.nothing"_s, QByteArray());
    }
    const JsonUserDefaults defaults(path());
    EXPECT_EQ(defaults.value(u"zeph.yes"_s), DefaultsValue(true));
    EXPECT_EQ(defaults.value(u"zeph.half"_s), DefaultsValue(0.5));
    EXPECT_EQ(defaults.value(u"zeph.one"_s), DefaultsValue(1.0));
    EXPECT_EQ(defaults.value(u"zeph.word"_s), DefaultsValue(u"Zoë · 🌤"_s));
    EXPECT_EQ(defaults.value(u"zeph.bytes"_s), DefaultsValue(bytes));
    EXPECT_EQ(defaults.value(u"zeph.nothing"_s), DefaultsValue(QByteArray()));
    EXPECT_EQ(defaults.value(u"zeph.unset"_s), std::nullopt);
}

TEST_F(JsonUserDefaultsTest, theFileIsJsonThatAPersonCanRead) {
    JsonUserDefaults defaults(path());
    defaults.set(u"zeph.clock.24h"_s, true);
    defaults.set(u"zeph.units"_s, u"metric"_s);
    defaults.set(u"zeph.countdowns"_s, QByteArray("[]"));
    EXPECT_EQ(content(), "{\n"
                         "    \"zeph.clock.24h\": true,\n"
                         "    \"zeph.countdowns\": {\n"
                         "        \"data\": \"W10=\"\n"
                         "    },\n"
                         "    \"zeph.units\": \"metric\"\n"
                         "}\n");
}

TEST_F(JsonUserDefaultsTest, aTypedReadTellsTheTypesApart) {
    put(R"({"bool": true, "number": 1, "text": "true", "bytes": {"data": "AQ=="}})");
    const JsonUserDefaults defaults(path());
    EXPECT_EQ(defaults.get<bool>(u"number"_s), std::nullopt);
    EXPECT_EQ(defaults.get<double>(u"bool"_s), std::nullopt);
    EXPECT_EQ(defaults.get<bool>(u"text"_s), std::nullopt);
    EXPECT_EQ(defaults.get<QString>(u"bytes"_s), std::nullopt);
    EXPECT_EQ(defaults.get<QByteArray>(u"text"_s), std::nullopt);
    EXPECT_TRUE(defaults.boolean(u"bool"_s));
    EXPECT_FALSE(defaults.boolean(u"number"_s));
    EXPECT_EQ(defaults.get<QByteArray>(u"bytes"_s), QByteArray("\x01"));
}

TEST_F(JsonUserDefaultsTest, unknownFormsReadAsAbsentAndSurviveARewrite) {
    put(R"({"array": [1, {"a": null}], "null": null, "object": {"data": "AQ==", "more": 1},
            "empty": {}, "number": {"data": 5}, "broken": {"data": "%%%"}, "nested": {"a": {}}})");
    const QJsonObject before = json();
    JsonUserDefaults defaults(path());
    for (const QString &key : before.keys()) {
        EXPECT_EQ(defaults.value(key), std::nullopt) << key.toStdString();
    }
    defaults.set(u"zeph.units"_s, u"metric"_s);
    QJsonObject after = json();
    after.remove(u"zeph.units"_s);
    EXPECT_EQ(after, before);
    EXPECT_EQ(json().size(), before.size() + 1);
}

TEST_F(JsonUserDefaultsTest, unknownFormsAreThereAndKeptWholeBesideWhatReplacesThem) {
    for (const QByteArray form :
         {R"([{"provider":"rss"}])", R"({"data":"!"})", R"({"data":"","more":1})", R"("a text")"}) {
        put("{\"list\":" + form + ",\"list.damaged\":[1]}");
        JsonUserDefaults defaults(path());
        EXPECT_TRUE(defaults.contains(u"list"_s));
        EXPECT_FALSE(defaults.contains(u"other"_s));
        const QJsonValue damaged = json().value("list"_L1);
        EXPECT_EQ(defaults.keepDamaged(u"list"_s), u"list.damaged.2"_s);
        EXPECT_EQ(JsonUserDefaults(path()).keepDamaged(u"list"_s), u"list.damaged.2"_s);
        defaults.set(u"list"_s, QByteArray("[]"));
        EXPECT_EQ(json().value("list.damaged.2"_L1), damaged) << form.constData();
        EXPECT_EQ(json().value("list.damaged"_L1), QJsonValue(QJsonArray{1})) << "an older one";
        EXPECT_EQ(json().size(), 3);
    }
}

TEST_F(JsonUserDefaultsTest, keysOfOthersAndLargeNumbersSurviveARewrite) {
    put(R"({"their.key": 9007199254740993, "zeph.tiny": 1e-300})");
    JsonUserDefaults(path()).set(u"a"_s, 1.0);
    EXPECT_TRUE(content().contains("9007199254740993")) << content().toStdString();
    EXPECT_EQ(JsonUserDefaults(path()).get<double>(u"zeph.tiny"_s), 1e-300);
}

TEST_F(JsonUserDefaultsTest, aRemovedKeyIsGoneFromTheFile) {
    JsonUserDefaults defaults(path());
    defaults.set(u"a"_s, 1.0);
    defaults.set(u"b"_s, 2.0);
    defaults.remove(u"a"_s);
    EXPECT_EQ(defaults.value(u"a"_s), std::nullopt);
    EXPECT_EQ(json().keys(), QStringList{u"b"_s});
}

TEST_F(JsonUserDefaultsTest, onlyTheUserMayReadTheFolderAndTheFile) {
    const NoUmask openToAll;
    JsonUserDefaults defaults(path());
    defaults.set(u"a"_s, 1.0);
    EXPECT_EQ(fileMode(folder()), 0700);
    EXPECT_EQ(fileMode(path()), 0600);
    defaults.set(u"a"_s, 2.0);
    EXPECT_EQ(fileMode(path()), 0600);
}

TEST_F(JsonUserDefaultsTest, aFileThatStoodOpenToOthersIsClosedToThem) {
    put("{}");
    ASSERT_TRUE(QFile::setPermissions(path(), QFile::Permissions(0x6644)));
    ASSERT_EQ(fileMode(path()), 0644);
    JsonUserDefaults defaults(path());
    EXPECT_EQ(fileMode(path()), 0600);
    defaults.set(u"a"_s, 1.0);
    EXPECT_EQ(fileMode(path()), 0600);
}

TEST_F(JsonUserDefaultsTest, readingWritesNothing) {
    const JsonUserDefaults defaults(path());
    EXPECT_EQ(defaults.value(u"a"_s), std::nullopt);
    EXPECT_FALSE(QFileInfo::exists(folder()));
}

TEST_F(JsonUserDefaultsTest, anEqualValueOrAnAbsentKeyWritesNothing) {
    JsonUserDefaults defaults(path());
    defaults.set(u"a"_s, 1.0);
    ASSERT_TRUE(QFile::remove(path())); // would come back with a write
    defaults.set(u"a"_s, 1.0);
    defaults.remove(u"b"_s);
    EXPECT_FALSE(QFile::exists(path()));
    defaults.set(u"a"_s, true);
    EXPECT_EQ(json().value(u"a"_s), QJsonValue(true));
}

TEST_F(JsonUserDefaultsTest, aWriteLeavesNoOtherFileBehind) {
    JsonUserDefaults defaults(path());
    for (int turn = 0; turn < 5; ++turn) {
        defaults.set(u"a"_s, double(turn));
    }
    EXPECT_THAT(files(), ElementsAre(u"defaults.json"_s));
}

TEST_F(JsonUserDefaultsTest, theOldFileIsReplacedAndNeverWrittenInto) {
    put(R"({"a": 1})");
    QFile before(path());
    ASSERT_TRUE(before.open(QFile::ReadOnly));
    JsonUserDefaults(path()).set(u"a"_s, 2.0);
    EXPECT_EQ(before.readAll(), R"({"a": 1})"); // whoever had it open still has it whole
    EXPECT_EQ(json().value(u"a"_s), QJsonValue(2));
}

TEST_F(JsonUserDefaultsTest, aLinkToTheFileStaysALink) {
    const QString elsewhere = base.filePath(u"dotfiles.json"_s);
    put("{}");
    ASSERT_TRUE(QFile::rename(path(), elsewhere));
    ASSERT_TRUE(QFile::link(elsewhere, path()));
    JsonUserDefaults(path()).set(u"a"_s, 1.0);
    EXPECT_EQ(QFileInfo(path()).symLinkTarget(), elsewhere);
    EXPECT_EQ(JsonUserDefaults(elsewhere).get<double>(u"a"_s), 1.0);
}

TEST_F(JsonUserDefaultsTest, aDamagedFileIsSetAsideWhole) {
    for (const QByteArray &damaged :
         {QByteArray(), QByteArray("{\"a\": 1"), QByteArray("{\"a\": 1} x"), QByteArray("[1]"),
          QByteArray("null"), QByteArray("\xff\xfe\x00{", 4), QByteArray("{\"a\": \"\xc3(\"}")}) {
        SCOPED_TRACE(damaged.toStdString());
        put(damaged);
        const QStringList lines = printedLines([&] {
            JsonUserDefaults defaults(path());
            EXPECT_EQ(defaults.value(u"a"_s), std::nullopt);
            EXPECT_EQ(content(u".damaged"_s), damaged);
            defaults.set(u"b"_s, 2.0);
        });
        EXPECT_EQ(lines, QStringList{setAside(u".damaged"_s)});
        EXPECT_EQ(json(), (QJsonObject{{u"b"_s, 2}}));
        EXPECT_EQ(content(u".damaged"_s), damaged);
        ASSERT_TRUE(QFile::remove(path(u".damaged"_s)));
    }
}

TEST_F(JsonUserDefaultsTest, anOlderDamagedFileIsNotOverwritten) {
    put("first", u".damaged"_s);
    put("second", u".damaged.2"_s);
    put("third");
    EXPECT_EQ(printedLines([&] { JsonUserDefaults(path()).set(u"a"_s, 1.0); }),
              QStringList{setAside(u".damaged.3"_s)});
    EXPECT_EQ(content(u".damaged"_s), "first");
    EXPECT_EQ(content(u".damaged.2"_s), "second");
    EXPECT_EQ(content(u".damaged.3"_s), "third");
    EXPECT_EQ(json().keys(), QStringList{u"a"_s});
}

TEST_F(JsonUserDefaultsTest, anUnwritablePlaceKeepsTheValuesInMemoryAndSaysSoOnce) {
    QFile inTheWay(base.filePath(u"config"_s));
    ASSERT_TRUE(inTheWay.open(QFile::WriteOnly));
    JsonUserDefaults defaults(path());
    EXPECT_EQ(printedLines([&] {
                  defaults.set(u"a"_s, 1.0);
                  defaults.set(u"b"_s, u"two"_s);
                  defaults.remove(u"a"_s);
              }),
              QStringList{keptInMemory()});
    EXPECT_EQ(defaults.value(u"a"_s), std::nullopt);
    EXPECT_EQ(defaults.get<QString>(u"b"_s), u"two"_s);
    EXPECT_FALSE(defaults.isSaved());
}

TEST_F(JsonUserDefaultsTest, aPlaceThatBecomesWritableTakesEverythingAtTheNextChange) {
    const QString inTheWay = base.filePath(u"config"_s);
    QFile file(inTheWay);
    ASSERT_TRUE(file.open(QFile::WriteOnly));
    JsonUserDefaults defaults(path());
    printedLines([&] { defaults.set(u"a"_s, 1.0); });
    ASSERT_TRUE(file.remove());
    defaults.set(u"a"_s, 1.0); // equal to what memory holds, and still owed to the file
    EXPECT_EQ(json(), (QJsonObject{{u"a"_s, 1}}));
}

TEST_F(JsonUserDefaultsTest, aFullDiskKeepsTheOldFileWhole) {
    JsonUserDefaults defaults(path());
    EXPECT_TRUE(defaults.isSaved());
    defaults.set(u"a"_s, 1.0);
    EXPECT_TRUE(defaults.isSaved());
    const QByteArray before = content();
    EXPECT_EQ(printedLines([&] {
                  const FullDisk full(1024);
                  defaults.set(u"b"_s, QString(5000, u'x'));
                  defaults.set(u"c"_s, 3.0);
              }),
              QStringList{keptInMemory()});
    EXPECT_EQ(content(), before);
    EXPECT_FALSE(defaults.isSaved());
    EXPECT_THAT(files(), ElementsAre(u"defaults.json"_s));
    EXPECT_EQ(defaults.get<double>(u"c"_s), 3.0);
    defaults.remove(u"b"_s);
    EXPECT_TRUE(defaults.isSaved());
    EXPECT_EQ(json(), (QJsonObject{{u"a"_s, 1}, {u"c"_s, 3}}));
}

TEST_F(JsonUserDefaultsTest, aFolderInTheFilesPlaceIsLeftAlone) {
    QDir().mkpath(path());
    EXPECT_EQ(printedLines([&] {
                  JsonUserDefaults defaults(path());
                  defaults.set(u"a"_s, 1.0);
                  EXPECT_EQ(defaults.get<double>(u"a"_s), 1.0);
              }),
              QStringList{keptInMemory()});
    EXPECT_TRUE(QFileInfo(path()).isDir());
    EXPECT_THAT(QDir(path()).entryList(QDir::Files), IsEmpty());
}

TEST_F(JsonUserDefaultsTest, aPipeInTheFilesPlaceIsNeitherWaitedForNorReplaced) {
    QDir().mkpath(folder());
    ASSERT_EQ(mkfifo(QFile::encodeName(path()).constData(), 0600), 0);
    EXPECT_EQ(printedLines([&] {
                  JsonUserDefaults defaults(path());
                  defaults.set(u"zeph.a"_s, true);
                  EXPECT_TRUE(defaults.boolean(u"zeph.a"_s));
              }),
              QStringList{keptInMemory()});
    EXPECT_TRUE(QFileInfo::exists(path()));
    EXPECT_FALSE(QFileInfo(path()).isFile());
}

TEST_F(JsonUserDefaultsTest, aFileThatCanNotBeReachedIsNotTakenForNone) {
    const QString place = base.filePath(u"config"_s);
    ASSERT_TRUE(QFile::link(place, place)); // looking through it fails, as on a disk that fell out
    EXPECT_EQ(printedLines([&] {
                  JsonUserDefaults defaults(path());
                  ASSERT_TRUE(QFile::remove(place));
                  put("{\"zeph.accounts\": \"all\"}");
                  defaults.set(u"b"_s, 2.0);
                  EXPECT_FALSE(defaults.isSaved());
                  EXPECT_EQ(defaults.get<double>(u"b"_s), 2.0);
              }),
              QStringList{keptInMemory()});
    EXPECT_EQ(json(), (QJsonObject{{u"zeph.accounts"_s, u"all"_s}}));
}

TEST_F(JsonUserDefaultsTest, aFileThatComesLaterIsLeftAlone) {
    JsonUserDefaults defaults(path());
    put("{\"zeph.accounts\": \"all\"}");
    EXPECT_EQ(printedLines([&] { defaults.set(u"a"_s, 1.0); }), QStringList{keptInMemory()});
    EXPECT_EQ(json(), (QJsonObject{{u"zeph.accounts"_s, u"all"_s}}));
    EXPECT_FALSE(defaults.isSaved());
}

TEST_F(JsonUserDefaultsTest, aFileOfOurOwnIsReplacedThoughThereWasNone) {
    JsonUserDefaults defaults(path());
    defaults.set(u"a"_s, 1.0);
    defaults.set(u"a"_s, 2.0);
    EXPECT_EQ(json(), (QJsonObject{{u"a"_s, 2}}));
}

TEST_F(JsonUserDefaultsTest, threadsMayReadAndWriteSideBySide) {
    JsonUserDefaults defaults(path());
    std::vector<std::thread> threads;
    for (int number = 0; number < 4; ++number) {
        threads.emplace_back([&defaults, number] {
            const auto own = u"own.%1"_s.arg(number);
            for (int round = 0; round < 25; ++round) {
                defaults.set(own, static_cast<double>(round));
                defaults.set(u"shared"_s, QByteArray::number(number));
                defaults.get<QByteArray>(u"shared"_s);
                defaults.remove(u"removed"_s);
            }
        });
    }
    for (std::thread &thread : threads) {
        thread.join();
    }
    const JsonUserDefaults restarted(path());
    for (int number = 0; number < 4; ++number) {
        EXPECT_EQ(restarted.get<double>(u"own.%1"_s.arg(number)), 24.0);
    }
    EXPECT_TRUE(restarted.get<QByteArray>(u"shared"_s));
}

} // namespace

} // namespace zeph
