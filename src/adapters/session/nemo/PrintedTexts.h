// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

#include <optional>

namespace zeph {

/// The texts in what the settings' tool prints of a list, each in its quotes as it stands there;
/// absent for what is no such list.
std::optional<QStringList> printedTextsIn(const QString &list);

/// Such a list, as the tool takes it.
QString listOfPrinted(const QStringList &texts);

} // namespace zeph
