// SPDX-License-Identifier: MIT
#include "ui/settings/SettingsSide.h"

#include "ui/controls/Logo.h"
#include "ui/controls/TextLabel.h"
#include "ui/settings/SearchField.h"
#include "ui/settings/SearchList.h"

#include <QKeyEvent>
#include <QStackedWidget>
#include <QVBoxLayout>

#include <utility>

namespace zeph::ui {

using namespace Qt::StringLiterals;

namespace {

constexpr double sideWidth = 208;
constexpr double aboveSide = 24;
constexpr double sideStart = 16;
constexpr double sideEnd = 12;
constexpr double searchToTabs = 14;
constexpr double footerStart = 12;
constexpr double logoSize = 34;

} // namespace

SettingsSide::SettingsSide(const std::vector<SideBar::Tab> &tabs, QWidget *parent)
    : QWidget(parent),
      m_field(new SearchField(this)),
      m_tabs(new SideBar(tabs, this)),
      m_results(new SearchList(this)),
      m_middle(new QStackedWidget(this)),
      m_footer(footer()) {
    setFixedWidth(scaled(sideWidth));
    for (const SideBar::Tab &tab : tabs) {
        m_titles.append(tab.title);
    }
    m_middle->addWidget(m_tabs);
    m_middle->addWidget(m_results);

    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(directed(*this, sideStart, aboveSide, sideEnd, 0));
    column->setSpacing(0);
    column->addWidget(m_field);
    column->addSpacing(scaled(searchToTabs));
    column->addWidget(m_middle, 1);
    column->addWidget(m_footer);

    m_field->installEventFilter(this);
    connect(m_tabs, &QTabBar::currentChanged, this, [this](int index) {
        if (onTab) {
            onTab(index);
        }
    });
    connect(m_field, &QLineEdit::textChanged, this, [this](const QString &text) {
        m_middle->setCurrentIndex(isSearching() ? 1 : 0);
        if (onQuery) {
            onQuery(text);
        }
    });
    connect(m_results, &QListWidget::itemActivated, this,
            [this](const QListWidgetItem *item) { choose(m_results->row(item)); });
    connect(m_results, &QListWidget::itemClicked, this,
            [this](const QListWidgetItem *item) { choose(m_results->row(item)); });
}

QWidget *SettingsSide::footer() {
    auto *widget = new QWidget(this);
    auto *column = new QVBoxLayout(widget);
    column->setContentsMargins(directed(*this, footerStart, 10, 0, 21));
    column->setSpacing(0);
    auto *logo = new Logo(logoSize, widget);
    column->addWidget(logo);
    column->addSpacing(scaled(10));
    column->addWidget(
        new TextLabel(u"Private by design"_s, TypeRole::detailStrong, TextLabel::Ink::ink, widget));
    column->addWidget(new TextLabel(u"Everything stays on your computer."_s, TypeRole::note,
                                    TextLabel::Ink::second, widget));
    return widget;
}

void SettingsSide::setCurrent(int tab) {
    m_tabs->setCurrentIndex(tab);
}

void SettingsSide::focusTabs() {
    m_tabs->setFocus(Qt::OtherFocusReason);
}

void SettingsSide::focusSearch() {
    m_field->setFocus(Qt::ShortcutFocusReason);
    m_field->selectAll();
}

void SettingsSide::endSearch() {
    const bool hadFocus = m_field->hasFocus() || m_results->hasFocus();
    m_field->clear();
    if (hadFocus) {
        m_tabs->setFocus(Qt::OtherFocusReason);
    }
}

bool SettingsSide::isSearching() const {
    return !m_field->text().trimmed().isEmpty();
}

QString SettingsSide::wanted() const {
    return m_field->text();
}

void SettingsSide::setResults(std::vector<Findable> results) {
    m_found = std::move(results);
    QList<SearchList::Row> rows;
    for (const Findable &found : m_found) {
        const bool isTab = found.target == nullptr;
        rows.append({found.title, isTab ? QString() : m_titles.value(found.tab)});
    }
    m_results->setRows(rows);
}

void SettingsSide::choose(int row) {
    if (row >= 0 && row < static_cast<int>(m_found.size()) && onFound) {
        const Findable found = m_found[static_cast<std::size_t>(row)];
        onFound(found);
    }
}

bool SettingsSide::eventFilter(QObject *watched, QEvent *event) {
    if (watched != m_field || event->type() != QEvent::KeyPress || !isSearching()) {
        return QWidget::eventFilter(watched, event);
    }
    switch (static_cast<QKeyEvent *>(event)->key()) {
    case Qt::Key_Down:
        m_results->moveCurrent(1);
        return true;
    case Qt::Key_Up:
        m_results->moveCurrent(-1);
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        choose(m_results->currentRow());
        return true;
    default:
        return QWidget::eventFilter(watched, event);
    }
}

/// On a low screen the tabs come first.
void SettingsSide::resizeEvent(QResizeEvent *event) {
    QWidget::resizeEvent(event);
    const int others = scaled(aboveSide) + m_field->sizeHint().height() + scaled(searchToTabs) +
                       m_tabs->sizeHint().height();
    m_footer->setVisible(height() >= others + m_footer->sizeHint().height());
}

} // namespace zeph::ui
