// SPDX-License-Identifier: MIT
#include <QGuiApplication>

#include <benchmark/benchmark.h>

int main(int argumentCount, char **arguments) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    benchmark::Initialize(&argumentCount, arguments);
    if (benchmark::ReportUnrecognizedArguments(argumentCount, arguments)) {
        return 1;
    }
    const QGuiApplication toolkit(argumentCount, arguments);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
