// SPDX-License-Identifier: MIT
#pragma once

#include "ui/SettingsFixture.h"
#include "ui/settings/SettingsWindow.h"

#include <functional>
#include <memory>
#include <vector>

namespace zeph {

namespace ui {
class IntegrationsPane;
struct IntegrationsSelection;
} // namespace ui

/// All that the settings show, with the program's own tabs, page after page: the panes of someone
/// who has two accounts and an endpoint, and the form of an account at each service.
class SettingsPages {
public:
    struct Page {
        QString name;
        std::function<void()> show;
    };

    /// `parts` are what the window works on, and outlive it.
    SettingsPages(const ui::SettingsContext &parts, const Background &background);
    ~SettingsPages();

    /// The window that the pages are shown in. It has none until some are added.
    std::unique_ptr<ui::SettingsWindow> open();

    void addPanes();
    /// Those of all services, or of `services`.
    void addForms(const QStringList &services = {});
    void addAccount(const QString &name, const IntegrationConnection &account);
    void addEndpoint(const QString &name, const QUuid &id);
    const std::vector<Page> &pages() const { return m_pages; }

private:
    void addPage(const QString &name, const ui::IntegrationsSelection &selection);

    ui::SettingsContext m_parts;
    const Background &m_background;
    ui::SettingsWindow *m_window = nullptr;
    ui::IntegrationsPane *m_integrations = nullptr;
    std::vector<Page> m_pages;
};

} // namespace zeph
