// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

#include <optional>

namespace zeph {

/// Sets an environment variable, or removes it, until the end of the scope.
class ScopedVariable {
public:
    ScopedVariable(const char *name, const std::optional<QByteArray> &value)
        : m_name(name), m_former(current(name)) {
        put(name, value);
    }
    ~ScopedVariable() { put(m_name, m_former); }
    ScopedVariable(const ScopedVariable &) = delete;
    ScopedVariable &operator=(const ScopedVariable &) = delete;

    void set(const std::optional<QByteArray> &value) { put(m_name, value); }

private:
    static std::optional<QByteArray> current(const char *name) {
        return qEnvironmentVariableIsSet(name) ? std::optional(qgetenv(name)) : std::nullopt;
    }
    static void put(const char *name, const std::optional<QByteArray> &value) {
        value ? qputenv(name, *value) : qunsetenv(name);
    }

    const char *m_name;
    std::optional<QByteArray> m_former;
};

} // namespace zeph
