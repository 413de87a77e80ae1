// SPDX-License-Identifier: MIT
#pragma once

#include "base/Background.h"
#include "services/web/Endpoints.h"
#include "support/FakeHttpClient.h"
#include "support/ManualClock.h"
#include "support/ManualRunLoop.h"
#include "support/ManualTaskExecutor.h"

#include <gtest/gtest.h>

namespace zeph {

/// What a service works with, its server answering as `server` says at that moment.
class ServiceFixture : public testing::Test {
protected:
    /// Lets what was started come to its end.
    void settle() {
        tasks.runAll();
        runLoop.drain();
    }

    void answer(const QByteArray &body, int status = 200) {
        server = [body, status](const HttpRequest &) { return HttpResponse{status, {}, body}; };
    }

    std::size_t requestCount() const { return http.requests().size(); }

    FakeHttpClient::Handler server = [](const HttpRequest &) { return HttpResponse{404, {}, ""}; };
    FakeHttpClient http{[this](const HttpRequest &request) { return server(request); }};
    Endpoints endpoints;
    ManualClock clock;
    ManualRunLoop runLoop{clock};
    ManualTaskExecutor tasks;
    Background background = Background::over(tasks, runLoop);
    WorkOwner owner;
};

} // namespace zeph
