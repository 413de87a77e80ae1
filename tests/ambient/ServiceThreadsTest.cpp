// SPDX-License-Identifier: MIT
#include "ambient/AirQualityService.h"
#include "ambient/OnThisDayService.h"
#include "ambient/QuoteService.h"
#include "ambient/WeatherService.h"
#include "integrations/web/Endpoints.h"
#include "platform/RunLoop.h"
#include "platform/TaskExecutor.h"
#include "platform/icu/IcuCalendar.h"
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
    if (path == u"/api/random") {
        return FakeHttpClient::json(fixture("zen-quotes/random.json"));
    }
    return FakeHttpClient::json(fixture("on-this-day/events.json"));
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
};

} // namespace

TEST_F(ServiceThreadsTest, answersEveryOneOfManyTasksAtOnce) {
    QuoteService quotes(http, endpoints, clock, calendar, defaults, runLoop);
    OnThisDayService events(http, endpoints, clock, calendar);
    std::atomic<int> answered = 0;
    for (int round = 0; round < rounds; ++round) {
        tasks.run([&] { answered += quotes.fetch().author == u"Seneca" ? 1 : 0; });
        tasks.run([&] { answered += events.fetch()->year == u"1789" ? 1 : 0; });
    }
    tasks.join();
    EXPECT_EQ(answered, 2 * rounds);
    EXPECT_GE(runLoop.drain(), 1U);
    EXPECT_TRUE(QuoteService::Stored::decode(*defaults.get<QByteArray>(u"zeph.quote.cache"_s)));
}

TEST_F(ServiceThreadsTest, completesEveryCallWhileTheMainThreadServesTheLastAnswer) {
    WeatherService weather(http, endpoints, tasks, runLoop, clock);
    AirQualityService air(http, endpoints, tasks, runLoop, clock);
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
