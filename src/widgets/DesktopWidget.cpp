// SPDX-License-Identifier: MIT
#include "widgets/BuiltInWidgets.h"

#include "drawing/view/Views.h"
#include "model/AppState.h"
#include "widgets/WidgetContext.h"
#include "widgets/WidgetRows.h"
#include "wording/StatFraming.h"

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

struct CategoryLook {
    QString icon;
    QString labelForOne;
    QString labelForMore;
};

CategoryLook look(DesktopCategory category) {
    switch (category) {
    case DesktopCategory::screenshots:
        return {u"camera.viewfinder"_s, u"screenshot"_s, u"screenshots"_s};
    case DesktopCategory::images:
        return {u"photo"_s, u"image"_s, u"images"_s};
    case DesktopCategory::documents:
        return {u"doc.text"_s, u"document"_s, u"documents"_s};
    case DesktopCategory::archives:
        return {u"archivebox"_s, u"archive"_s, u"archives"_s};
    case DesktopCategory::media:
        return {u"play.rectangle"_s, u"media file"_s, u"media"_s};
    case DesktopCategory::folders:
        return {u"folder"_s, u"folder"_s, u"folders"_s};
    case DesktopCategory::other:
        return {u"doc"_s, u"other file"_s, u"other"_s};
    }
    Q_UNREACHABLE();
}

std::vector<MetricChip> categoryChips(const DesktopSummary &desktop) {
    std::vector<MetricChip> chips;
    for (const DesktopCategory category : allDesktopCategories) {
        const auto found = desktop.counts.find(category);
        if (found == desktop.counts.end() || found->second < 1) {
            continue;
        }
        const CategoryLook of = look(category);
        const QString &label = found->second == 1 ? of.labelForOne : of.labelForMore;
        chips.push_back({of.icon, QString::number(found->second) + u' ' + label});
    }
    return chips;
}

} // namespace

View desktopWidget(const WidgetContext &context) {
    const DesktopSummary &desktop = *context.state.desktop;
    const Palette &palette = context.palette;
    std::vector<View> rows{sectionLabel(u"Your desktop"_s, palette),
                           text(StatFraming::desktopHeadline(desktop),
                                textStyle(palette, 16, FontWeight::regular, 0.9))};
    const std::vector<MetricChip> chips = categoryChips(desktop);
    if (!chips.empty()) {
        rows.push_back(chipGrid(chips, palette));
    }
    return widgetRows(std::move(rows));
}

} // namespace zeph
