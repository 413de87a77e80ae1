// SPDX-License-Identifier: MIT
#include "widgets/WidgetFixture.h"

#include "drawing/view/Views.h"

namespace zeph {

Date WidgetFixture::at(int hour, int minute, int second, int month, int day) const {
    const Date guess = *calendar.dateInUTC({2026, month, day, hour, minute, second});
    const double offset = *calendar.dateInUTC(calendar.components(guess)) - guess;
    return guess - offset;
}

std::vector<DrawItem> WidgetFixture::draw(const View &view) const {
    const LayoutContext layout{metrics};
    std::vector<DrawItem> items;
    view.place({QPointF(), view.measure({}, layout)}, layout, items);
    return items;
}

QSizeF WidgetFixture::naturalSize(const View &view) const {
    return view.measure({}, {metrics});
}

QStringList WidgetFixture::texts(const View &view) const {
    QStringList words;
    for (const DrawItem &item : draw(view)) {
        if (const auto *drawn = std::get_if<TextItem>(&item)) {
            words << drawn->text;
        }
    }
    return words;
}

QStringList WidgetFixture::symbols(const View &view) const {
    QStringList identifiers;
    for (const DrawItem &item : draw(view)) {
        if (const auto *drawn = std::get_if<SymbolItem>(&item)) {
            identifiers << drawn->identifier;
        }
    }
    return identifiers;
}

TextItem WidgetFixture::textItem(const View &view, const QString &words) const {
    for (const DrawItem &item : draw(view)) {
        const auto *drawn = std::get_if<TextItem>(&item);
        if (drawn != nullptr && drawn->text == words) {
            return *drawn;
        }
    }
    ADD_FAILURE() << "no text " << words.toStdString() << " among "
                  << texts(view).join(u" | ").toStdString();
    return {};
}

SymbolItem WidgetFixture::symbolItem(const View &view, const QString &identifier) const {
    for (const DrawItem &item : draw(view)) {
        const auto *drawn = std::get_if<SymbolItem>(&item);
        if (drawn != nullptr && drawn->identifier == identifier) {
            return *drawn;
        }
    }
    ADD_FAILURE() << "no symbol " << identifier.toStdString();
    return {};
}

QSizeF WidgetFixture::symbolBox(double points) const {
    const QString any = QStringLiteral("circle");
    return symbolItem(symbol(any, points, palette.text, points), any).box.size();
}

std::vector<ShapeItem> WidgetFixture::shapes(const View &view) const {
    std::vector<ShapeItem> found;
    for (const DrawItem &item : draw(view)) {
        if (const auto *drawn = std::get_if<ShapeItem>(&item)) {
            found.push_back(*drawn);
        }
    }
    return found;
}

void expectColor(const Color &actual, const Color &expected) {
    EXPECT_EQ(actual.argb(), expected.argb())
        << std::hex << actual.argb() << " instead of " << expected.argb();
}

} // namespace zeph
