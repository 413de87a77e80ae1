// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>

#include <atomic>
#include <optional>

namespace zeph {

/// The program of ours that knows the cities of the weather library and the outlines of lands and
/// waters, beside the running one or where an installation puts it.
QString cityListerPath();

/// Runs `program` on `question` and answers what it printed; absent when it can't be run, fails,
/// prints more than 4 MiB or takes longer than 10 s. Blocks, and returns within 100 ms of
/// `isEnding` becoming true.
std::optional<QByteArray> askCityLister(const QString &program, const QByteArray &question,
                                        const std::atomic<bool> &isEnding);

} // namespace zeph
