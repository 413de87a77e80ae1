// SPDX-License-Identifier: MIT
#include "services/simple/FirstInt.h"

#include <QRegularExpression>

#include <algorithm>

namespace zeph {

namespace {

std::optional<qint64> decimal(const QString &digits) {
    const bool isPlain = std::all_of(digits.begin(), digits.end(), [](QChar character) {
        return character >= u'0' && character <= u'9';
    });
    bool isNumber = false;
    const qint64 number = digits.toLongLong(&isNumber);
    return isPlain && isNumber ? std::optional(number) : std::nullopt;
}

} // namespace

std::optional<qint64> firstInt(const QString &text, const QStringList &patterns,
                               Grouping grouping) {
    for (const QString &pattern : patterns) {
        const QRegularExpression expression(pattern,
                                            QRegularExpression::CaseInsensitiveOption |
                                                QRegularExpression::UseUnicodePropertiesOption);
        if (!expression.isValid() || expression.captureCount() < 1) {
            continue;
        }
        const QRegularExpressionMatch match = expression.match(text);
        if (!match.hasMatch()) {
            continue;
        }
        QString digits = match.captured(1);
        if (grouping == Grouping::commas) {
            digits.remove(u',');
        }
        if (auto number = decimal(digits)) {
            return number;
        }
    }
    return std::nullopt;
}

} // namespace zeph
