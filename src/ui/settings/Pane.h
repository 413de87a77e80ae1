// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

#include <functional>
#include <vector>

class QVBoxLayout;

namespace zeph::ui {

/// Where the search leads: a control under a title that people look for.
struct SearchEntry {
    QString title;
    QString detail; ///< searched as well
    QWidget *target = nullptr;
    /// Brings the target into view on its pane; null where it always is.
    std::function<void()> show = {};
};

/// What one tab of the settings shows: one column, header first. The window scrolls it.
class Pane : public QWidget {
public:
    explicit Pane(QWidget *parent = nullptr);

    /// Below the others, `gap` logical pixels apart.
    void add(QWidget *widget, int gap);

    /// Everything in the pane that can be looked for, as it stands now.
    virtual std::vector<SearchEntry> searchEntries() { return {}; }

    /// Called when the pane comes into view.
    virtual void willShow() {}

    /// Called when the user goes a step back (Escape, Alt+Left); answers whether there was one.
    virtual bool goBack() { return false; }

private:
    QVBoxLayout *m_column;
};

} // namespace zeph::ui
