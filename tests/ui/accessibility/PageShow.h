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

/// The settings of someone who uses all of it, page after page: F12 leads to the next, whose name
/// the window then bears. After the last one it is called "end".
class PageShow {
public:
    /// `parts` are what the windows work on, and outlive them.
    PageShow(const ui::SettingsContext &parts, const Background &background);
    ~PageShow();

    /// The tabs, or with `ofAccounts` the form of an account at each service.
    std::unique_ptr<QWidget> open(bool ofAccounts);

private:
    struct Page {
        QString name;
        std::function<void()> show;
    };

    void addTabs();
    void addForms();
    void addForm(const QString &name, const ui::IntegrationsSelection &selection);
    void next();

    ui::SettingsContext m_parts;
    const Background &m_background;
    ui::SettingsWindow *m_window = nullptr;
    ui::IntegrationsPane *m_integrations = nullptr;
    std::vector<Page> m_pages;
    std::size_t m_shown = 0;
};

} // namespace zeph
