// SPDX-License-Identifier: MIT
#include "adapters/storage/LinuxDesktopFolder.h"

#include "adapters/storage/FolderTree.h"
#include "support/QtPrinters.h"

#include <sys/socket.h>
#include <sys/un.h>
#include <sys/wait.h>

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

/// The entries in the system's order; absent where the folder can't be read.
std::optional<std::vector<FolderEntry>> listFolder(const QByteArray &path) {
    std::vector<FolderEntry> entries;
    const bool isWhole = LinuxDesktopFolder(path).visitEntries(
        path, [&](const FolderEntry &entry) { entries.push_back(entry); });
    return isWhole ? std::optional(entries) : std::nullopt;
}

/// The listing in the order of the names; the system's own is arbitrary.
std::vector<FolderEntry> sortedListing(const QByteArray &path) {
    auto entries = listFolder(path);
    EXPECT_TRUE(entries.has_value());
    std::vector<FolderEntry> sorted = entries.value_or(std::vector<FolderEntry>());
    std::sort(sorted.begin(), sorted.end(),
              [](const FolderEntry &a, const FolderEntry &b) { return a.name < b.name; });
    return sorted;
}

using Entries = std::vector<FolderEntry>;

TEST(LinuxDesktopFolder, tellsWhereItIs) {
    EXPECT_EQ(LinuxDesktopFolder("/desk").url(), "/desk");
    EXPECT_EQ(LinuxDesktopFolder(std::nullopt).url(), std::nullopt);
}

TEST(LinuxDesktopFolder, ofAnEmptyFolderIsEmpty) {
    const FolderTree tree;
    EXPECT_EQ(listFolder(tree.path()), Entries{});
}

TEST(LinuxDesktopFolder, tellsFilesFromFoldersWithTheFilesSizes) {
    const FolderTree tree;
    tree.addFile("a.txt", 1234);
    tree.addFile("empty", 0);
    tree.addFolder("work");
    tree.addFile("work/inside", 7);
    EXPECT_EQ(sortedListing(tree.path()), (Entries{{u"a.txt"_s, false, 1234},
                                                   {u"empty"_s, false, 0},
                                                   {u"work"_s, true, std::nullopt}}));
}

TEST(LinuxDesktopFolder, leavesOutEveryHiddenEntry) {
    const FolderTree tree;
    tree.addFile(".dot", 1);
    tree.addFolder(".folder");
    tree.addFile("listed", 1);
    tree.addFile("also listed", 1);
    tree.addFile("shown", 1);
    tree.addFile(".hidden", 0);
    tree.write(".hidden", "listed\nalso listed\nnot there\nshow\n");
    EXPECT_EQ(sortedListing(tree.path()), (Entries{{u"shown"_s, false, 1}}));
}

TEST(LinuxDesktopFolder, doesNotWaitForAPipeInPlaceOfTheHiddenList) {
    const FolderTree tree;
    tree.addPipe(".hidden");
    tree.addFile("shown", 1);
    EXPECT_EQ(sortedListing(tree.path()), (Entries{{u"shown"_s, false, 1}}));
}

TEST(LinuxDesktopFolder, doesNotFollowLinks) {
    const FolderTree tree;
    tree.addFolder("elsewhere");
    tree.addLink("to folder", "elsewhere");
    tree.addLink("to nothing", "nowhere");
    tree.addLink("to itself", "to itself");
    tree.addLink("ring 1", "ring 2");
    tree.addLink("ring 2", "ring 1");
    EXPECT_EQ(sortedListing(tree.path()), (Entries{{u"elsewhere"_s, true, std::nullopt},
                                                   {u"ring 1"_s, false, 6},
                                                   {u"ring 2"_s, false, 6},
                                                   {u"to folder"_s, false, 9},
                                                   {u"to itself"_s, false, 9},
                                                   {u"to nothing"_s, false, 7}}));
}

TEST(LinuxDesktopFolder, doesNotOpenPipesNorSockets) {
    const FolderTree tree;
    tree.addPipe("pipe");
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    const QByteArray name = tree.path("socket");
    ASSERT_LT(static_cast<std::size_t>(name.size()), sizeof(address.sun_path));
    std::copy(name.begin(), name.end(), &address.sun_path[0]);
    const int listener = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    ASSERT_EQ(::bind(listener, reinterpret_cast<const sockaddr *>(&address), sizeof(address)), 0);
    EXPECT_EQ(sortedListing(tree.path()),
              (Entries{{u"pipe"_s, false, std::nullopt}, {u"socket"_s, false, std::nullopt}}));
    ::close(listener);
}

