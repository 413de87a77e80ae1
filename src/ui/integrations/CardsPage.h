// SPDX-License-Identifier: MIT
#pragma once

#include "ui/integrations/IntegrationsPage.h"
#include "ui/settings/Pane.h"

#include <map>
#include <vector>

class QGridLayout;

namespace zeph {
struct CardGroup;
}

namespace zeph::ui {

class IntegrationCard;
class PillButton;

/// Everything that can be connected, by groups.
class CardsPage : public IntegrationsPage {
public:
    CardsPage(const IntegrationsContext &context, PageActions actions, QWidget *parent = nullptr);

    QWidget *firstStop() override;

    /// The card that leads to `selection`, or to the list that it is on; null without one.
    QWidget *stopFor(const IntegrationsSelection &selection) const;

    std::vector<SearchEntry> searchEntries() const;

    void refresh();

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    void addKeyringNotice();
    void addLockedLine();
    void orderCards(const std::vector<CardGroup> &groups);
    bool fill(QGridLayout &grid, const CardGroup &group);

    std::vector<QGridLayout *> m_grids; ///< one a group
    std::vector<QWidget *> m_fillers;   ///< beside a card that is alone in its group
    int m_columns = 2;
    std::map<QString, IntegrationCard *> m_cards;
    QWidget *m_locked = nullptr; ///< shown while the endpoints can't be read
    PillButton *m_openKeyring = nullptr;
};

} // namespace zeph::ui
