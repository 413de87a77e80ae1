// SPDX-License-Identifier: MIT
#include "drawing/scene/TextMetrics.h"
#include "drawing/view/Views.h"

#include <algorithm>
#include <limits>

namespace zeph {

namespace {

class LineOfText final : public ViewNode {
public:
    LineOfText(QString string, const TextStyle &style, bool fromItsInk = false)
        : m_string(std::move(string)), m_style(style), m_fromItsInk(fromItsInk) {}

    QSizeF measure(const ProposedSize &proposal, const LayoutContext &context) const override {
        const QSizeF ideal = context.metrics.size(m_string, m_style.font);
        if (!proposal.width || *proposal.width >= ideal.width()) {
            return ideal;
        }
        const QString cut = context.metrics.elided(m_string, m_style.font, *proposal.width);
        return {context.metrics.size(cut, m_style.font).width(), ideal.height()};
    }

    void place(const QRectF &rect, const LayoutContext &context,
               std::vector<DrawItem> &items) const override {
        const QString cut = context.metrics.elided(m_string, m_style.font, rect.width());
        if (!cut.isEmpty()) {
            const double room = m_fromItsInk ? context.metrics.inkStart(cut, m_style.font) : 0;
            items.emplace_back(TextItem{cut, m_style, rect.topLeft() - QPointF(room, 0)});
        }
    }

private:
    QString m_string;
    TextStyle m_style;
    bool m_fromItsInk;
};

class WrappingText final : public ViewNode {
public:
    WrappingText(QString string, const TextStyle &style)
        : m_string(std::move(string)), m_style(style) {}

    QSizeF measure(const ProposedSize &proposal, const LayoutContext &context) const override {
        const double offered = proposal.width.value_or(std::numeric_limits<double>::infinity());
        QSizeF size(0, 0);
        for (const QString &line : context.metrics.wrapped(m_string, m_style.font, offered)) {
            const QSizeF box = context.metrics.size(line, m_style.font);
            size = {std::max(size.width(), box.width()), size.height() + box.height()};
        }
        return size;
    }

    void place(const QRectF &rect, const LayoutContext &context,
               std::vector<DrawItem> &items) const override {
        QPointF origin = rect.topLeft();
        for (const QString &line : context.metrics.wrapped(m_string, m_style.font, rect.width())) {
            const QSizeF box = context.metrics.size(line, m_style.font);
            // What reads from the right starts there, a short last line too.
            origin.setX(line.isRightToLeft() ? rect.right() - box.width() : rect.left());
            if (!line.isEmpty()) {
                items.emplace_back(TextItem{line, m_style, origin});
            }
            origin.ry() += box.height();
        }
    }

private:
    QString m_string;
    TextStyle m_style;
};

bool breaksTheLine(QChar character) {
    return character == u'\n' || character == u'\r' || character == QChar::LineSeparator ||
           character == QChar::ParagraphSeparator || character == u'\t' || character == u'\v' ||
           character == u'\f';
}

/// A service may send a text without end, which would be shaped whole at every redraw. No screen
/// has room for more than this.
QString shortened(const QString &string) {
    constexpr qsizetype mostUnits = 2000;
    if (string.size() <= mostUnits) {
        return string;
    }
    const bool splitsPair = string.at(mostUnits - 1).isHighSurrogate();
    return string.left(splitsPair ? mostUnits - 1 : mostUnits);
}

/// Names from elsewhere may carry line breaks, and a line of text has no room for them.
QString onOneLine(QString string) {
    std::replace_if(string.begin(), string.end(), breaksTheLine, QChar(u' '));
    return string;
}

} // namespace

View text(const QString &string, const TextStyle &style) {
    return View(std::make_shared<LineOfText>(onOneLine(shortened(string)), style));
}

View textFromItsInk(const QString &string, const TextStyle &style) {
    return View(std::make_shared<LineOfText>(onOneLine(shortened(string)), style, true));
}

View wrappingText(const QString &string, const TextStyle &style) {
    return View(std::make_shared<WrappingText>(shortened(string), style));
}

} // namespace zeph
