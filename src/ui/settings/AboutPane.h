// SPDX-License-Identifier: MIT
#pragma once

#include "ui/settings/Pane.h"
#include "ui/settings/SettingsContext.h"

#include <QUrl>

#include <functional>

namespace zeph::ui {

/// The tab "About".
class AboutPane : public Pane {
public:
    /// `support` is where people write to with questions; without an address nobody can.
    AboutPane(const SettingsContext &context, QUrl support, QWidget *parent = nullptr);

    std::vector<SearchEntry> searchEntries() override { return m_entries; }

    /// Called with the page of the support when it is asked for; opens it as the desktop does,
    /// unless set otherwise.
    std::function<void(const QUrl &)> open;

private:
    QWidget *makeVersionLine();
    QWidget *makePrivacyCard();
    QWidget *makeUpdateCard(const SettingsContext &context);
    QWidget *makeDrawingWayCard(const SettingsContext &context);
    QWidget *makeSupportCard();

    QUrl m_support;
    std::vector<SearchEntry> m_entries;
};

} // namespace zeph::ui
