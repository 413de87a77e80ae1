// SPDX-License-Identifier: MIT
#include "platform/linux/places/CityLister.h"

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

QByteArray listCities(const QString &program, const std::atomic<bool> &isEnding) {
    QProcess process;
    process.setStandardErrorFile(QProcess::nullDevice());
    process.setStandardInputFile(QProcess::nullDevice());
    process.start(program, QStringList(), QIODevice::ReadOnly);
    const QDeadlineTimer deadline(patienceMilliseconds);
    while (process.state() != QProcess::NotRunning && !process.waitForFinished(lookMilliseconds)) {
        if (isEnding || deadline.hasExpired() || process.bytesAvailable() > lengthLimit) {
            process.kill();
            process.waitForFinished(lookMilliseconds);
            return {};
        }
    }
    const bool isWhole = process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0 &&
                         process.error() != QProcess::FailedToStart &&
                         process.bytesAvailable() <= lengthLimit;
    return isWhole ? process.readAllStandardOutput() : QByteArray();
}

} // namespace zeph
