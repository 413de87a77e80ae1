// SPDX-License-Identifier: MIT
#include "adapters/places/CityLister.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QFileInfo>
#include <QProcess>

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 lengthLimit = 4 << 20;
constexpr int patienceMilliseconds = 10'000;
constexpr int lookMilliseconds = 50;

} // namespace

QString cityListerPath() {
    const QString folder = QCoreApplication::applicationDirPath() + u'/';
    const QString beside = folder + QStringLiteral(ZEPH_CITY_LISTER_FILE);
    return QFileInfo::exists(beside) ? beside : folder + QStringLiteral(ZEPH_CITY_LISTER_PATH);
}

std::optional<QByteArray> askCityLister(const QString &program, const QByteArray &question,
                                        const std::atomic<bool> &isEnding) {
    QProcess process;
    process.setStandardErrorFile(QProcess::nullDevice());
    process.start(program, QStringList());
    process.write(question); // not as an argument, which others on the machine could read
    process.closeWriteChannel();
    const QDeadlineTimer deadline(patienceMilliseconds);
    while (process.state() != QProcess::NotRunning && !process.waitForFinished(lookMilliseconds)) {
        if (isEnding || deadline.hasExpired() || process.bytesAvailable() > lengthLimit) {
            process.kill();
            process.waitForFinished(lookMilliseconds);
            return std::nullopt;
        }
    }
    const bool isWhole = process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0 &&
                         process.error() != QProcess::FailedToStart &&
                         process.bytesAvailable() <= lengthLimit;
    return isWhole ? std::optional(process.readAllStandardOutput()) : std::nullopt;
}

} // namespace zeph
