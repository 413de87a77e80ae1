// SPDX-License-Identifier: MIT
#include "ui/integrations/IntegrationsPane.h"

#include "ports/RunLoop.h"
#include "services/accounts/IntegrationsStore.h"
#include "services/forms/AccountWords.h"
#include "ui/controls/Look.h"
#include "ui/controls/StatusLine.h"
#include "ui/integrations/CardsPage.h"
#include "ui/integrations/ConnectionEditor.h"
#include "ui/integrations/CustomAPIEditor.h"
#include "ui/integrations/DiscardLine.h"
#include "ui/integrations/ProviderConnectionsList.h"
#include "ui/integrations/QuoteEditor.h"
#include "ui/settings/UndoLine.h"

#include <QCoreApplication>
#include <QScrollArea>
#include <QScrollBar>
#include <QVBoxLayout>

namespace zeph::ui {

namespace {

constexpr double noticeGap = 14;

QScrollArea *scrollAreaAround(const QWidget &widget) {
    for (QWidget *parent = widget.parentWidget(); parent != nullptr;
         parent = parent->parentWidget()) {
        if (auto *area = dynamic_cast<QScrollArea *>(parent)) {
            return area;
        }
    }
    return nullptr;
}

} // namespace

IntegrationsPane::IntegrationsPane(const IntegrationsContext &context, QWidget *parent)
    : Pane(parent),
      m_context(context),
      m_notices(new QWidget(this)),
      m_undo(new UndoLine(context.runLoop, m_notices)),
      m_discard(new DiscardLine(m_notices)),
      m_failure(new StatusLine(m_notices)) {
    auto *pages = new QWidget(this);
    m_column = new QVBoxLayout(pages);
    m_column->setContentsMargins(0, 0, 0, 0);
    m_column->setSpacing(0);
    add(pages, 0);
    auto *notices = new QVBoxLayout(m_notices);
    notices->setContentsMargins(0, 0, 0, 0);
    notices->setSpacing(0);
    for (QWidget *line : std::initializer_list<QWidget *>{m_undo, m_discard, m_failure}) {
        line->setContentsMargins(0, scaled(noticeGap), 0, 0);
        notices->addWidget(line);
    }
    m_discard->onDiscard = [this] { select({}); };
    m_cards = new CardsPage(m_context, makeActions(), pages);
    m_page = m_cards;
    m_column->addWidget(m_cards);
    m_cards->hold(m_notices);
}

IntegrationsPane::~IntegrationsPane() = default;

PageActions IntegrationsPane::makeActions() {
    return {.select = [this](const IntegrationsSelection &selection) { select(selection); },
            .leave = [this] { leave(); },
            .offerUndo = [this](const QUuid &id, const QString &title) { offerUndo(id, title); },
            .tellFailure = m_owner.whileAlive([this](const QString &failure) {
                m_failure->show(StatusLine::Kind::error, failure);
            })};
}

void IntegrationsPane::select(const IntegrationsSelection &selection) {
    if (selection == m_selection) {
        return;
    }
    const bool hadFocus = m_page->isAncestorOf(focusWidget());
    if (m_page == m_cards) {
        m_cardsPlace = scrolled();
    }
    const IntegrationsSelection before = std::exchange(m_selection, selection);
    m_failure->clear();
    m_discard->hide();
    showPage(makePage());
    QWidget *const stop = m_page == m_cards ? m_cards->stopFor(before) : m_page->firstStop();
    scrollTo(m_page == m_cards ? m_cardsPlace : 0);
    if (stop != nullptr && (hadFocus || isVisible())) {
        stop->setFocus(Qt::OtherFocusReason);
    }
}

IntegrationsPage *IntegrationsPane::makePage() {
    using Page = IntegrationsSelection::Page;
    switch (m_selection.page) {
    case Page::cards:
        return m_cards;
    case Page::accounts:
        return new ProviderConnectionsList(m_context, makeActions(), m_selection.provider);
    case Page::account:
        return new ConnectionEditor(m_context, makeActions(), m_selection.provider, m_selection.id);
    case Page::endpoint:
        return new CustomAPIEditor(m_context, makeActions(), m_selection.id);
    case Page::quote:
        return new QuoteEditor(m_context, makeActions());
    }
    return m_cards;
}

/// In place of the page that was shown. The notices go along, the page itself not.
void IntegrationsPane::showPage(IntegrationsPage *page) {
    IntegrationsPage *const former = std::exchange(m_page, page);
    page->hold(m_notices);
    former->hide();
    if (former != m_cards) {
        m_column->removeWidget(former);
        former->deleteLater();
    }
    if (page != m_cards) {
        m_column->addWidget(page);
    }
    page->show();
}

std::vector<SearchEntry> IntegrationsPane::searchEntries() {
    return m_cards->searchEntries();
}

bool IntegrationsPane::goBack() {
    const bool isSomewhere = m_page != m_cards;
    if (m_discard->isAsking()) {
        m_discard->dismiss(); // as anywhere where one is asked, a step back changes nothing
    } else {
        leave();
    }
    return isSomewhere;
}

void IntegrationsPane::leave() {
    if (m_page->hasUnsaved()) {
        m_discard->ask();
    } else {
        select({});
    }
}

void IntegrationsPane::offerUndo(const QUuid &id, const QString &title) {
    IntegrationsStore &store = m_context.integrations;
    SecretDone told;
    if (store.mayKeepSecret(id)) {
        told = m_owner.whileAlive([this](SecretOutcome outcome) { tellRemoval(outcome); });
    }
    m_undo->offer().offer(
        title, [&store, id] { store.restore(id); },
        [&store, id, told = std::move(told)] { store.settle(id, told); });
    m_undo->button()->setFocus(Qt::OtherFocusReason);
}

void IntegrationsPane::tellRemoval(SecretOutcome outcome) {
    if (const auto failure = removalFailure(outcome)) {
        m_failure->show(StatusLine::Kind::error, *failure);
    }
}

int IntegrationsPane::scrolled() const {
    const QScrollArea *const area = scrollAreaAround(*this);
    return area == nullptr ? 0 : area->verticalScrollBar()->value();
}

/// The page that is shown has to have its height first, or there is nothing to scroll.
void IntegrationsPane::scrollTo(int place) {
    QScrollArea *const area = scrollAreaAround(*this);
    if (area == nullptr) {
        return;
    }
    for (QWidget *widget = m_page; widget != area->viewport(); widget = widget->parentWidget()) {
        if (QLayout *const layout = widget->layout()) {
            layout->activate();
        }
    }
    QEvent request(QEvent::LayoutRequest);
    QCoreApplication::sendEvent(area, &request);
    area->verticalScrollBar()->setValue(place);
}

} // namespace zeph::ui
