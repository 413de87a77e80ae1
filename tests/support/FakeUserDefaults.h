// SPDX-License-Identifier: MIT
#pragma once

#include "platform/UserDefaults.h"

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
        return found == m_values.end() ? std::nullopt : std::optional(found->second);
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

    std::atomic<int> writes = 0;
    QStringList written; ///< the keys that were set, in order

private:
    mutable std::mutex m_mutex;
    std::map<QString, DefaultsValue> m_values;
};

} // namespace zeph