TEST(LinuxDesktopFolder, showsNamesThatAreNotUtf8WithReplacementCharacters) {
    const FolderTree tree;
    tree.addFile("B\xFCro.PNG", 5);
    tree.addFile("\xFF\xFE", 6);
    EXPECT_EQ(sortedListing(tree.path()),
              (Entries{{u"B\uFFFDro.PNG"_s, false, 5}, {u"\uFFFD\uFFFD"_s, false, 6}}));
}

TEST(LinuxDesktopFolder, holdsTenThousandFiles) {
    const FolderTree tree;
    for (int number = 0; number < 10'000; ++number) {
        tree.addFile("Screenshot " + QByteArray::number(number) + ".png", 0);
    }
    const auto entries = listFolder(tree.path());
    ASSERT_TRUE(entries);
    EXPECT_EQ(entries->size(), 10'000U);
}

TEST(LinuxDesktopFolder, isAbsentWhereThereIsNoFolder) {
    const FolderTree tree;
    tree.addFile("file", 1);
    tree.addPipe("pipe");
    tree.addLink("ring", "ring");
    for (const char *name : {"vanished", "file", "pipe", "ring"}) {
        EXPECT_EQ(listFolder(tree.path(name)), std::nullopt) << name;
    }
    EXPECT_EQ(listFolder(QByteArray()), std::nullopt);
}

TEST(LinuxDesktopFolder, followsALinkInThePlaceOfTheFolderItself) {
    const FolderTree tree;
    tree.addFolder("real");
    tree.addFile("real/a", 3);
    tree.addLink("desk", "real");
    EXPECT_EQ(sortedListing(tree.path("desk")), (Entries{{u"a"_s, false, 3}}));
}

TEST(LinuxDesktopFolder, isAbsentOnceTheFolderWasRemoved) {
    const FolderTree tree;
    tree.addFolder("desk");
    EXPECT_EQ(listFolder(tree.path("desk")), Entries{});
    ASSERT_EQ(::rmdir(tree.path("desk").constData()), 0);
    EXPECT_EQ(listFolder(tree.path("desk")), std::nullopt);
}

TEST(LinuxDesktopFolder, leavesNoFileOpen) {
    const FolderTree tree;
    tree.addFile(".hidden", 1);
    const int before = ::dup(0);
    ::close(before);
    for (int round = 0; round < 100; ++round) {
        listFolder(tree.path());
        listFolder(tree.path("vanished"));
    }
    const int after = ::dup(0);
    ::close(after);
    EXPECT_EQ(before, after);
}

/// Runs `check` as a user for whom permissions count; root has them all.
template <typename Check>
int exitCodeAsNobody(Check check) {
    const pid_t child = ::fork();
    if (child == 0) {
        const bool isNobody = ::getuid() != 0 || (::setgid(65534) == 0 && ::setuid(65534) == 0);
        ::_exit(isNobody ? check() : 100);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

TEST(LinuxDesktopFolder, isAbsentWithoutTheRightToReadTheFolder) {
    const FolderTree tree;
    tree.addFolder("desk");
    tree.addFile("desk/a", 3);
    ASSERT_EQ(::chmod(tree.path().constData(), 0755), 0);
    const QByteArray desk = tree.path("desk");
    const auto isListed = [&] { return listFolder(desk) ? 1 : 2; };
    ASSERT_EQ(::chmod(desk.constData(), 0755), 0);
    EXPECT_EQ(exitCodeAsNobody(isListed), 1);
    ASSERT_EQ(::chmod(desk.constData(), 0311), 0);
    EXPECT_EQ(exitCodeAsNobody(isListed), 2);
    ASSERT_EQ(::chmod(desk.constData(), 0755), 0);
}

TEST(LinuxDesktopFolder, tellsTheNamesWhereTheirValuesAreRefused) {
    const FolderTree tree;
    tree.addFolder("desk");
    tree.addFile("desk/a.png", 3);
    tree.addFolder("desk/b");
    ASSERT_EQ(::chmod(tree.path().constData(), 0755), 0);
    const QByteArray desk = tree.path("desk");
    ASSERT_EQ(::chmod(desk.constData(), 0644), 0); // to be read, but not to be entered
    EXPECT_EQ(exitCodeAsNobody([&] {
                  return sortedListing(desk) == Entries{{u"a.png"_s, std::nullopt, std::nullopt},
                                                        {u"b"_s, true, std::nullopt}}
                             ? 1
                             : 2;
              }),
              1);
    ASSERT_EQ(::chmod(desk.constData(), 0755), 0);
}

} // namespace

} // namespace zeph
