// SPDX-License-Identifier: MIT
#include "TwentyAccounts.h"
#include "adapters/kernel/SystemClock.h"
#include "adapters/loop/QtRunLoop.h"
#include "adapters/loop/QtTaskExecutor.h"
#include "adapters/web/PluggedHttpClient.h"
#include "app/WebServices.h"
#include "base/Background.h"
#include "base/NotificationCenter.h"
#include "e2e/ContractServer.h"
#include "e2e/LoopbackEndpoints.h"
#include "model/AppState.h"
#include "services/accounts/AccountCoding.h"
#include "services/accounts/AccountKeys.h"
#include "services/accounts/IntegrationsStore.h"
#include "services/accounts/Keychain.h"
#include "services/custom/JsonLeaves.h"
#include "services/refresh/IntegrationRefresh.h"
#include "services/simple/rss/RSSParser.h"
#include "services/web/Json.h"
#include "settings/PreferencesStore.h"
#include "support/FakePlatform.h"
#include "wording/FramingContext.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>

#include <sys/prctl.h>
#include <sys/resource.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <cstdio>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

constexpr int rounds = 20;
constexpr qsizetype fiveMiB = qsizetype{5} * 1024 * 1024;

/// The server in a process of its own, so that its work is not counted; answers its root.
QString startServer() {
    int ends[2];
    if (::pipe(ends) != 0) {
        return {};
    }
    if (::fork() == 0) {
        ::prctl(PR_SET_PDEATHSIG, SIGKILL);
        const ContractServer server;
        const QByteArray root = server.root().toLatin1() + '\n';
        if (::write(ends[1], root.constData(), static_cast<std::size_t>(root.size())) < 0) {
            ::_exit(1);
        }
        ::pause();
    }
    QByteArray root(100, '\0');
    const auto length = ::read(ends[0], root.data(), 100);
    return QString::fromLatin1(root.left(static_cast<qsizetype>(length))).trimmed();
}

double processorMs() {
    rusage usage{};
    ::getrusage(RUSAGE_SELF, &usage);
    const auto ms = [](const timeval &time) {
        return 1e3 * static_cast<double>(time.tv_sec) + 1e-3 * static_cast<double>(time.tv_usec);
    };
    return ms(usage.ru_utime) + ms(usage.ru_stime);
}

/// A figure of /proc/self/status in KiB.
long statusKiB(const QByteArray &name) {
    QFile file(u"/proc/self/status"_s);
    if (!file.open(QIODevice::ReadOnly)) {
        return 0;
    }
    for (const QByteArray &line : file.readAll().split('\n')) {
        if (line.startsWith(name + ":")) {
            return line.mid(name.size() + 1).replace("kB", "").trimmed().toLong();
        }
    }
    return 0;
}

/// Runs the event loop until every family has been assigned once more.
void waitForFamilies(AppState &state) {
    int assigned = 0;
    const Subscription watch = state.objectWillChange.subscribe([&assigned] { ++assigned; });
    while (assigned < 6) { // five families and the quote; custom endpoints are emptied at once
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
}

void measureRefresh() {
    const QString root = startServer();
    FakePlatform fakes;
    QtRunLoop loop;
    QtTaskExecutor executor;
    const Background background = Background::over(executor, loop);
    SystemClock clock;
    PluggedHttpClient http;
    Platform platform{fakes.platform.clock,
                      fakes.calendar,
                      fakes.gregorian,
                      fakes.formatters,
                      loop,
                      background,
                      background,
                      executor,
                      fakes.defaults,
                      fakes.workspace,
                      fakes.input,
                      fakes.host,
                      fakes.interfaces,
                      fakes.wifi,
                      fakes.volume,
                      fakes.powerSources,
                      fakes.accessories,
                      fakes.desktopFolder,
                      fakes.focusFile,
                      fakes.eventStore,
                      fakes.locationClient,
                      fakes.geocoder,
                      http,
                      fakes.secrets,
                      fakes.screens,
                      fakes.windowServer,
                      fakes.virtualDesktops};
    NotificationCenter notifications;
    PreferencesStore preferences(fakes.defaults, notifications, fakes.formatters);
    Keychain keychain(fakes.secrets, fakes.defaults);
    const auto accounts = twentyAccounts(root);
    for (const IntegrationConnection &account : accounts) {
        fakes.defaults.set(configuredKey(account.id), true);
        keychain.set(u"key"_s, secretAccount(account.id));
    }
    fakes.defaults.set(u"zeph.integrations.v2"_s, true);
    fakes.defaults.set(u"zeph.integrations.connections"_s, coding::json(accounts));
    IntegrationsStore store(fakes.defaults, keychain, notifications, loop, executor);
    AppState state(clock.now());
    const FramingContext framing{preferences, fakes.calendar, fakes.formatters};
    IntegrationRefresh refresh(
        RefreshContext{state, store, keychain, preferences, background,
                       makeWebServices(platform, endpointsAt(root), framing)});
    const long before = statusKiB("VmRSS");
    refresh.fetchIntegrations();
    waitForFamilies(state);
    std::printf("first refresh: %ld KiB resident more than before, libraries included\n",
                statusKiB("VmHWM") - before);
    const long settled = statusKiB("VmRSS");
    std::vector<double> processor;
    QElapsedTimer elapsed;
    elapsed.start();
    for (int round = 0; round < rounds; ++round) {
        const double start = processorMs();
        refresh.fetchIntegrations();
        waitForFamilies(state);
        processor.push_back(processorMs() - start);
    }
    std::sort(processor.begin(), processor.end());
    std::printf("refresh of 20 accounts: %.1f ms of processor time (median of %d), %.1f ms each; "
                "peak %ld KiB above the rest before\n",
                processor[rounds / 2], rounds, static_cast<double>(elapsed.elapsed()) / rounds,
                statusKiB("VmHWM") - settled);
}

template <typename Parse>
void measureParsing(const char *what, const QByteArray &bytes, Parse parse) {
    double least = 1e9;
    for (int round = 0; round < rounds / 2; ++round) {
        const double start = processorMs();
        parse(bytes);
        least = std::min(least, processorMs() - start);
    }
    std::printf("%s of %.1f MiB: %.1f ms, %.0f MiB/s\n", what,
                static_cast<double>(bytes.size()) / (1024 * 1024), least,
                static_cast<double>(bytes.size()) / (1024 * 1024) / least * 1000);
}

void measureParsers() {
    QByteArray json = "[";
    QByteArray feed = "<rss><channel><title>Notes</title>";
    for (int item = 0; json.size() < fiveMiB; ++item) {
        const QByteArray number = QByteArray::number(item);
        json += R"({"id":)" + number + R"(,"name":"item )" + number +
                R"(","ratio":0.125,"tags":["a","b"],"isOn":true},)";
    }
    json += "0]";
    while (feed.size() < fiveMiB) {
        feed += "<item><title>What the swifts did</title><link>https://example.org/1</link>"
                "<description>Some words on &amp; about them.</description></item>\n";
    }
    feed += "</channel></rss>";
    measureParsing("JSON, parsed and flattened,", json,
                   [](const QByteArray &bytes) { CustomAPI::flatten(json::parse(bytes)); });
    measureParsing("a feed", feed, [](const QByteArray &bytes) { RSSParser().parse(bytes); });
}

} // namespace

} // namespace zeph

int main(int argumentCount, char **arguments) {
    const QCoreApplication toolkit(argumentCount, arguments);
    zeph::measureParsers();
    std::fflush(stdout);
    zeph::measureRefresh();
    std::fflush(stdout);
    std::_Exit(0); // what a task still holds is not measured
}
