// SPDX-License-Identifier: MIT
#include "ui/settings/SettingsFileCard.h"

#include "base/Background.h"
#include "base/WholeFile.h"
#include "services/accounts/IntegrationsStore.h"
#include "services/transfer/SettingsFile.h"
#include "ui/controls/Look.h"
#include "ui/controls/PillButton.h"
#include "ui/controls/SettingRow.h"
#include "ui/controls/StatusLine.h"

#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QStandardPaths>

namespace zeph::ui {

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 largestSettingsFile = qint64{16} << 20;

QString fileFilter() {
    return u"Tavi settings (*.json)"_s;
}

QString suggestedPath() {
    const QDir folder(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation));
    return folder.filePath(u"tavi-settings.json"_s);
}

/// Only the user may read it, since it tells a lot of them.
bool writeFile(const QString &path, const QByteArray &bytes) {
    return !writeWhole(path, bytes, QFileDevice::ReadOwner | QFileDevice::WriteOwner);
}

/// Absent for what can't be read, is no ordinary file, or is too large to be one of ours.
std::optional<QByteArray> readFile(const QString &path) {
    QFile file(path);
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly)) {
        return std::nullopt;
    }
    QByteArray bytes = file.read(largestSettingsFile + 1);
    if (file.error() != QFileDevice::NoError || bytes.size() > largestSettingsFile) {
        return std::nullopt;
    }
    return bytes;
}

QFileDialog *makeDialog(QWidget &owner, const QString &title) {
    auto *dialog = new QFileDialog(&owner, title, {}, fileFilter());
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    return dialog;
}

} // namespace

SettingsFileCard::SettingsFileCard(SettingsContext context, const Background &files,
                                   QWidget *parent)
    : Card(parent),
      m_context(std::move(context)),
      m_files(files),
      m_export(new PillButton(u"Export…"_s)),
      m_import(new PillButton(u"Import…"_s)),
      m_status(new StatusLine),
      m_entry{u"Export and import"_s,
              u"All settings in one file, for another computer. Keys stay in your keyring, so "
              u"accounts ask for theirs again."_s,
              m_export} {
    auto *row = new SettingRow({u"archivebox"_s, m_entry.title, m_entry.detail}, makeButtons());
    row->addBelow(m_status);
    addRow(row);
}

QWidget *SettingsFileCard::makeButtons() {
    auto *buttons = new QWidget;
    auto *line = new QHBoxLayout(buttons);
    line->setContentsMargins(0, 0, 0, 0);
    line->setSpacing(scaled(10));
    line->addWidget(m_export);
    line->addWidget(m_import);
    connect(m_export, &QPushButton::clicked, this, [this] { askWhereTo(); });
    connect(m_import, &QPushButton::clicked, this, [this] { askWhereFrom(); });
    return buttons;
}

void SettingsFileCard::askWhereTo() {
    QFileDialog *dialog = makeDialog(*this, u"Export settings"_s);
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setDefaultSuffix(u"json"_s);
    dialog->selectFile(suggestedPath());
    connect(dialog, &QFileDialog::fileSelected, this,
            [this](const QString &path) { exportTo(path); });
    dialog->open();
}

void SettingsFileCard::askWhereFrom() {
    QFileDialog *dialog = makeDialog(*this, u"Import settings"_s);
    dialog->setFileMode(QFileDialog::ExistingFile);
    connect(dialog, &QFileDialog::fileSelected, this,
            [this](const QString &path) { importFrom(path); });
    dialog->open();
}

void SettingsFileCard::exportTo(const QString &path) {
    const QByteArray bytes = SettingsFile::exported(m_context.preferences, m_context.integrations);
    const bool isWhole = m_context.integrations.areCustomAPIsLoaded();
    m_files.run(
        m_owner, [path, bytes] { return writeFile(path, bytes); },
        [this, path, isWhole](bool isWritten) {
            tellExport(QFileInfo(path).fileName(), isWritten, isWhole);
        });
}

void SettingsFileCard::tellExport(const QString &name, bool isWritten, bool isWhole) {
    if (!isWritten) {
        m_status->show(StatusLine::Kind::error, u"%1 could not be written."_s.arg(name));
    } else if (!isWhole) {
        m_status->show(
            StatusLine::Kind::hint,
            u"Exported to %1, without custom endpoints, since the keyring is locked."_s.arg(name));
    } else {
        m_status->show(StatusLine::Kind::ok, u"Exported to %1."_s.arg(name));
    }
}

void SettingsFileCard::importFrom(const QString &path) {
    m_files.run(
        m_owner, [path] { return readFile(path); },
        [this](const std::optional<QByteArray> &bytes) { take(bytes); });
}

void SettingsFileCard::take(const std::optional<QByteArray> &bytes) {
    if (!bytes) {
        m_status->show(StatusLine::Kind::error, u"This file could not be read."_s);
        return;
    }
    const auto understood = SettingsFile::read(*bytes);
    if (const auto *problem = std::get_if<QString>(&understood)) {
        m_status->show(StatusLine::Kind::error, *problem);
        return;
    }
    const auto imported = SettingsFile::take(std::get<TransferredSettings>(understood),
                                             m_context.preferences, m_context.integrations);
    m_status->show(StatusLine::Kind::ok, SettingsFile::summary(imported));
}

} // namespace zeph::ui
