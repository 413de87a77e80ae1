// SPDX-License-Identifier: MIT
#pragma once

#include "base/DamagedName.h"
#include "ports/UserDefaults.h"

#include <QStringList>

#include <atomic>
#include <map>
#include <mutex>

namespace zeph {

/// Settings in memory, with a count of the writes. Callable from any thread.
class FakeUserDefaults : public UserDefaults {
public:
    std::optional<DefaultsValue> value(const QString &key) const override {
        const std::lock_guard guard(m_mutex);
        const auto found = m_values.find(key);
        return found == m_values.end() ? std::nullopt : found->second;
    }
    bool contains(const QString &key) const override {
        const std::lock_guard guard(m_mutex);
        return m_values.count(key) > 0;
    }
    QString keepDamaged(const QString &key) override {
        const std::lock_guard guard(m_mutex);
        const auto damaged = m_values[key];
        const QString kept = unusedDamagedName(key, [&](const QString &name) {
            return m_values.count(name) > 0 && m_values[name] != damaged;
        });
        if (m_values.try_emplace(kept, damaged).second) {
            written << kept;
            ++writes;
        }
        return kept;
    }
    void set(const QString &key, const DefaultsValue &value) override {
        const std::lock_guard guard(m_mutex);
        m_values[key] = value;
        written << key;
        ++writes;
    }
    void remove(const QString &key) override {
        const std::lock_guard guard(m_mutex);
        m_values.erase(key);
        ++writes;
    }
    bool isSaved() const override { return canSave || writes == 0; }

    /// Stores something of a form that no value has.
    void putUnknownForm(const QString &key) {
        const std::lock_guard guard(m_mutex);
        m_values[key] = std::nullopt;
    }

    std::atomic<int> writes = 0;
    std::atomic<bool> canSave = true;
    QStringList written; ///< the keys that were set, in order

private:
    mutable std::mutex m_mutex;
    std::map<QString, std::optional<DefaultsValue>> m_values; // absent: of an unknown form
};

} // namespace zeph
