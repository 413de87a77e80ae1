// SPDX-License-Identifier: MIT
#include "adapters/login/AutostartEntry.h"

#include "adapters/login/AutostartFile.h"
#include "adapters/storage/SmallFile.h"
#include "base/WholeFile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

constexpr qint64 kMostBytes = 65'536;

QString fileIn(const QString &configFolder) {
    return configFolder + u"/autostart/com.tavi.Tavi.desktop"_s;
}

/// Absent for a file that is too long to be one, too: half of it must not replace the whole.
std::optional<QByteArray> contentOf(const QString &path) {
    auto bytes = readSmallFile(QFile::encodeName(path), kMostBytes);
    return bytes && bytes->size() < kMostBytes ? std::move(bytes) : std::nullopt;
}

std::optional<AutostartFacts> factsIn(const QString &path) {
    const auto bytes = contentOf(path);
    return bytes ? readAutostart(*bytes) : std::nullopt;
}

bool hasProgram(const AutostartFacts &facts) {
    return facts.tryExec.isEmpty() || !QStandardPaths::findExecutable(facts.tryExec).isEmpty();
}

/// Whether the session starts the program after the entry there.
bool starts(const QString &path) {
    const auto facts = factsIn(path);
    return facts && facts->isEnabled && hasProgram(*facts);
}

} // namespace

AutostartEntry::AutostartEntry(QStringList configFolders, QString executable)
    : m_folders(std::move(configFolders)), m_executable(std::move(executable)) {}

QString AutostartEntry::userFile() const {
    return fileIn(m_folders.value(0));
}

/// The first entry counts, whatever those of lower rank say.
bool AutostartEntry::isEnabled() const {
    return QFile::exists(userFile()) ? starts(userFile()) : isSystemWide();
}

bool AutostartEntry::isSystemWide() const {
    const auto first =
        std::find_if(m_folders.begin() + std::min<qsizetype>(1, m_folders.size()), m_folders.end(),
                     [](const QString &folder) { return QFile::exists(fileIn(folder)); });
    return first != m_folders.end() && starts(fileIn(*first));
}

void AutostartEntry::setEnabled(bool enabled,
                                std::function<void(const std::optional<QString> &)> done) {
    auto error = change(enabled);
    if (!error && isEnabled() != enabled) {
        error = u"%1 starts a program that is not there"_s.arg(userFile());
    }
    done(error);
}

void AutostartEntry::renew(std::function<void(const std::optional<QString> &)> done) {
    done(startsNothing() ? write(writeAutostart(m_executable, true)) : std::nullopt);
}

/// Whether there is an entry of ours that is switched on, for a program that is gone.
bool AutostartEntry::startsNothing() const {
    const QFileInfo file(userFile());
    const auto facts = file.isFile() && !file.isSymLink() ? factsIn(userFile()) : std::nullopt;
    return facts && facts->isOurs && facts->isEnabled && !hasProgram(*facts);
}

std::optional<QString> AutostartEntry::change(bool enabled) const {
    const QFileInfo file(userFile());
    if (file.isSymLink() || (file.exists() && !file.isFile())) {
        return u"%1 leads elsewhere and was left alone"_s.arg(userFile());
    }
    if (!file.exists()) {
        return enabled || isSystemWide() ? write(writeAutostart(m_executable, enabled))
                                         : std::nullopt;
    }
    const auto bytes = contentOf(userFile());
    const auto facts = bytes ? readAutostart(*bytes) : std::nullopt;
    if (!facts) {
        return u"%1 can't be understood and was left alone"_s.arg(userFile());
    }
    if (!facts->isOurs) {
        return write(switchAutostart(*bytes, enabled).value_or(*bytes));
    }
    return enabled || isSystemWide() ? write(writeAutostart(m_executable, enabled)) : remove();
}

std::optional<QString> AutostartEntry::write(const QByteArray &entry) const {
    QDir().mkpath(QFileInfo(userFile()).path()); // without a folder the writing fails
    const auto reason = writeWhole(userFile(), entry);
    return reason ? std::optional(u"%1 can't be written: %2"_s.arg(userFile(), *reason))
                  : std::nullopt;
}

std::optional<QString> AutostartEntry::remove() const {
    QFile file(userFile());
    return file.remove()
               ? std::nullopt
               : std::optional(u"%1 can't be removed: %2"_s.arg(userFile(), file.errorString()));
}

} // namespace zeph
