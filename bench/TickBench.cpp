// SPDX-License-Identifier: MIT
#include "BenchDay.h"
#include "BenchSettings.h"
#include "TickLoop.h"
#include "base/Background.h"
#include "sensing/SamplingCoordinator.h"
#include "services/web/Endpoints.h"

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace zeph {

namespace {

constexpr int historyDays = 3650;
constexpr int applicationCount = 50;
constexpr int accountCount = 200;
constexpr double day = 86400;

// The rhythm, the activity and the ranking are published at every fifth tick.
constexpr int round = 5;

void addHistory(BenchDay &bench) {
    ActivitySummary activity;
    activity.activeSeconds = 6 * 3600.0;
    InputRhythm rhythm;
    rhythm.totalKeystrokes = 21000;
    for (int ago = historyDays; ago > 0; --ago) {
        bench.usageStore->saveDailyStats(activity, rhythm,
                                         bench.usageStore->dayKey(bench.clock.now() - ago * day));
    }
}

void addApplications(BenchDay &bench) {
    std::vector<AppUsage> applications;
    for (int number = 0; number < applicationCount; ++number) {
        const QString name = u"org.example.Application%1"_s.arg(number);
        applications.push_back({name, name, 60.0 * number, {}});
    }
    bench.usageStore->saveAppUsage(applications, bench.usageStore->dayKey(bench.clock.now()));
}

/// Accounts that failed to answer, so that no widget shows them.
void addAccounts(BenchDay &bench) {
    std::vector<SimpleIntegrationStats> accounts(accountCount);
    for (SimpleIntegrationStats &account : accounts) {
        account.id = QUuid::createUuid();
        account.error = u"offline"_s;
    }
    bench.state.simpleStats = accounts;
}

/// A coordinator over the fakes, whose front application is the last of the many.
class Ticking {
public:
    explicit Ticking(BenchDay &bench)
        : m_bench(bench),
          m_platform{.clock = bench.clock,
                     .calendar = bench.calendar,
                     .gregorian = bench.gregorian,
                     .formatters = bench.formatters,
                     .runLoop = m_loop,
                     .background = m_background,
                     .accountBackground = m_background,
                     .taskExecutor = bench.executor,
                     .userDefaults = bench.defaults,
                     .workspace = bench.workspace,
                     .inputEvents = bench.input,
                     .hostStatistics = bench.host,
                     .networkInterfaces = bench.interfaces,
                     .wifi = bench.wifi,
                     .volume = bench.volume,
                     .powerSources = bench.powerSources,
                     .accessories = bench.accessories,
                     .desktopFolder = bench.desktopFolder,
                     .focusFile = bench.focusFile,
                     .eventStore = bench.eventStore,
                     .locationClient = bench.locationClient,
                     .geocoder = bench.geocoder,
                     .httpClient = bench.http,
                     .secureStore = bench.secrets,
                     .screens = bench.screens,
                     .windowServer = bench.windowServer,
                     .virtualDesktops = bench.virtualDesktops},
          m_coordinator(CoordinatorContext{bench.state, m_platform, bench.notifications,
                                           bench.preferences, *bench.usageStore, bench.location,
                                           m_endpoints, std::chrono::minutes(10), [] {}}) {
        bench.workspace.front = application(u"org.example.Application49"_s, u"Editor"_s);
        m_coordinator.start();
    }

    void tick() {
        m_bench.clock.advance(1);
        m_loop.tick(1s);
    }

private:
    BenchDay &m_bench;
    TickLoop m_loop;
    Background m_background = Background::over(m_bench.executor, m_loop);
    Platform m_platform;
    Endpoints m_endpoints;
    SamplingCoordinator m_coordinator;
};

/// Five fast ticks, of which one publishes, and the one redraw that follows where nothing else
/// changed. The argument: 0 for a new user, 1 for ten years, 50 applications and 200 accounts.
void fiveFastTicks(benchmark::State &state) {
    BenchDay bench;
    if (state.range(0) == 1) {
        addHistory(bench);
        addApplications(bench);
        addAccounts(bench);
    }
    Ticking ticking(bench);
    for ([[maybe_unused]] auto turn : state) {
        for (int count = 0; count < round; ++count) {
            ticking.tick();
        }
        benchmark::DoNotOptimize(bench.view.scene(QSizeF(1920, 1080), false));
    }
}

BENCHMARK(fiveFastTicks)->Arg(0)->Arg(1)->Apply(repeated);

} // namespace

} // namespace zeph
