// SPDX-License-Identifier: MIT
#pragma once

#include <array>

namespace zeph {

/// The kinds of item that the Desktop census tells apart.
enum class DesktopCategory { screenshots, images, documents, archives, media, folders, other };

/// All categories in their fixed order.
inline constexpr std::array allDesktopCategories = {
    DesktopCategory::screenshots, DesktopCategory::images, DesktopCategory::documents,
    DesktopCategory::archives,    DesktopCategory::media,  DesktopCategory::folders,
    DesktopCategory::other};

} // namespace zeph
