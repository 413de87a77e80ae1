// SPDX-License-Identifier: MIT
#include "adapters/kernel/CoreDumps.h"
#include "adapters/kernel/Heap.h"
#include "app/RestoreDesktop.h"
#include "app/RunProgram.h"

int main(int argumentCount, char **arguments) {
    zeph::shareHeaps();
#ifdef NDEBUG // whoever develops the program wants whole core dumps
    zeph::leaveMemoryOutOfCoreDumps();
#endif
    if (zeph::asksToRestoreDesktop(argumentCount, arguments)) {
        return zeph::runRestoreDesktop(arguments);
    }
    return zeph::runProgram(arguments, {});
}
