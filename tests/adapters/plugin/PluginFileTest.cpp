// SPDX-License-Identifier: MIT
#include "adapters/plugin/PluginFile.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <utility>

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

using AnyFunction = void (*)();

constexpr const char *kOne = "zephMakeSecretStore";
constexpr const char *kOther = "zephMakeHttpClient";

class PluginFileTest : public testing::Test {
protected:
    void put(const QString &plugin) const {
        QFile::remove(path);
        ASSERT_TRUE(QFile::copy(plugin, path));
    }

    const QTemporaryDir folder; // of each test its own: what is loaded stays
    const QString path = folder.filePath(u"plugin.so"_s);
};

TEST_F(PluginFileTest, isLoadedByItsFirstUse) {
    put(QStringLiteral(ZEPH_ONE_PLUGIN));
    PluginFile plugin(path);
    EXPECT_NE(plugin.function<AnyFunction>(kOne), nullptr);
    EXPECT_EQ(plugin.function<AnyFunction>("somethingElse"), nullptr);
}

TEST_F(PluginFileTest, isThereThoughAnUpgradeTookItAway) {
    put(QStringLiteral(ZEPH_ONE_PLUGIN));
    PluginFile plugin(path);
    ASSERT_TRUE(QFile::remove(path));
    const auto first = plugin.function<AnyFunction>(kOne);
    EXPECT_NE(first, nullptr);
    EXPECT_EQ(plugin.function<AnyFunction>(kOne), first);
}

TEST_F(PluginFileTest, isTheOneOfTheStartThoughAnotherTookItsPlace) {
    put(QStringLiteral(ZEPH_ONE_PLUGIN));
    PluginFile plugin(path);
    put(QStringLiteral(ZEPH_OTHER_PLUGIN));
    EXPECT_NE(plugin.function<AnyFunction>(kOne), nullptr);
    EXPECT_EQ(plugin.function<AnyFunction>(kOther), nullptr);
}

TEST_F(PluginFileTest, isNotTakenForAnEarlierOneOfTheSameNumber) {
    for (const auto &[library, name] : {std::pair{QStringLiteral(ZEPH_ONE_PLUGIN), kOne},
                                        std::pair{QStringLiteral(ZEPH_OTHER_PLUGIN), kOther}}) {
        put(library);
        PluginFile plugin(path);
        ASSERT_TRUE(QFile::remove(path));
        EXPECT_NE(plugin.function<AnyFunction>(name), nullptr) << name;
    }
}

TEST_F(PluginFileTest, mayComeLater) {
    PluginFile plugin(path);
    EXPECT_EQ(plugin.function<AnyFunction>(kOne), nullptr);
    put(QStringLiteral(ZEPH_ONE_PLUGIN));
    EXPECT_NE(plugin.function<AnyFunction>(kOne), nullptr);
}

TEST(InstalledPlugin, isInTheFolderOfTheVersionUnlessItIsBesideTheProgram) {
    const QString path = PluginFile::installed(u"zeph-none.so"_s);
    EXPECT_TRUE(QDir::cleanPath(path).endsWith(u"/zeph-none.so"_s));
    EXPECT_TRUE(path.contains(u"/tavi/"_s));
}

} // namespace

} // namespace zeph
