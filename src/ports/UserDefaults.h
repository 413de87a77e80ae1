// SPDX-License-Identifier: MIT
#pragma once

#include "ports/Port.h"

#include <QByteArray>
#include <QString>

#include <optional>
#include <variant>

namespace zeph {

/// A stored value keeps its type: a number is never read as a boolean, nor a text as bytes.
using DefaultsValue = std::variant<bool, double, QString, QByteArray>;

/// The user's settings by key, written through on every change. Callable from any thread.
class UserDefaults : public Port {
public:
    /// Absent when the key is not there or holds a form that this store does not know.
    virtual std::optional<DefaultsValue> value(const QString &key) const = 0;

    /// Whether anything is stored there, of whatever form.
    virtual bool contains(const QString &key) const = 0;

    /// Keeps a copy of what is stored there, of whatever form, and returns its key: `key`.damaged,
    /// or a numbered one where that holds something else.
    virtual QString keepDamaged(const QString &key) = 0;

    virtual void set(const QString &key, const DefaultsValue &value) = 0;
    virtual void remove(const QString &key) = 0;

    /// False while a change lives in memory alone, since it could not be stored.
    virtual bool isSaved() const = 0;

    /// The value when it has exactly this type, else absent.
    template <typename T>
    std::optional<T> get(const QString &key) const {
        const auto stored = value(key);
        const T *typed = stored ? std::get_if<T>(&*stored) : nullptr;
        return typed ? std::optional<T>(*typed) : std::nullopt;
    }

    /// A boolean, false when absent or of another type.
    bool boolean(const QString &key) const { return get<bool>(key).value_or(false); }
};

} // namespace zeph
