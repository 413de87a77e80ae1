// SPDX-License-Identifier: MIT
#pragma once

#include "base/WorkOwner.h"
#include "ui/controls/Card.h"
#include "ui/settings/Pane.h"
#include "ui/settings/SettingsContext.h"

#include <QByteArray>

#include <optional>

namespace zeph {

class Background;

namespace ui {

class PillButton;
class StatusLine;

/// Takes all settings to another computer, as one file.
class SettingsFileCard : public Card {
public:
    /// `files` reads and writes, since the file can lie in a slow place.
    SettingsFileCard(SettingsContext context, const Background &files, QWidget *parent = nullptr);

    std::vector<SearchEntry> searchEntries() const { return {m_entry}; }

    /// Writes all settings to `path`; the card tells how that went.
    void exportTo(const QString &path);

    /// Takes over what the file at `path` holds, or tells why it can't.
    void importFrom(const QString &path);

private:
    QWidget *makeButtons();
    void askWhereTo();
    void askWhereFrom();
    void tellExport(const QString &name, bool isWritten, bool isWhole);
    void take(const std::optional<QByteArray> &bytes);

    SettingsContext m_context;
    const Background &m_files;
    PillButton *m_export;
    PillButton *m_import;
    StatusLine *m_status;
    SearchEntry m_entry;
    WorkOwner m_owner;
};

} // namespace ui

} // namespace zeph
