// SPDX-License-Identifier: MIT
#include "adapters/web/ScriptedNames.h"

#include <dlfcn.h>
#include <netdb.h>

#include <condition_variable>
#include <mutex>
#include <string_view>

namespace zeph::ScriptedNames {

namespace {

std::mutex mutex;
std::condition_variable changed;
int waiting = 0;
bool letGo = false;

void hang() {
    std::unique_lock lock(mutex);
    ++waiting;
    changed.wait(lock, [] { return letGo; });
    --waiting;
    changed.notify_all();
}

} // namespace

int stuck() {
    const std::scoped_lock lock(mutex);
    return waiting;
}

void release() {
    std::unique_lock lock(mutex);
    letGo = true;
    changed.notify_all();
    changed.wait(lock, [] { return waiting == 0; });
    letGo = false;
}

} // namespace zeph::ScriptedNames

// The program's own function takes the place of the system's in every library.
extern "C" int getaddrinfo(const char *name, const char *service, const addrinfo *hints,
                           addrinfo **result) {
    using System = int (*)(const char *, const char *, const addrinfo *, addrinfo **);
    static const auto system = reinterpret_cast<System>(::dlsym(RTLD_NEXT, "getaddrinfo"));
    const std::string_view asked(name != nullptr ? name : "");
    if (asked.ends_with("stuck.test")) {
        zeph::ScriptedNames::hang();
        return EAI_AGAIN;
    }
    if (asked == "missing.test") {
        return EAI_NONAME;
    }
    return system(asked.ends_with(".test") ? "127.0.0.1" : name, service, hints, result);
}
