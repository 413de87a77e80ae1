// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <array>
#include <optional>

namespace zeph {

/// The kinds of item that the Desktop census tells apart.
enum class DesktopCategory { screenshots, images, documents, archives, media, folders, other };

/// All categories in their fixed order.
inline constexpr std::array allDesktopCategories = {
    DesktopCategory::screenshots, DesktopCategory::images, DesktopCategory::documents,
    DesktopCategory::archives,    DesktopCategory::media,  DesktopCategory::folders,
    DesktopCategory::other};

/// The text form, which is the category's name.
QString rawValue(DesktopCategory category);

/// The category of a text form, absent for any other text.
std::optional<DesktopCategory> desktopCategoryFromRaw(const QString &raw);

} // namespace zeph
