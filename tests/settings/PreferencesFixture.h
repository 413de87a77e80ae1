// SPDX-License-Identifier: MIT
#pragma once

#include "base/NotificationCenter.h"
#include "settings/PreferencesStore.h"
#include "support/FakeFormatters.h"
#include "support/FakeUserDefaults.h"
#include "support/QtPrinters.h"

#include <QJsonDocument>

#include <gmock/gmock.h>

namespace zeph {

/// Preferences over defaults in memory, with a record of what they post.
class PreferencesFixture : public testing::Test {
protected:
    PreferencesStore &prefs() {
        if (!m_prefs) {
            m_prefs = std::make_unique<PreferencesStore>(defaults, center, formatters);
        }
        return *m_prefs;
    }

    /// What the next launch reads.
    PreferencesStore &relaunched() {
        m_prefs.reset();
        return prefs();
    }

    void store(const QString &key, const DefaultsValue &value) { defaults.set(key, value); }
    void storeJson(const QString &key, const char *json) { defaults.set(key, QByteArray(json)); }
    QByteArray storedJson(const QString &key) const {
        return defaults.get<QByteArray>(key).value_or("absent");
    }

    FakeUserDefaults defaults;
    FakeFormatters formatters;
    NotificationCenter center;
    QStringList posted;

private:
    Subscription record(const QString &name) {
        return center.observe(name, [this, name] { posted.append(name); });
    }

    std::vector<Subscription> m_subscriptions = [this] {
        std::vector<Subscription> all;
        for (const QString &name :
             {notifications::zephPreferencesChanged, notifications::zephDisplaySelectionChanged,
              notifications::zephDesktopSelectionChanged}) {
            all.push_back(record(name));
        }
        return all;
    }();
    std::unique_ptr<PreferencesStore> m_prefs;
};

} // namespace zeph
