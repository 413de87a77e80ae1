// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/web/LoopbackConnection.h"
#include "adapters/web/LoopbackServer.h"

#include <QByteArray>

#include <atomic>
#include <mutex>

namespace zeph {

/// All web services on one loopback port, told apart by the first part of the path. Answers with
/// the recorded shapes of tests/services/fixtures.
class ContractServer {
public:
    /// Such as "http://127.0.0.1:4321".
    QString root() const { return QStringLiteral("http://127.0.0.1:%1").arg(m_server.port()); }

    /// While true every request is answered with 503 and a page that is no JSON.
    void setFailing(bool isFailing) { m_isFailing = isFailing; }

    /// Whether some request carried `text` in one of its headers.
    bool sawHeaderText(const QByteArray &text) const;

    /// How many requests came so far.
    int requestCount() const { return m_requests; }

private:
    void serve(LoopbackConnection &connection);
    QByteArray answerTo(const ReceivedRequest &request) const;

    std::atomic<bool> m_isFailing = false;
    std::atomic<int> m_requests = 0;
    mutable std::mutex m_mutex;
    QByteArray m_headers; // of all requests
    LoopbackServer m_server{[this](LoopbackConnection &connection) { serve(connection); }};
};

} // namespace zeph
