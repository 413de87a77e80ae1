// SPDX-License-Identifier: MIT
#include "platform/linux/folder/LinuxDesktopFolder.h"

#include "support/ManualRunLoop.h"
#include "support/ManualTaskExecutor.h"

#include <gtest/gtest.h>

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

using Entries = std::vector<FolderEntry>;

class DesktopFolderInTasks : public testing::Test {
protected:
    std::unique_ptr<LinuxDesktopFolder> makeFolder() {
        return std::make_unique<LinuxDesktopFolder>(QByteArray("/desk"), executor, loop,
                                                    [this](const QByteArray &path) {
                                                        listed.push_back(path);
                                                        return content;
                                                    });
    }
    std::optional<Entries> ask() { return folder->entries("/desk"); }
    void finishTasks() {
        executor.runAll();
        loop.drain();
    }

    ManualClock clock;
    ManualRunLoop loop{clock};
    ManualTaskExecutor executor;
    std::optional<Entries> content = Entries{{u"a"_s, false, 1}};
    std::vector<QByteArray> listed;
    std::unique_ptr<LinuxDesktopFolder> folder = makeFolder();
};

TEST_F(DesktopFolderInTasks, tellsWhereItIs) {
    EXPECT_EQ(folder->url(), "/desk");
    const LinuxDesktopFolder none(std::nullopt, executor, loop, {});
    EXPECT_EQ(none.url(), std::nullopt);
}

TEST_F(DesktopFolderInTasks, listsNothingUnasked) {
    EXPECT_EQ(executor.waiting(), 0U);
}

TEST_F(DesktopFolderInTasks, answersWithWhatTheLastQuestionFound) {
    EXPECT_EQ(ask(), std::nullopt);
    EXPECT_TRUE(listed.empty()) << "it is listed in a task";
    finishTasks();
    EXPECT_EQ(listed, std::vector<QByteArray>{"/desk"});
    EXPECT_EQ(ask(), content);
    EXPECT_EQ(ask(), std::nullopt) << "a listing is handed out once";
}

TEST_F(DesktopFolderInTasks, listsOneAtATimeHoweverOftenItIsAsked) {
    for (int question = 0; question < 100; ++question) {
        EXPECT_EQ(ask(), std::nullopt);
    }
    EXPECT_EQ(executor.waiting(), 1U) << "a disk that hangs holds one thread";
    finishTasks();
    ask();
    EXPECT_EQ(executor.waiting(), 1U) << "the next question lists anew";
}

TEST_F(DesktopFolderInTasks, tellsWhenAListingIsThere) {
    std::vector<std::optional<Entries>> told;
    folder->setEntriesHandler([&] { told.push_back(ask()); });
    EXPECT_EQ(ask(), std::nullopt);
    EXPECT_TRUE(told.empty());
    finishTasks();
    ASSERT_EQ(told.size(), 1U);
    EXPECT_EQ(told.front(), content);
    EXPECT_EQ(executor.waiting(), 0U) << "the handler's own question lists nothing";
    EXPECT_EQ(ask(), std::nullopt);
    EXPECT_EQ(executor.waiting(), 1U);
}

TEST_F(DesktopFolderInTasks, tellsNothingOfAFailure) {
    int told = 0;
    folder->setEntriesHandler([&] { ++told; });
    content.reset();
    ask();
    finishTasks();
    EXPECT_EQ(told, 0);
    content = Entries{};
    EXPECT_EQ(ask(), std::nullopt);
    finishTasks();
    EXPECT_EQ(told, 1) << "a folder that can be read again is told of";
    EXPECT_EQ(ask(), Entries{}) << "an empty folder is no failure";
}

TEST_F(DesktopFolderInTasks, answersOnlyForTheFolderAskedFor) {
    folder->entries("/other");
    finishTasks();
    EXPECT_EQ(ask(), std::nullopt);
}

TEST_F(DesktopFolderInTasks, mayEndBeforeItsTask) {
    int told = 0;
    folder->setEntriesHandler([&] { ++told; });
    ask();
    folder.reset();
    finishTasks();
    EXPECT_EQ(listed.size(), 1U);
    EXPECT_EQ(told, 0);
}

} // namespace

} // namespace zeph
