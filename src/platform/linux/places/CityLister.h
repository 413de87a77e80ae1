// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>

#include <atomic>

namespace zeph {

/// The program of ours that lists the cities of the weather library, beside the running one or
/// where an installation puts it.
QString cityListerPath();

/// Runs `program` and answers what it printed; empty when it can't be run, fails, prints more than
/// 4 MiB or takes longer than 10 s. Blocks, and returns within 100 ms of `isEnding` becoming true.
QByteArray listCities(const QString &program, const std::atomic<bool> &isEnding);

} // namespace zeph
