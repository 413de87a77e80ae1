// SPDX-License-Identifier: MIT
#include "services/simple/FirstInt.h"

#include "base/WholeNumber.h"

#include <QRegularExpression>

namespace zeph {

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
        if (auto number = hasOnlyDigits(digits) ? wholeNumber(digits) : std::nullopt) {
            return number;
        }
    }
    return std::nullopt;
}

} // namespace zeph
