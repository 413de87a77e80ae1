// SPDX-License-Identifier: MIT
#pragma once

#include "base/WorkOwner.h"
#include "ports/SecureStore.h"
#include "ui/integrations/IntegrationsContext.h"
#include "ui/integrations/IntegrationsSelection.h"
#include "ui/settings/Pane.h"

class QVBoxLayout;

namespace zeph::ui {

class CardsPage;
class DiscardLine;
class IntegrationsPage;
class StatusLine;
class UndoLine;
struct PageActions;

/// Where accounts and endpoints are added, tested and removed: all cards, or one page of them.
class IntegrationsPane : public Pane {
public:
    explicit IntegrationsPane(const IntegrationsContext &context, QWidget *parent = nullptr);
    ~IntegrationsPane() override;

    const IntegrationsSelection &selection() const { return m_selection; }
    void select(const IntegrationsSelection &selection);

    std::vector<SearchEntry> searchEntries() override;
    bool goBack() override;

private:
    PageActions makeActions();
    IntegrationsPage *makePage();
    void leave();
    void showPage(IntegrationsPage *page);
    void offerUndo(const QUuid &id, const QString &title);
    void tellRemoval(SecretOutcome outcome);
    int scrolled() const;
    void scrollTo(int place);

    IntegrationsContext m_context;
    IntegrationsSelection m_selection;
    QVBoxLayout *m_column = nullptr;
    QWidget *m_notices; ///< under the header of the page that is shown
    UndoLine *m_undo;
    DiscardLine *m_discard;
    StatusLine *m_failure;
    CardsPage *m_cards; ///< stays, so that one comes back to where one was
    IntegrationsPage *m_page;
    int m_cardsPlace = 0; ///< how far the cards were scrolled
    WorkOwner m_owner;
};

} // namespace zeph::ui
