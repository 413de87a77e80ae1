// SPDX-License-Identifier: MIT
#include "TaviFixture.h"

#include "adapters/calendar/CalendarOwner.h"
#include "adapters/calendar/CalendarServer.h"
#include "adapters/places/FakeGeoClue.h"
#include "adapters/power/UPowerFixture.h"

#include <QJsonDocument>
#include <QJsonObject>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

constexpr auto consentGiven = 3;

/// The widgets that this test looks at, alone on the wallpaper, so that all have room.
QByteArray placements() {
    QJsonObject off;
    for (const char *widget : {"quote", "onThisDay", "iss", "appRanking", "rhythm", "topApp",
                               "progress", "airQuality"}) {
        off[QLatin1String(widget)] = u"off"_s;
    }
    off[u"desktop"_s] = u"always"_s;
    off[u"reminders"_s] = u"always"_s;
    return QJsonDocument(off).toJson(QJsonDocument::Compact).toBase64();
}

} // namespace

/// The program on a machine with a battery, peripherals, a calendar server and a location service.
class SensesTest : public TaviTest {
protected:
    void SetUp() override {
        ASSERT_TRUE(server.isRunning());
        allowEverything();
        playPower();
        playPosition();
        fillCalendar();
        fillDesktop();
    }

    QProcessEnvironment sensesEnvironment() const {
        QProcessEnvironment variables = environment();
        variables.insert(u"DBUS_SESSION_BUS_ADDRESS"_s, QString::fromLatin1(server.address()));
        variables.insert(u"DBUS_SYSTEM_BUS_ADDRESS"_s, systemBus.address());
        return variables;
    }

private:
    void allowEverything() const {
        QJsonObject settings;
        for (const char *sense : {"calendar", "reminders", "location"}) {
            settings[u"zeph.consent."_s + QLatin1String(sense)] = consentGiven;
        }
        settings[u"zeph.widgets.placements"_s] =
            QJsonObject{{u"data"_s, QString::fromLatin1(placements())}};
        writeSettings(QJsonDocument(settings).toJson());
    }

    void playPower() {
        upower.set(u"/org/freedesktop/UPower"_s, u"org.freedesktop.UPower"_s,
                   {{u"OnBattery"_s, true}});
        addDevice(u"DisplayDevice"_s, {{u"Type"_s, 2U},
                                       {u"PowerSupply"_s, true},
                                       {u"IsPresent"_s, true},
                                       {u"State"_s, 2U},
                                       {u"Percentage"_s, 63.0},
                                       {u"TimeToEmpty"_s, qlonglong(7200)},
                                       {u"TimeToFull"_s, qlonglong(0)}});
        addDevice(u"mouse"_s, peripheral(u"Travel Mouse"_s, 71));
        addDevice(u"headset"_s, peripheral(u"Studio Headset"_s, 38));
        upower.appear();
    }
    void addDevice(const QString &name, const QVariantMap &properties) {
        upower.set(upowerDevice(name), u"org.freedesktop.UPower.Device"_s, properties);
    }
    static QVariantMap peripheral(const QString &model, double percentage) {
        return {{u"Type"_s, 5U},     {u"PowerSupply"_s, false}, {u"IsPresent"_s, true},
                {u"Model"_s, model}, {u"BatteryLevel"_s, 1U},   {u"Percentage"_s, percentage}};
    }

    /// A place on the noon side of the earth, where the sun is still to set.
    void playPosition() {
        geoclue.atStart = {
            {u"Latitude"_s, 40.0}, {u"Longitude"_s, hoursEast * 15.0}, {u"Accuracy"_s, 5000.0}};
        geoclue.appear();
    }

    void fillCalendar() {
        const QDateTime soon = QDateTime::currentDateTimeUtc().addSecs(90 * 60);
        meetings = std::make_unique<CalendarOwner>(E_CAL_CLIENT_SOURCE_TYPE_EVENTS);
        ASSERT_TRUE(meetings->add("review", "SUMMARY:Design review\nDTSTART:" + stamp(soon) +
                                                "\nDURATION:PT30M"));
        tasks = std::make_unique<CalendarOwner>(E_CAL_CLIENT_SOURCE_TYPE_TASKS);
        const QByteArray today = soon.addSecs(hoursEast * 3600).toString(u"yyyyMMdd"_s).toLatin1();
        ASSERT_TRUE(tasks->add("water", "SUMMARY:Water the tomatoes\nDUE;VALUE=DATE:" + today));
        ASSERT_TRUE(tasks->add("rent", "SUMMARY:Pay the rent\nDUE;VALUE=DATE:20240101"));
    }
    static QByteArray stamp(const QDateTime &time) {
        return time.toString(u"yyyyMMdd'T'HHmmss'Z'"_s).toLatin1();
    }

    void fillDesktop() const {
        QDir(path("home")).mkdir(u"Desktop"_s);
        for (const char *name : {"Screenshot 1.png", "Screenshot 2.png", "plan.pdf"}) {
            QFile file(path("home/Desktop/") + QLatin1String(name));
            ASSERT_TRUE(file.open(QIODevice::WriteOnly));
            file.write("content");
        }
    }

    CalendarServer server;
    PrivateBus systemBus;
    FakePowerDaemon upower{systemBus.address(), u"org.freedesktop.UPower"_s};
    FakeGeoClue geoclue{systemBus.address()};
    std::unique_ptr<CalendarOwner> meetings;
    std::unique_ptr<CalendarOwner> tasks;
};

TEST_F(SensesTest, allReachThePicture) {
    startWindowManager();
    const Program tavi(sensesEnvironment());
    ASSERT_TRUE(waitForWallpaper());
    const QStringList expected{
        u"63%"_s,           u"Travel Mouse 71%"_s, u"Studio Headset 38%"_s, u"Next meeting at"_s,
        u"1 due today"_s,   u"1 overdue"_s,        u"Pay the rent"_s,       u"Water the tomatoes"_s,
        u"2 screenshots"_s, u"1 document"_s,       u"Sunset in"_s};
    QStringList missing = expected;
    waitUntil(
        [&] {
            lastWords = readWords(screenshot());
            missing.erase(
                std::remove_if(missing.begin(), missing.end(),
                               [&](const QString &words) { return lastWords.contains(words); }),
                missing.end());
            return missing.isEmpty();
        },
        std::chrono::seconds(90));
    EXPECT_TRUE(missing.isEmpty()) << missing.join(u", "_s).toStdString() << " not among\n"
                                   << lastWords.toStdString();
    EXPECT_FALSE(lastWords.contains(u"Design review"_s)) << "titles stay private by default";
}

} // namespace zeph
