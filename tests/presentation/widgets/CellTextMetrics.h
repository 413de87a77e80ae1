// SPDX-License-Identifier: MIT
#pragma once

#include "presentation/view/TextMetrics.h"

namespace zeph {

/// Text in which every character is half as wide as the font is large, and a line is as high as
/// the font: sizes that a test can reckon with.
class CellTextMetrics : public TextMetrics {
public:
    QSizeF size(const QString &text, const FontSpec &font) const override {
        return {static_cast<double>(text.size()) * cell(font), font.size};
    }

    QString elided(const QString &text, const FontSpec &font, double width) const override {
        const auto fitting = static_cast<qsizetype>(width / cell(font));
        return text.size() <= fitting ? text
                                      : text.left(std::max<qsizetype>(fitting - 1, 0)) + u'…';
    }

    QStringList wrapped(const QString &text, const FontSpec &font, double width) const override {
        const auto fitting = std::max<qsizetype>(static_cast<qsizetype>(width / cell(font)), 1);
        QStringList lines;
        for (qsizetype at = 0; at < text.size(); at += fitting) {
            lines << text.mid(at, fitting);
        }
        return lines.isEmpty() ? QStringList{QString()} : lines;
    }

private:
    static double cell(const FontSpec &font) { return font.size / 2; }
};

} // namespace zeph
