// SPDX-License-Identifier: MIT
#include "app/RunProgram.h"
#include "e2e/LoopbackEndpoints.h"

/// The program itself, but that the web services are those at the root given as its argument.
int main(int argumentCount, char **arguments) {
    const QString root = QString::fromLocal8Bit(argumentCount > 1 ? arguments[1] : "");
    return zeph::runProgram(arguments, {.endpoints = zeph::endpointsAt(root)});
}
