// SPDX-License-Identifier: MIT
#include "model/DesktopCategory.h"

using namespace Qt::StringLiterals;

namespace zeph {

QString rawValue(DesktopCategory category) {
    switch (category) {
    case DesktopCategory::screenshots:
        return u"screenshots"_s;
    case DesktopCategory::images:
        return u"images"_s;
    case DesktopCategory::documents:
        return u"documents"_s;
    case DesktopCategory::archives:
        return u"archives"_s;
    case DesktopCategory::media:
        return u"media"_s;
    case DesktopCategory::folders:
        return u"folders"_s;
    case DesktopCategory::other:
        break;
    }
    return u"other"_s;
}

std::optional<DesktopCategory> desktopCategoryFromRaw(const QString &raw) {
    for (const DesktopCategory category : allDesktopCategories) {
        if (rawValue(category) == raw) {
            return category;
        }
    }
    return std::nullopt;
}

} // namespace zeph
