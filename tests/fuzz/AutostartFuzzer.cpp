// SPDX-License-Identifier: MIT
#include "adapters/login/AutostartFile.h"

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
    const QByteArray bytes(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size));
    const auto before = zeph::readAutostart(bytes);
    for (const bool isEnabled : {true, false}) {
        const auto switched = zeph::switchAutostart(bytes, isEnabled);
        require(switched.has_value() == before.has_value());
        if (!switched || !before) {
            continue;
        }
        // A file that was only there to hide says nothing once it does not.
        const auto after = zeph::readAutostart(*switched);
        require(after ? after->isEnabled == isEnabled : isEnabled);
        require(!after || after->tryExec == before->tryExec);
        require(!after || zeph::switchAutostart(*switched, isEnabled) == switched);
    }
    const QString executable = u'/' + QString::fromUtf8(bytes).remove(QChar(0));
    const auto own = zeph::readAutostart(zeph::writeAutostart(executable, true));
    require(own && own->isEnabled && own->isOurs && own->tryExec == executable);
    return 0;
}
