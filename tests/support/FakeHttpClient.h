// SPDX-License-Identifier: MIT
#pragma once

#include "ports/HttpClient.h"

#include <functional>
#include <mutex>
#include <utility>
#include <vector>

namespace zeph {

/// Answers requests as the test says and keeps them. Callable from any thread.
class FakeHttpClient : public HttpClient {
public:
    using Handler = std::function<HttpResponse(const HttpRequest &request)>;

    /// A machine without a network.
    FakeHttpClient()
        : FakeHttpClient([](const HttpRequest &) -> HttpResponse {
              throw TransportError(QStringLiteral("There is no network."));
          }) {}

    /// `handler` may throw `TransportError`; it is not called by two threads at once.
    explicit FakeHttpClient(Handler handler) : m_handler(std::move(handler)) {}

    HttpResponse send(const HttpRequest &request) override {
        const std::scoped_lock lock(m_mutex);
        if (m_isCancelled) {
            throw TransportError(QStringLiteral("The request was cancelled."));
        }
        m_requests.push_back(request);
        return m_handler(request);
    }
    /// From now on `handler` answers.
    void setHandler(Handler handler) {
        const std::scoped_lock lock(m_mutex);
        m_handler = std::move(handler);
    }
    void cancelAll() override {
        const std::scoped_lock lock(m_mutex);
        m_isCancelled = true;
    }

    /// Everything sent so far, in order.
    std::vector<HttpRequest> requests() const {
        const std::scoped_lock lock(m_mutex);
        return m_requests;
    }

    static HttpResponse json(const QByteArray &body, int status = 200) {
        return {status, {{"Content-Type", "application/json"}}, body};
    }

private:
    Handler m_handler;
    mutable std::mutex m_mutex;
    std::vector<HttpRequest> m_requests;
    bool m_isCancelled = false;
};

} // namespace zeph
