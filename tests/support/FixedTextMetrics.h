// SPDX-License-Identifier: MIT
#pragma once

#include "drawing/scene/TextMetrics.h"
#include "drawing/view/TextBreaking.h"

namespace zeph {

/// Text where each character is 10 points wide and each line 1.2 times its font size high, so that
/// layouts can be tested by plain numbers on any machine.
class FixedTextMetrics final : public TextMetrics {
public:
    QSizeF size(const QString &text, const FontSpec &font) const override {
        return {width(text), font.size * 1.2};
    }
    /// A 1 stands in the middle of its cell; other letters fill theirs.
    double inkStart(const QString &text, const FontSpec & /*font*/) const override {
        return text.startsWith(QLatin1Char('1')) ? 3 : 0;
    }
    QString elided(const QString &text, const FontSpec & /*font*/, double offered) const override {
        return elideTail(text, offered, width);
    }
    QStringList wrapped(const QString &text, const FontSpec & /*font*/,
                        double offered) const override {
        return breakIntoLines(text, offered, width);
    }

private:
    static double width(const QString &text) { return 10.0 * static_cast<double>(text.size()); }
};

} // namespace zeph
