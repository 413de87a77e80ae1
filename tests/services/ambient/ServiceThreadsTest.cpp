// SPDX-License-Identifier: MIT
#include "adapters/locale/IcuCalendar.h"
#include "base/Background.h"
#include "ports/RunLoop.h"
#include "ports/TaskExecutor.h"
#include "services/ambient/AirQualityService.h"
#include "services/ambient/QuoteService.h"
#include "services/ambient/WeatherService.h"
#include "services/web/Endpoints.h"
#include "support/DateOf.h"
#include "support/FakeHttpClient.h"
#include "support/FakeUserDefaults.h"
#include "support/Fixture.h"
#include "support/ManualClock.h"

#include <gtest/gtest.h>

#include <atomic>
#include <deque>
#include <mutex>
#include <thread>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

constexpr int rounds = 50;
constexpr Coordinate berlin{52.52, 13.405};

/// A thread for every task, joined at the end.
class ThreadExecutor : public TaskExecutor {
public:
    void run(std::function<void()> task) override { m_threads.emplace_back(std::move(task)); }
    void join() {
        for (std::thread &thread : m_threads) {
            thread.join();
        }
        m_threads.clear();
    }

private:
    std::vector<std::thread> m_threads;
};

/// Takes what any thread posts, until the test runs it.
class SharedRunLoop : public RunLoop {
public:
    std::unique_ptr<RunLoopTimer> repeat(std::chrono::milliseconds,
                                         std::function<void()>) override {
        return nullptr;
    }
    void post(std::function<void()> task) override {
        const std::scoped_lock lock(m_mutex);
        m_posted.push_back(std::move(task));
    }
    void after(std::chrono::milliseconds, std::function<void()>) override {}

    /// Runs what is there.
    std::size_t drain() {
        std::deque<std::function<void()>> posted;
        {
            const std::scoped_lock lock(m_mutex);
            posted.swap(m_posted);
        }
        for (const auto &task : posted) {
            task();
        }
        return posted.size();
    }

private:
    std::mutex m_mutex;
    std::deque<std::function<void()>> m_posted;
};

HttpResponse answerOf(const HttpRequest &request) {
    const QString path = request.url.path();
    if (path == u"/v1/forecast") {
        return FakeHttpClient::json(fixture("open-meteo/forecast.json"));
    }
    if (path == u"/v1/air-quality") {
        return FakeHttpClient::json(fixture("open-meteo/air-quality.json"));
    }
    return FakeHttpClient::json(fixture("zen-quotes/random.json"));
}

class ServiceThreadsTest : public testing::Test {
protected:
    ServiceThreadsTest() { clock.set(dateOf("2026-11-21T15:15:00+01:00")); }

    FakeHttpClient http{answerOf};
    Endpoints endpoints;
    ManualClock clock;
    IcuCalendar calendar{u"en_US"_s, u"Europe/Berlin"_s};
    FakeUserDefaults defaults;
    SharedRunLoop runLoop;
    ThreadExecutor tasks;
    Background background = Background::over(tasks, runLoop);
    WorkOwner owner;
};

} // namespace

TEST_F(ServiceThreadsTest, answersEveryOneOfManyTasksForAQuote) {
    QuoteService quotes(http, endpoints, clock, calendar, defaults, runLoop);
    std::atomic<int> answered = 0;
    for (int round = 0; round < rounds; ++round) {
        tasks.run([&] { answered += quotes.fetch().author == u"Seneca" ? 1 : 0; });
    }
    tasks.join();
    EXPECT_EQ(answered, rounds);
    EXPECT_GE(runLoop.drain(), 1U);
    EXPECT_TRUE(QuoteService::Stored::decode(*defaults.get<QByteArray>(u"zeph.quote.cache"_s)));
}

TEST_F(ServiceThreadsTest, completesEveryCallWhileTheMainThreadServesTheLastAnswer) {
    WeatherService weather(http, endpoints, background, owner, clock);
    AirQualityService air(http, endpoints, background, owner, clock);
    int answered = 0;
    for (int round = 0; round < rounds; ++round) {
        weather.fetch(berlin, u"Berlin"_s, round % 2 == 0,
                      [&answered](const auto &info) { answered += info->code == 61 ? 1 : 0; });
        air.fetch(berlin, [&answered](const auto &info) { answered += info->aqi == 57 ? 1 : 0; });
        runLoop.drain();
    }
    tasks.join();
    runLoop.drain();
    EXPECT_EQ(answered, 2 * rounds);
}

} // namespace zeph
