// SPDX-License-Identifier: MIT
#pragma once

#include "ui/settings/Pane.h"
#include "ui/settings/SettingsContext.h"

#include <functional>

namespace zeph {

class Background;

namespace ui {

/// The tab "General": one card a subject.
class GeneralPane : public Pane {
public:
    /// `desktopFolder` is what people call it, such as "~/Desktop" (see `shownFolder`), empty for a
    /// user without one; `files` reads and writes files of settings.
    GeneralPane(const SettingsContext &context, const QString &desktopFolder,
                const Background &files, QWidget *parent = nullptr);

    std::vector<SearchEntry> searchEntries() override;

private:
    template <typename Kind>
    void addCard(Kind *card);

    std::vector<std::function<std::vector<SearchEntry>()>> m_entries; ///< of each card
};

} // namespace ui

} // namespace zeph
