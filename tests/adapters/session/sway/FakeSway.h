// SPDX-License-Identifier: MIT
#pragma once

#include "support/WaitUntil.h"

#include <QFile>
#include <QLocalServer>
#include <QLocalSocket>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <cstring>
#include <map>
#include <vector>

namespace zeph {

/// The other end of sway's socket, which says what the test has it say.
class FakeSway {
public:
    struct Request {
        quint32 kind = 0;
        QByteArray payload;
    };

    FakeSway() { listen(); }

    QString path() const { return m_folder.filePath(QStringLiteral("sway.sock")); }

    /// As after a restart: whoever calls now is answered.
    void listen() {
        QObject::connect(&m_server, &QLocalServer::newConnection, &m_server, [this] {
            m_client = m_server.nextPendingConnection();
            ++calls;
            QObject::connect(m_client, &QLocalSocket::readyRead, &m_server, [this] { read(); });
        });
        ASSERT_TRUE(m_server.listen(path())) << m_server.errorString().toStdString();
    }

    /// The path stays when `isKept`, as after a crash.
    void die(bool isKept = false) {
        hangUp();
        m_server.disconnect();
        m_server.close();
        if (isKept) {
            QFile left(path());
            EXPECT_TRUE(left.open(QIODevice::WriteOnly));
        }
    }

    void hangUp() {
        if (m_client != nullptr) {
            m_client->disconnect();
            m_client->abort();
            m_client->deleteLater();
            m_client = nullptr;
        }
        m_received.clear();
    }

    void send(quint32 kind, const QByteArray &payload) { sendRaw(message(kind, payload)); }

    void sendEvent(quint32 kind, const QByteArray &payload) { send(kind | 0x80000000U, payload); }

    void sendRaw(const QByteArray &bytes) {
        ASSERT_NE(m_client, nullptr);
        m_client->write(bytes);
        m_client->flush();
    }

    static QByteArray message(quint32 kind, const QByteArray &payload) {
        QByteArray bytes("i3-ipc");
        const auto size = static_cast<quint32>(payload.size());
        bytes.append(reinterpret_cast<const char *>(&size), sizeof size);
        bytes.append(reinterpret_cast<const char *>(&kind), sizeof kind);
        return bytes + payload;
    }

    /// How often a kind was asked for.
    std::ptrdiff_t count(quint32 kind) const {
        return std::count_if(requests.begin(), requests.end(),
                             [kind](const Request &request) { return request.kind == kind; });
    }

    std::map<quint32, QByteArray> answers{{1, "[]"}, {2, R"({"success":true})"}, {4, "{}"}};
    std::vector<Request> requests;
    bool isMute = false;
    int calls = 0;

private:
    void read() {
        m_received += m_client->readAll();
        while (m_received.size() >= 14) {
            Request request;
            quint32 size = 0;
            std::memcpy(&size, m_received.constData() + 6, sizeof size);
            std::memcpy(&request.kind, m_received.constData() + 10, sizeof request.kind);
            if (m_received.size() < 14 + qsizetype{size}) {
                return;
            }
            request.payload = m_received.mid(14, qsizetype{size});
            m_received.remove(0, 14 + qsizetype{size});
            requests.push_back(request);
            if (!isMute) {
                send(request.kind, answers[request.kind]);
            }
        }
    }

    QTemporaryDir m_folder;
    QLocalServer m_server;
    QLocalSocket *m_client = nullptr;
    QByteArray m_received;
};

} // namespace zeph
