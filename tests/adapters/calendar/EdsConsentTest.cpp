// SPDX-License-Identifier: MIT
#include "adapters/calendar/EdsEventStore.h"
#include "adapters/kernel/SystemClock.h"
#include "adapters/locale/IcuCalendar.h"
#include "adapters/loop/QtRunLoop.h"
#include "adapters/storage/JsonUserDefaults.h"
#include "settings/Consents.h"
#include "support/Environment.h"
#include "support/FakeUserDefaults.h"
#include "support/WaitUntil.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <cstring>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

/// Stands where the session bus would be and notices whoever knocks.
class ListeningBus {
public:
    ListeningBus() : m_socket(socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
        const QByteArray file = QFile::encodeName(m_folder.filePath(u"bus"_s));
        m_address.sun_family = AF_UNIX;
        std::memcpy(m_address.sun_path, file.constData(), std::size_t(file.size()));
        m_listens = bind(m_socket, asSocketAddress(m_address), sizeof m_address) == 0 &&
                    listen(m_socket, 8) == 0;
        m_variable.set("unix:path=" + file);
    }
    ~ListeningBus() { close(m_socket); }
    ListeningBus(const ListeningBus &) = delete;
    ListeningBus &operator=(const ListeningBus &) = delete;

    bool listens() const { return m_listens; }
    /// Knocks, as a client would.
    void call() const {
        const int caller = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
        EXPECT_EQ(connect(caller, asSocketAddress(m_address), sizeof m_address), 0);
        close(caller);
    }
    bool wasCalled() const {
        pollfd waiting{m_socket, POLLIN, 0};
        return poll(&waiting, 1, 0) != 0;
    }

private:
    static const sockaddr *asSocketAddress(const sockaddr_un &address) {
        return reinterpret_cast<const sockaddr *>(&address); // the C interface's own way
    }

    QTemporaryDir m_folder;
    sockaddr_un m_address{};
    ScopedVariable m_variable{"DBUS_SESSION_BUS_ADDRESS", std::nullopt};
    int m_socket;
    bool m_listens = false;
};

bool isMapped(const char *library) {
    QFile maps(u"/proc/self/maps"_s);
    return maps.open(QFile::ReadOnly) && maps.readAll().contains(library);
}

class EdsConsentTest : public testing::Test {
protected:
    void consent(const char16_t *key, const DefaultsValue &value) {
        defaults.set(QString::fromUtf16(key), value);
    }

