// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

namespace zeph {

/// What an autostart entry says.
struct AutostartFacts {
    bool isEnabled = true; ///< neither hidden nor switched off
    bool isOurs = false;   ///< written whole by us, so that it holds nothing of the user's
    QString tryExec = {};  ///< the program without which the entry does not count; may be empty

    bool operator==(const AutostartFacts &) const = default;
};

/// Absent when the bytes are no entry of an application. Any bytes are safe.
std::optional<AutostartFacts> readAutostart(const QByteArray &bytes);

/// An entry of ours that starts `executable`, or that hides one of the system's.
QByteArray writeAutostart(const QString &executable, bool isEnabled);

/// The same entry switched on or off, with all else as it is, comments too. Absent when the bytes
/// are no entry.
std::optional<QByteArray> switchAutostart(const QByteArray &bytes, bool isEnabled);

/// `executable` as the one argument of an Exec line, before the escapes of any text of an entry.
QString execLine(const QString &executable);

} // namespace zeph
