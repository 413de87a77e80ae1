// SPDX-License-Identifier: MIT
#pragma once

#include "DatabaseFile.h"
#include "Program.h"
#include "ScreenReader.h"

#include "adapters/bus/PrivateBus.h"
#include "support/QtPrinters.h"
#include "support/WaitUntil.h"
#include "support/XTestClient.h"
#include "support/XvfbSession.h"

#include <QDateTime>
#include <QDir>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <stdexcept>

namespace zeph {

inline constexpr std::uint32_t kBareScreen = 0xFF00FF;
inline constexpr std::chrono::seconds kPatience{40};

/// Text recognition may mistake a digit; it gets those of the next minute too.
inline constexpr std::chrono::seconds kClockPatience{100};

/// A display that is bare but for a loud colour, a session bus and a home folder, all for one test.
class TaviTest : public testing::Test {
protected:
    TaviTest() : TaviTest(XvfbSession::Options()) {}
    explicit TaviTest(const XvfbSession::Options &screen) : session(screen) {
        if (!session.isRunning()) {
            throw std::runtime_error("Xvfb did not start");
        }
        client = std::make_unique<XTestClient>(session.display());
        session.run(
            {QStringLiteral("xsetroot"), QStringLiteral("-solid"), QStringLiteral("#FF00FF")});
        for (const char *folder : {"home", "config", "data", "runtime"}) {
            QDir(home.path()).mkdir(QLatin1String(folder));
        }
        QFile::setPermissions(path("runtime"),
                              QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        writeSettings("{}");
    }

    QString path(const char *below) const { return home.filePath(QLatin1String(below)); }

    /// The environment of the program. Its local time is around noon whatever the time is, so that
    /// no day ends within a test.
    QProcessEnvironment environment() const {
        QProcessEnvironment variables;
        const auto set = [&](const char *name, const QString &value) {
            variables.insert(QLatin1String(name), value);
        };
        set("PATH", qEnvironmentVariable("PATH"));
        set("LC_ALL", QStringLiteral("C.UTF-8"));
        set("TZ", QStringLiteral("Etc/GMT%1%2")
                      .arg(hoursEast < 0 ? QStringLiteral("+") : QStringLiteral("-"))
                      .arg(std::abs(hoursEast)));
        set("HOME", path("home"));
        set("XDG_CONFIG_HOME", path("config"));
        set("XDG_DATA_HOME", path("data"));
        set("XDG_RUNTIME_DIR", path("runtime"));
        set("DISPLAY", QString::fromLatin1(session.display()));
        set("DBUS_SESSION_BUS_ADDRESS", bus.address());
        // Whatever would leave the machine ends at once at a port that nobody listens to.
        set("https_proxy", QStringLiteral("http://127.0.0.1:9"));
        set("DBUS_SYSTEM_BUS_ADDRESS", QStringLiteral("unix:path=/nonexistent/bus"));
        return variables;
    }

    QString localTime() const {
        return QDateTime::currentDateTimeUtc()
            .time()
            .addSecs(hoursEast * 3600)
            .toString(QStringLiteral("HH:mm"));
    }

    /// Settings of a user who went through the first-run window, unless they tell otherwise.
    void writeSettings(const QByteArray &json) const {
        QJsonObject settings = QJsonDocument::fromJson(json).object();
        if (!settings.contains(QStringLiteral("zeph.onboarded"))) {
            settings.insert(QStringLiteral("zeph.onboarded"), true);
        }
        writeSettingsFile(QJsonDocument(settings).toJson());
    }

    void writeFile(const QString &name, const QByteArray &bytes) const {
        QDir().mkpath(QFileInfo(name).path());
        QFile file(name);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly)) << qPrintable(name);
        ASSERT_EQ(file.write(bytes), bytes.size());
    }

    /// A program that is found before others of its name with `pathOfTools`.
    void writeTool(const char *name, const QByteArray &script) const {
        const QString tool = path("bin/") + QLatin1String(name);
        writeFile(tool, "#!/bin/sh\n" + script + '\n');
        QFile::setPermissions(tool, QFile::ReadOwner | QFile::ExeOwner);
    }
    QString pathOfTools() const {
        return path("bin") + QLatin1Char(':') + qEnvironmentVariable("PATH");
    }

    /// The bytes of the file of settings, whatever they are.
    void writeSettingsFile(const QByteArray &bytes) const {
        writeFile(path("config/Zeph/defaults.json"), bytes);
    }

    void startWindowManager() {
        if (!session.startOpenbox()) {
            throw std::runtime_error("openbox did not start");
        }
    }

    QImage screenshot() const { return client->screenshot(client->geometry(client->root())); }

    /// True once the screen is painted to its last pixel.
    bool waitForWallpaper() const {
        return waitUntil([this] { return countBarePixels() == 0; }, kPatience);
    }

    qint64 countBarePixels() const {
        const QImage image = screenshot();
        qint64 count = image.isNull() ? 1 : 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                count += (image.pixel(x, y) & 0xFFFFFF) == kBareScreen ? 1 : 0;
            }
        }
        return count;
    }

    /// True once `words` can be read on the screen at least `times` times.
    bool waitForWords(const QString &words, int times = 1) {
        const bool found = waitUntil(
            [&] {
                lastWords = readWords(screenshot());
                return lastWords.count(words) >= times;
            },
            kPatience);
        return found;
    }

    bool isWallpaper(xcb_window_t window) const {
        return client->atomNames(window, "_NET_WM_WINDOW_TYPE")
            .contains("_NET_WM_WINDOW_TYPE_DESKTOP");
    }

    qsizetype wallpaperCount() const {
        const QList<xcb_window_t> all = client->findAll("Tavi");
        return std::count_if(all.begin(), all.end(),
                             [this](xcb_window_t one) { return isWallpaper(one); });
    }

    QString databasePath() const { return path("data/Zeph/zeph.sqlite"); }
    QString stored(const char *sql) const {
        return databaseValue(databasePath(), QLatin1String(sql));
    }

    const QTemporaryDir home;
    PrivateBus bus;
    XvfbSession session;
    std::unique_ptr<XTestClient> client;
    QString lastWords;
    const int hoursEast = 12 - QDateTime::currentDateTimeUtc().time().hour();
};

} // namespace zeph
