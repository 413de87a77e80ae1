// SPDX-License-Identifier: MIT
#include "adapters/calendar/EdsServerFixture.h"

#include <QProcess>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

/// Hears every message of the bus.
class BusMonitor {
public:
    BusMonitor() {
        m_process.start(u"dbus-monitor"_s, {u"--session"_s});
        EXPECT_TRUE(m_process.waitForStarted());
        EXPECT_TRUE(waitUntil([this] { return count("NameAcquired") > 0; }));
    }
    ~BusMonitor() {
        m_process.kill();
        m_process.waitForFinished();
    }
    BusMonitor(const BusMonitor &) = delete;
    BusMonitor &operator=(const BusMonitor &) = delete;

    /// How often `text` went over the bus so far.
    qsizetype count(const char *text) {
        m_heard += m_process.readAllStandardOutput();
        return m_heard.count(text);
    }

private:
    QProcess m_process;
    QByteArray m_heard;
};

class EdsPrivacyTest : public EdsServerFixture {
protected:
    CalendarOwner owner{E_CAL_CLIENT_SOURCE_TYPE_EVENTS};
};

} // namespace

TEST_F(EdsPrivacyTest, aTitleIsNeverSentWhileItsPreferenceIsOff) {
    ASSERT_TRUE(owner.add("s", "SUMMARY:Unspeakable\nDTSTART:20240507T080000Z\n"
                               "DTEND:20240507T083000Z"));
    const CalendarEvent untitled{false, at(2024, 5, 7, 10), std::nullopt};
    const auto comesUntitled = [&] {
        return waitUntil([&] { return eventsOf(2024, 5, 7, false) == std::vector{untitled}; });
    };
    BusMonitor monitor;
    EXPECT_TRUE(comesUntitled());
    ASSERT_TRUE(waitUntil([&] { return monitor.count("DTSTART:20240507T080000Z") == 1; }));
    EXPECT_EQ(monitor.count("Unspeakable"), 0);

    ASSERT_TRUE(becomes(2024, 5, 7, {{false, at(2024, 5, 7, 10), u"Unspeakable"_s}}));
    EXPECT_TRUE(waitUntil([&] { return monitor.count("Unspeakable") == 1; }))
        << "the monitor must hear titles";

    // Switched off again, it is forgotten at once and never sent again.
    EXPECT_EQ(eventsOf(2024, 5, 7, false), std::vector{untitled});
    ASSERT_TRUE(waitUntil([&] { return monitor.count("DTSTART:20240507T080000Z") == 3; }));
    EXPECT_TRUE(comesUntitled());
    EXPECT_EQ(monitor.count("Unspeakable"), 1);
}

} // namespace zeph
