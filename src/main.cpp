// SPDX-License-Identifier: MIT
#include "RunProgram.h"

int main(int /*argumentCount*/, char **arguments) {
    return zeph::runProgram(arguments, {});
}
