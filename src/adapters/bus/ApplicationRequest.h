// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>
#include <QVariantList>
#include <QVariantMap>

namespace zeph {

/// What the desktop, or a second start of the program, asks of the running one.
struct ApplicationRequest {
    enum class Kind { activate, open, action };

    Kind kind = Kind::activate;
    QStringList uris = {};         ///< of `open`
    QString action = {};           ///< name of `action`
    QVariantList parameters = {};  ///< of `action`
    QVariantMap platformData = {}; ///< such as an activation token; may be empty
};

} // namespace zeph
