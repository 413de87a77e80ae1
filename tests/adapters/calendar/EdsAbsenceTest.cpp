// SPDX-License-Identifier: MIT
#include "adapters/calendar/EdsDaemonFixture.h"

#include <QFile>
#include <QTemporaryDir>

#include <ctime>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

class EdsAbsenceTest : public EdsDaemonFixture {
protected:
    void useStoreOf(const QString &plugin) {
        store = std::make_unique<EdsEventStore>(clock, calendar, loop, consents.calendar,
                                                consents.reminders, plugin, quickPacing());
    }

    /// Asks the store for a while; it must neither answer nor print anything.
    void expectSilence() {
        bool answered = false;
        const Subscription subscription = store->subscribe([&] { answered = true; });
        testing::internal::CaptureStdout();
        testing::internal::CaptureStderr();
        for (int i = 0; i < 10; ++i) {
            const auto events = eventsOf(2024, 5, 7);
            EXPECT_TRUE(!events || events->empty());
            store->fetchIncompleteReminders(
                at(2024, 5, 8), [&](const auto &due) { EXPECT_TRUE(!due || due->empty()); });
            runLoopFor(std::chrono::milliseconds(30));
        }
        store.reset();
        EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
        EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
        EXPECT_FALSE(answered);
    }

    QTemporaryDir folder;
};

} // namespace

TEST_F(EdsAbsenceTest, withoutABusThereAreNoEventsAndNoWords) {
    const ScopedVariable nowhere("DBUS_SESSION_BUS_ADDRESS", QByteArray("unix:path=/nonexistent"));
    expectSilence();
}

TEST_F(EdsAbsenceTest, withoutAServerThereAreNoEventsAndNoWords) {
    expectSilence();
}

TEST_F(EdsAbsenceTest, aServerThatComesLaterIsFound) {
    EXPECT_EQ(eventsOf(2024, 5, 7), std::nullopt);
    runLoopFor(std::chrono::milliseconds(100));
    setEventAt(7);
    daemon.appear();
    EXPECT_TRUE(comesToHaveEventAt(7));
}

TEST_F(EdsAbsenceTest, aMissingPlugInIsSilent) {
    useStoreOf(folder.filePath(u"zeph-eds.so"_s));
    expectSilence();
}

TEST_F(EdsAbsenceTest, aFileThatIsNoPlugInIsSilent) {
    QFile file(folder.filePath(u"zeph-eds.so"_s));
    ASSERT_TRUE(file.open(QFile::WriteOnly));
    file.write("not a library");
    file.close();
    useStoreOf(file.fileName());
    expectSilence();
    useStoreOf(u"libm.so.6"_s); // a library, but no plug-in
    expectSilence();
}

TEST_F(EdsAbsenceTest, aPlugInWhoseLibrariesAreMissingIsSilent) {
    QFile plugin(QStringLiteral(ZEPH_EDS_PLUGIN));
    ASSERT_TRUE(plugin.open(QFile::ReadOnly));
    QByteArray bytes = plugin.readAll();
    ASSERT_TRUE(bytes.contains("libecal-2.0.so"));
    bytes.replace("libecal-2.0.so", "libnone-2.0.so");
    QFile broken(folder.filePath(u"zeph-eds.so"_s));
    ASSERT_TRUE(broken.open(QFile::WriteOnly));
    broken.write(bytes);
    broken.close();
    useStoreOf(broken.fileName());
    expectSilence();
}

TEST_F(EdsAbsenceTest, waitingForAServerCostsNextToNothing) {
    makeStore(EdsPacing());
    EXPECT_EQ(eventsOf(2024, 5, 7), std::nullopt);
    double least = 1;
    for (int i = 0; i < 10 && least > 0.2; ++i) { // at first the libraries are being loaded
        const std::clock_t before = std::clock();
        const auto began = std::chrono::steady_clock::now();
        runLoopFor(std::chrono::milliseconds(200));
        const double used = double(std::clock() - before) / CLOCKS_PER_SEC;
        const std::chrono::duration<double> passed = std::chrono::steady_clock::now() - began;
        least = std::min(least, used / passed.count());
    }
    EXPECT_LT(least, 0.2) << "of one processor; whatever spins uses all of it";
}

} // namespace zeph
