// SPDX-License-Identifier: MIT
#include "LoopbackEndpoints.h"
#include "app/RunProgram.h"

/// The program itself, but that the web services are those at the root given as its argument, and
/// that the accounts are asked every three seconds.
int main(int argumentCount, char **arguments) {
    const QString root = QString::fromLocal8Bit(argumentCount > 1 ? arguments[1] : "");
    return zeph::runProgram(arguments, {.endpoints = zeph::endpointsAt(root),
                                        .refreshPeriod = std::chrono::seconds(3)});
}
