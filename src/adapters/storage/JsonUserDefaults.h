// SPDX-License-Identifier: MIT
#pragma once

#include "ports/UserDefaults.h"

#include <QJsonObject>

#include <mutex>

namespace zeph {

/// The settings as one JSON object in a file that a person can read: booleans, numbers and texts
/// as such, bytes as {"data": base64}. Other forms read as absent and are kept as they are.
/// Callable from any thread, a write holds the others up; what another process writes meanwhile is
/// not seen.
class JsonUserDefaults : public UserDefaults {
public:
    /// Reads the file at `path`. One that is no JSON object is renamed to `path`.damaged, or a
    /// numbered name beside it. Where that fails, or the file can't be read or reached, or one
    /// comes later where there was none, nothing is written and the values live in memory.
    explicit JsonUserDefaults(const QString &path);

    std::optional<DefaultsValue> value(const QString &key) const override;

    bool contains(const QString &key) const override;
    QString keepDamaged(const QString &key) override;

    /// Each change replaces the whole file (0600, in a folder of 0700) or, when that fails,
    /// leaves the old one as it was; the first failure is printed, and the next change tries
    /// again.
    void set(const QString &key, const DefaultsValue &value) override;
    void remove(const QString &key) override;
    bool isSaved() const override;

private:
    void load();
    void setAside();
    void save();
    bool writeFile();
    void keepInMemory();

    QString m_path;
    mutable std::mutex m_mutex; // for all below
    QJsonObject m_values;
    bool m_mayWrite = true; // false while a file that isn't ours to replace stands at `m_path`
    bool m_isOurs = true;   // false while there was no file that is read or written here
    bool m_saved = true;    // false when memory is ahead of the file
    bool m_told = false;
};

} // namespace zeph
