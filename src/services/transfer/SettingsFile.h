// SPDX-License-Identifier: MIT
#pragma once

#include "services/transfer/SettingsFileReader.h"

#include <QByteArray>
#include <QString>

namespace zeph {

class IntegrationsStore;
class PreferencesStore;

/// All settings in one file that can go to another computer: JSON without any key, consent or
/// usage. docs/SETTINGS.md tells its form. `read` stands in SettingsFileReader.h.
namespace SettingsFile {

/// What a file is called that nobody named.
inline QString defaultName() {
    return QStringLiteral("Tavi settings.json");
}

/// The file of what is set now.
QByteArray exported(const PreferencesStore &preferences, const IntegrationsStore &store);

/// What was left open in the end, for whoever imported it.
struct Imported {
    std::size_t accountsWithoutKey = 0;  ///< they are there and wait for their key
    std::size_t headersWithoutValue = 0; ///< likewise
    bool areEndpointsLeftOut = false;    ///< the keyring does not tell the list that is there

    bool operator==(const Imported &) const = default;
};

/// Takes all of it over. Accounts and endpoints that are there already are replaced and keep their
/// keys; none is removed.
Imported take(const TransferredSettings &settings, PreferencesStore &preferences,
              IntegrationsStore &store);

/// What came of an import, in sentences.
QString summary(const Imported &imported);

} // namespace SettingsFile

} // namespace zeph
