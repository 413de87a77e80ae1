// SPDX-License-Identifier: MIT
#include "adapters/kernel/CoreDumps.h"
#include "adapters/kernel/Heap.h"
#include "app/CommandLine.h"
#include "app/RestoreDesktop.h"
#include "app/RunProgram.h"

#include <cstdio>
#include <cstdlib>

int main(int argumentCount, char **arguments) {
    zeph::shareHeaps();
#ifdef NDEBUG // whoever develops the program wants whole core dumps
    zeph::leaveMemoryOutOfCoreDumps();
#endif
    switch (zeph::errandOf(argumentCount, arguments)) {
    case zeph::Errand::restoreDesktop:
        return zeph::runRestoreDesktop(arguments);
    case zeph::Errand::help:
        return std::fputs(zeph::usage, stdout) < 0 ? EXIT_FAILURE : EXIT_SUCCESS;
    case zeph::Errand::version:
        return std::puts("tavi " ZEPH_VERSION) < 0 ? EXIT_FAILURE : EXIT_SUCCESS;
    case zeph::Errand::wallpaper:
        break;
    }
    return zeph::runProgram(arguments, {});
}
