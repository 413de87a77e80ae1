// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/session/nemo/NemoSettings.h"
#include "support/FakeUserDefaults.h"

#include <map>

namespace zeph {

// The layout without a choice of the user's, and the same in other words.
inline const QString kUsual = QStringLiteral("'true::false'");
inline const QString kOther = QStringLiteral("'true::false::'");

/// The settings of Nemo's desktop, and the tool that reads and writes them.
class FakeNemo {
public:
    NemoSettings settings(UserDefaults &defaults) {
        return {[this](const QStringList &arguments) { return answer(arguments); }, defaults};
    }

    QString &layout() { return values[QStringLiteral("desktop-layout")]; }
    QString &handlers() { return values[QStringLiteral("ignored-desktop-handlers")]; }

    std::map<QString, QString> values{
        {QStringLiteral("desktop-layout"), QStringLiteral("'true::false'")},
        {QStringLiteral("ignored-desktop-handlers"), QStringLiteral("['conky']")}};
    QStringList written; ///< keys and values
    bool isWritable = true;
    bool isStored = true; ///< else it takes what is written, and it comes to nothing
    bool isInstalled = true;
    std::function<void()> beforeWrite = [] {};

private:
    std::optional<ToolAnswer> answer(const QStringList &arguments) {
        if (!isInstalled) {
            return std::nullopt;
        }
        const QString &key = arguments.at(2);
        if (arguments.at(1) != QStringLiteral("org.nemo.desktop") || values.count(key) == 0) {
            return ToolAnswer{1, {}, QStringLiteral("No such key")};
        }
        if (arguments.first() == QStringLiteral("get")) {
            return ToolAnswer{0, values[key], {}};
        }
        beforeWrite();
        if (!isWritable) {
            return ToolAnswer{1, {}, QStringLiteral("The key is not writable")};
        }
        if (!isStored) {
            return ToolAnswer{0, {}, QStringLiteral("failed to commit changes to dconf")};
        }
        values[key] = arguments.at(3);
        written << key + QLatin1Char(' ') + arguments.at(3);
        return ToolAnswer{0, {}, {}};
    }
};

} // namespace zeph
