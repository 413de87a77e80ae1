// SPDX-License-Identifier: MIT
// Saves growing totals as fast as it can until it is killed: CrashWriter FOLDER DAY.
#include "history/UsageStore.h"
#include "support/ManualClock.h"
#include "support/UtcCalendar.h"

#include <unistd.h>

#include <string>

using namespace zeph;

int main(int argc, char **argv) {
    if (argc != 3) {
        return 2;
    }
    const ManualClock clock;
    const UtcCalendar calendar;
    UsageStore store(QString::fromLocal8Bit(argv[1]), clock, calendar);
    const QString day = QString::fromLocal8Bit(argv[2]);
    const auto restored = store.loadDailyStats(day);
    qint64 total = restored ? restored->second.totalKeystrokes : 0;
    for (;;) {
        ++total;
        std::vector<AppUsage> apps;
        for (int app = 0; app < 5; ++app) {
            const QString id = QStringLiteral("org.app%1").arg(app);
            apps.push_back({id, id, static_cast<double>(total), std::nullopt});
        }
        store.saveAppUsage(apps, day);
        ActivitySummary summary;
        summary.activeSeconds = static_cast<double>(total);
        InputRhythm rhythm;
        rhythm.totalKeystrokes = total;
        store.saveDailyStats(summary, rhythm, day);
        const std::string line = std::to_string(total) + '\n';
        if (write(STDOUT_FILENO, line.data(), line.size()) < 0) {
            return 1;
        }
    }
}
