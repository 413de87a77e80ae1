// SPDX-License-Identifier: MIT
#pragma once

#include "ui/SettingsPages.h"

namespace zeph {

/// The settings, page after page: F12 leads to the next, whose name the window then bears. After
/// the last one it is called "end".
class PageShow {
public:
    /// `parts` are what the window works on, and outlive it.
    PageShow(const ui::SettingsContext &parts, const Background &background);

    /// The panes, or with `ofAccounts` the form of an account at each service.
    std::unique_ptr<QWidget> open(bool ofAccounts);

private:
    void next();

    SettingsPages m_pages;
    QWidget *m_window = nullptr;
    std::size_t m_shown = 0;
};

} // namespace zeph
