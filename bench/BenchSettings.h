// SPDX-License-Identifier: MIT
#pragma once

#include <benchmark/benchmark.h>

#include <algorithm>
#include <vector>

namespace zeph {

/// The least of several runs: the figure that other work on the machine disturbs least.
inline double least(const std::vector<double> &values) {
    return *std::min_element(values.begin(), values.end());
}

/// Runs a benchmark several times and reports the least and the median.
inline void repeated(benchmark::internal::Benchmark *benchmark) {
    constexpr int repetitions = 9;
    constexpr double seconds = 0.1;
    benchmark->Repetitions(repetitions)
        ->MinTime(seconds)
        ->ReportAggregatesOnly()
        ->MeasureProcessCPUTime()
        ->ComputeStatistics("min", least)
        ->Unit(benchmark::kMillisecond);
}

} // namespace zeph
