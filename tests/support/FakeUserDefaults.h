// SPDX-License-Identifier: MIT
#pragma once

#include "platform/UserDefaults.h"

#include <map>

namespace zeph {

/// Settings in memory, with a count of the writes.
class FakeUserDefaults : public UserDefaults {
public:
    std::optional<DefaultsValue> value(const QString &key) const override {
        const auto found = m_values.find(key);
        return found == m_values.end() ? std::nullopt : std::optional(found->second);
    }
    void set(const QString &key, const DefaultsValue &value) override {
        m_values[key] = value;
        ++writes;
    }
    void remove(const QString &key) override {
        m_values.erase(key);
        ++writes;
    }

    int writes = 0;

private:
    std::map<QString, DefaultsValue> m_values;
};

} // namespace zeph
