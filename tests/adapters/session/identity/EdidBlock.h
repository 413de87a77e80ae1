// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

namespace zeph {

/// The block of a display by the maker "ACM", with these texts; an empty one is left out.
inline QByteArray edidBlock(const QByteArray &model, const QByteArray &serial) {
    QByteArray block(128, '\0');
    block.replace(0, 10, QByteArray("\0\xFF\xFF\xFF\xFF\xFF\xFF\0\x04\x6D", 10));
    const auto put = [&](qsizetype place, char kind, const QByteArray &text) {
        if (!text.isEmpty()) {
            block.replace(place, 18,
                          QByteArray(3, '\0') + kind + '\0' +
                              (text + '\n').leftJustified(13, ' ', true));
        }
    };
    block.replace(54, 18, QByteArray("\x02\x3A\x80\x18\x71\x38", 6) + QByteArray(12, '\x01'));
    put(72, '\xFF', serial);
    put(90, '\xFC', model);
    return block;
}

} // namespace zeph
