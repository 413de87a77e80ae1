// SPDX-License-Identifier: MIT
#include "adapters/updates/PackageId.h"
#include "adapters/updates/PackageProblem.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

namespace {

void require(bool condition) {
    if (!condition) {
        std::abort();
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    const QString text =
        QString::fromUtf8(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size));
    if (const auto package = zeph::parsePackageId(text)) {
        require(!package->name.isEmpty() && !package->version.isEmpty());
        const QString version = zeph::newerVersionName(package->version, package->architecture);
        require(package->version.contains(version));
    }
    const QString problem = zeph::packageProblem(0, text);
    require(problem.endsWith(u'.') && !problem.contains(u'\n') && problem.size() < 256);
    return 0;
}
