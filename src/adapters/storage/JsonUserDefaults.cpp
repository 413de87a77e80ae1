// SPDX-License-Identifier: MIT
#include "adapters/storage/JsonUserDefaults.h"

#include "base/Console.h"
#include "base/DamagedName.h"
#include "base/PrivateFolder.h"
#include "base/WholeFile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>

#include <sys/stat.h>

#include <cerrno>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

constexpr QFile::Permissions ownerFile = QFile::ReadOwner | QFile::WriteOwner;

/// Writes a value in its stored form.
struct Encoder {
    QJsonValue operator()(bool value) const { return value; }
    QJsonValue operator()(double value) const { return value; }
    QJsonValue operator()(const QString &value) const { return value; }
    QJsonValue operator()(const QByteArray &value) const {
        return QJsonObject{{u"data"_s, QString::fromLatin1(value.toBase64())}};
    }
};

std::optional<DefaultsValue> decodeBytes(const QJsonObject &object) {
    const QJsonValue data = object.value("data"_L1);
    if (object.size() != 1 || !data.isString()) {
        return std::nullopt;
    }
    const auto decoded = QByteArray::fromBase64Encoding(data.toString().toLatin1(),
                                                        QByteArray::AbortOnBase64DecodingErrors);
    return decoded ? std::optional<DefaultsValue>(*decoded) : std::nullopt;
}

/// False also where that can't be told, as on a disk that does not answer.
bool isNothingThere(const QString &path) {
    struct stat state {};
    return stat(QFile::encodeName(path).constData(), &state) != 0 &&
           (errno == ENOENT || errno == ENOTDIR);
}

} // namespace

JsonUserDefaults::JsonUserDefaults(const QString &path) : m_path(QDir::cleanPath(path)) {
    load();
}

void JsonUserDefaults::load() {
    if (isNothingThere(m_path)) {
        m_isOurs = false;
        return;
    }
    QFile file(m_path);
    // Something else in its place, such as a pipe, would be waited for.
    if (!QFileInfo(m_path).isFile() || !file.open(QFile::ReadOnly)) {
        m_mayWrite = false;
        keepInMemory();
        return;
    }
    const QByteArray bytes = file.readAll();
    if (file.error() != QFile::NoError) {
        m_mayWrite = false; // half of the settings must not replace the whole
        keepInMemory();
        return;
    }
    file.setPermissions(file.permissions() & ownerFile); // it may come from a backup, open to all
    file.close();
    const QJsonDocument document = QJsonDocument::fromJson(bytes);
    if (document.isObject()) {
        m_values = document.object();
    } else {
        setAside();
    }
}

void JsonUserDefaults::setAside() {
    const QString aside = unusedDamagedName(m_path);
    m_mayWrite = QDir().rename(m_path, aside);
    if (m_mayWrite) {
        printLine(u"[Zeph] the settings were damaged and are kept as %1"_s.arg(aside));
    } else {
        keepInMemory();
    }
}

std::optional<DefaultsValue> JsonUserDefaults::value(const QString &key) const {
    const std::lock_guard guard(m_mutex);
    const QJsonValue stored = m_values.value(key);
    switch (stored.type()) {
    case QJsonValue::Bool:
        return stored.toBool();
    case QJsonValue::Double:
        return stored.toDouble();
    case QJsonValue::String:
        return stored.toString();
    case QJsonValue::Object:
        return decodeBytes(stored.toObject());
    case QJsonValue::Array:
    case QJsonValue::Null:
    case QJsonValue::Undefined:
        break;
    }
    return std::nullopt;
}

bool JsonUserDefaults::contains(const QString &key) const {
    const std::lock_guard guard(m_mutex);
    return m_values.contains(key);
}

QString JsonUserDefaults::keepDamaged(const QString &key) {
    const std::lock_guard guard(m_mutex);
    const QJsonValue damaged = m_values.value(key);
    QString kept = unusedDamagedName(key, [&](const QString &name) {
        return m_values.contains(name) && m_values.value(name) != damaged;
    });
    if (!m_saved || !m_values.contains(kept)) {
        m_values.insert(kept, damaged);
        save();
    }
    return kept;
}

void JsonUserDefaults::set(const QString &key, const DefaultsValue &value) {
    const std::lock_guard guard(m_mutex);
    const QJsonValue encoded = std::visit(Encoder{}, value);
    if (m_saved && m_values.value(key) == encoded) {
        return;
    }
    m_values.insert(key, encoded);
    save();
}

void JsonUserDefaults::remove(const QString &key) {
    const std::lock_guard guard(m_mutex);
    if (m_saved && !m_values.contains(key)) {
        return;
    }
    m_values.remove(key);
    save();
}

bool JsonUserDefaults::isSaved() const {
    const std::lock_guard guard(m_mutex);
    return m_saved;
}

void JsonUserDefaults::save() {
    m_saved = m_mayWrite && writeFile();
    if (!m_saved) {
        keepInMemory();
    }
}

bool JsonUserDefaults::writeFile() {
    if (!m_isOurs && !isNothingThere(m_path)) {
        m_mayWrite = false; // it came with a disk, or from a backup, after the start
        return false;
    }
    const bool isWritten = makePrivateFolder(QFileInfo(m_path).path()) &&
                           !writeWhole(m_path, QJsonDocument(m_values).toJson(), ownerFile);
    m_isOurs = m_isOurs || isWritten;
    return isWritten;
}

void JsonUserDefaults::keepInMemory() {
    if (!m_told) {
        m_told = true;
        printLine(
            u"[Zeph] can't keep settings in %1; changes last until the program ends"_s.arg(m_path));
    }
}

} // namespace zeph
