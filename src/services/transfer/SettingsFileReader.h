// SPDX-License-Identifier: MIT
#pragma once

#include "services/transfer/TransferredSettings.h"

#include <QByteArray>
#include <QString>

#include <variant>

namespace zeph::SettingsFile {

/// A file that is longer is none of ours.
inline constexpr qsizetype mostBytes = qsizetype(4) * 1024 * 1024;

/// By which a file is known as one of ours, and what understands it.
inline QString formatName() {
    return QStringLiteral("tavi-settings");
}
inline constexpr qint64 version = 1;

/// What a file holds, or in sentences why it can't be taken. Changes nothing.
std::variant<TransferredSettings, QString> read(const QByteArray &bytes);

} // namespace zeph::SettingsFile
