// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/bus/PrivateBus.h"

#include <QImage>
#include <QProcessEnvironment>

namespace zeph {

/// Our wallpaper as Plasma shows it, on an output of 80 × 60 without a name: in a program of its
/// own, since it is written for another version of the toolkit. `room` holds what it works with.
class PlasmaStage {
public:
    PlasmaStage(const QString &room, const QString &pictures, const QString &kept) : m_room(room) {
        write(QStringLiteral("start"), "1");
        write(QStringLiteral("stage.qml"),
              QString::fromLatin1(R"(
import QtQuick 2.15
import QtQuick.Window 2.15
Item {
    id: stage
    width: 80
    height: 60
    property var wallpaper: ({ configuration: { Folder: "file://%2", Kept: "file://%4", Start: "" } })
    function read() {
        const request = new XMLHttpRequest();
        request.open("GET", "file://%1/start", false);
        request.send();
        if (request.responseText !== wallpaper.configuration.Start)
            wallpaper = { configuration: { Folder: "file://%2", Kept: "file://%4",
                                           Start: request.responseText } };
        stage.grabToImage(function (seen) {
            seen.saveToFile("%1/seen.png");
        });
    }
    property bool isDrawn: false // a picture that loads before makes the toolkit draw by OpenGL
    Connections {
        target: stage.Window.window
        function onFrameSwapped() { stage.isDrawn = true; }
    }
    Loader {
        anchors.fill: parent
        source: stage.isDrawn ? "file://%3/contents/ui/main.qml" : ""
    }
    Timer { interval: 30; running: true; repeat: true; onTriggered: stage.read() }
}
)")
                  .arg(room, pictures, QStringLiteral(ZEPH_PLASMA_PACKAGE), kept)
                  .toUtf8());
        auto environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("QT_SELECT"), QStringLiteral("qt5"));
        environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
        environment.insert(QStringLiteral("QT_QUICK_BACKEND"), QStringLiteral("software"));
        environment.insert(QStringLiteral("QML_XHR_ALLOW_FILE_READ"), QStringLiteral("1"));
        environment.insert(QStringLiteral("XDG_RUNTIME_DIR"), room);
        environment.insert(QStringLiteral("HOME"), room);
        m_process.setProcessEnvironment(environment);
        m_process.setWorkingDirectory(room);
        m_process.setProcessChannelMode(QProcess::MergedChannels);
        endWithThisProcess(m_process);
        m_process.start(QStringLiteral("qmlscene"), {room + QStringLiteral("/stage.qml")});
    }
    ~PlasmaStage() {
        m_process.kill();
        m_process.waitForFinished(10'000);
    }
    PlasmaStage(const PlasmaStage &) = delete;
    PlasmaStage &operator=(const PlasmaStage &) = delete;

    /// Tells it to look for its folder again.
    void startAnew(const QByteArray &start) { write(QStringLiteral("start"), start); }

    /// Until it shows `expected`, enlarged to its size.
    bool comesToShow(const QImage &expected) {
        const QImage enlarged = expected.scaled(80, 60).convertToFormat(QImage::Format_RGB32);
        bool hasShown = false; // a look may meet a file that is half written
        return eventually([&] {
            const QImage seen =
                QImage(m_room + QStringLiteral("/seen.png")).convertToFormat(QImage::Format_RGB32);
            m_said += m_process.readAll();
            hasShown = hasShown || seen == enlarged;
            return hasShown;
        });
    }

    std::string said() const { return m_said.toStdString(); }

private:
    void write(const QString &name, const QByteArray &text) const {
        QFile file(m_room + u'/' + name);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        EXPECT_EQ(file.write(text), text.size());
    }

    QString m_room;
    QProcess m_process;
    QByteArray m_said;
};

} // namespace zeph
