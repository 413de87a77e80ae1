// SPDX-License-Identifier: MIT
#include "adapters/apps/ProcessWords.h"

#include <QByteArrayList>

#include <cstddef>
#include <cstdint>
#include <cstdlib>

namespace {

constexpr qint64 kNumber = 4711;

void require(bool condition) {
    if (!condition) {
        std::abort();
    }
}

/// The program, its groups, what its sandbox tells and its arguments, with zeros between.
zeph::ProcessWords wordsIn(const QByteArray &bytes) {
    const QByteArrayList parts = bytes.split('\0');
    zeph::ProcessWords words{
        kNumber, QString::fromUtf8(parts.value(0)), {}, parts.value(1), parts.value(2)};
    for (const QByteArray &argument : parts.mid(3)) {
        words.arguments.append(QString::fromLocal8Bit(argument));
    }
    return words;
}

void checkProgram(const zeph::ProcessWords &words, const QString &program) {
    if (program != words.program) {
        require(!program.isEmpty() && !program.contains(u'/'));
        require(words.arguments.filter(program).size() > 0);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    const QByteArray bytes(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size));
    const zeph::ProcessWords words = wordsIn(bytes);
    const zeph::ApplicationHints hints = zeph::hintsIn(words);
    if (!hints.windowClass.isEmpty()) { // a sandbox counts alone
        require(hints.windowClass == hints.desktopFile && hints.program.isEmpty());
        require(words.sandbox.contains("[Application]"));
    } else if (!hints.desktopFile.isEmpty()) {
        require(words.groups.contains("-4711.scope"));
    }
    if (!hints.program.isEmpty()) {
        checkProgram(words, hints.program);
    }
    return 0;
}