    /// Everything that the program ever does with the store.
    void useStore() {
        for (int round = 0; round < 5; ++round) {
            EXPECT_NE(store.authorizationStatus(EntityType::event), EventAccess::fullAccess);
            EXPECT_NE(store.authorizationStatus(EntityType::reminder), EventAccess::fullAccess);
            EXPECT_EQ(store.events({0}, {86'400}, true), std::nullopt);
            store.fetchIncompleteReminders(
                {86'400}, [](const auto &) { ADD_FAILURE() << "answered without consent"; });
            store.requestFullAccess(EntityType::event, AccessWish::ofProgram, [this](bool granted) {
                EXPECT_FALSE(granted);
                ++requestsAnswered;
            });
            runLoopFor(std::chrono::milliseconds(20));
        }
    }

    ListeningBus bus;
    SystemClock clock;
    QtRunLoop loop;
    IcuCalendar calendar{u"en_US"_s, u"Europe/Berlin"_s};
    FakeUserDefaults defaults;
    int requestsAnswered = 0;
    Consents consents{defaults};
    EdsEventStore store{clock,
                        calendar,
                        loop,
                        consents.calendar,
                        consents.reminders,
                        QStringLiteral(ZEPH_EDS_PLUGIN)};
};

} // namespace

TEST_F(EdsConsentTest, withoutConsentNothingIsLoadedAndNobodyIsCalled) {
    ASSERT_TRUE(bus.listens());
    ASSERT_TRUE(QFile::exists(QStringLiteral(ZEPH_EDS_PLUGIN)));
    useStore();
    for (const double state : {0.0, 1.0, 2.0, 2.999, 4.0, -3.0}) {
        consent(u"zeph.consent.calendar", state);
        consent(u"zeph.consent.reminders", state);
        useStore();
    }
    consent(u"zeph.consent.calendar", true);
    consent(u"zeph.consent.reminders", u"3"_s);
    useStore();
    EXPECT_TRUE(waitUntil([&] { return requestsAnswered == 40; }));
    EXPECT_FALSE(isMapped("zeph-eds"));
    EXPECT_FALSE(isMapped("libecal"));
    EXPECT_FALSE(bus.wasCalled());
}

TEST_F(EdsConsentTest, aRequestOfTheProgramChangesNothing) {
    const int writes = defaults.writes;
    useStore();
    EXPECT_EQ(defaults.writes, writes);
}

TEST_F(EdsConsentTest, theStatesAreThoseThatAreStored) {
    EXPECT_EQ(store.authorizationStatus(EntityType::event), EventAccess::notDetermined);
    consent(u"zeph.consent.calendar", 1.0);
    EXPECT_EQ(store.authorizationStatus(EntityType::event), EventAccess::restricted);
    consent(u"zeph.consent.calendar", 2.0);
    EXPECT_EQ(store.authorizationStatus(EntityType::event), EventAccess::denied);
    EXPECT_EQ(store.authorizationStatus(EntityType::reminder), EventAccess::notDetermined);
    consent(u"zeph.consent.reminders", 3.0);
    EXPECT_EQ(store.authorizationStatus(EntityType::reminder), EventAccess::fullAccess);
}

TEST_F(EdsConsentTest, aRequestOfTheUserIsTheAnswer) {
    std::vector<bool> answers;
    const auto note = [&answers](bool granted) { answers.push_back(granted); };
    store.requestFullAccess(EntityType::reminder, AccessWish::ofUser, note);
    EXPECT_TRUE(answers.empty()) << "answered within the call";
    EXPECT_TRUE(waitUntil([&] { return answers.size() == 1; }));
    EXPECT_EQ(consents.reminders.state(), ConsentState::granted);
    EXPECT_EQ(consents.calendar.state(), ConsentState::notDetermined);
    for (const ConsentState state : {ConsentState::denied, ConsentState::restricted}) {
        consents.calendar.set(state);
        store.requestFullAccess(EntityType::event, AccessWish::ofUser, note);
        EXPECT_EQ(consents.calendar.state(), state);
    }
    EXPECT_TRUE(waitUntil([&] { return answers.size() == 3; }));
    EXPECT_EQ(answers, (std::vector{true, false, false}));
}

TEST_F(EdsConsentTest, aConsentThatIsGivenIsToldAtOnce) {
    int changes = 0;
    const Subscription subscription = store.subscribe([&] { ++changes; });
    consents.calendar.set(ConsentState::denied);
    EXPECT_EQ(changes, 0);
    consents.calendar.set(ConsentState::granted);
    EXPECT_EQ(changes, 1);
}

TEST_F(EdsConsentTest, aWithdrawalIsHonouredAfterARestart) {
    const QTemporaryDir folder;
    const QString file = folder.filePath(u"defaults.json"_s);
    const auto plugin = QStringLiteral(ZEPH_EDS_PLUGIN);
    {
        JsonUserDefaults settings(file);
        Consents kept(settings);
        EdsEventStore first{clock, calendar, loop, kept.calendar, kept.reminders, plugin};
        kept.calendar.set(ConsentState::granted);
        EXPECT_EQ(first.authorizationStatus(EntityType::event), EventAccess::fullAccess);
        kept.calendar.set(ConsentState::denied);
    }
    JsonUserDefaults settings(file);
    Consents kept(settings);
    EdsEventStore second{clock, calendar, loop, kept.calendar, kept.reminders, plugin};
    EXPECT_EQ(second.authorizationStatus(EntityType::event), EventAccess::denied);
    EXPECT_EQ(second.events({0}, {86'400}, true), std::nullopt);
    runLoopFor(std::chrono::milliseconds(50));
    EXPECT_FALSE(isMapped("zeph-eds"));
    EXPECT_FALSE(bus.wasCalled());
}

TEST_F(EdsConsentTest, aCallAndALoadedLibraryWouldBeNoticed) {
    EXPECT_TRUE(isMapped("libQt6Core"));
    EXPECT_FALSE(bus.wasCalled());
    bus.call();
    EXPECT_TRUE(waitUntil([&] { return bus.wasCalled(); }));
}

} // namespace zeph
