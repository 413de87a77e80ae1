// SPDX-License-Identifier: MIT
#pragma once

#include "ui/controls/SideBar.h"
#include "ui/settings/SettingsSearch.h"

#include <QWidget>

#include <functional>
#include <vector>

class QStackedWidget;

namespace zeph::ui {

class SearchField;
class SearchList;

/// The side of the settings window: a search, the tabs or what was found, and what the program
/// promises.
class SettingsSide : public QWidget {
public:
    explicit SettingsSide(const std::vector<SideBar::Tab> &tabs, QWidget *parent = nullptr);

    void setCurrent(int tab);

    void focusTabs();
    void focusSearch();
    /// Empties the search; the focus goes back to the tabs if it was in it.
    void endSearch();
    bool isSearching() const;
    QString wanted() const;
    void setResults(std::vector<Findable> results);

    std::function<void(int)> onTab;
    std::function<void(const QString &)> onQuery;
    std::function<void(const Findable &)> onFound;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    QWidget *footer();
    void choose(int row);

    SearchField *m_field;
    SideBar *m_tabs;
    SearchList *m_results;
    QStackedWidget *m_middle;
    QWidget *m_footer;
    std::vector<Findable> m_found;
    QStringList m_titles; ///< of the tabs
};

} // namespace zeph::ui
