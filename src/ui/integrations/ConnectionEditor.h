// SPDX-License-Identifier: MIT
#pragma once

#include "base/WorkOwner.h"
#include "services/forms/AccountForm.h"
#include "ui/integrations/IntegrationsPage.h"

#include <optional>

namespace zeph::ui {

class AccountFields;
class Card;
class EditorBar;
class GitHubOptions;
class PaneHeader;
class SettingRow;
class Stepper;
class Switch;

/// The form of one account. What is typed stays until it is saved, whatever comes in meanwhile.
class ConnectionEditor : public IntegrationsPage {
public:
    ConnectionEditor(const IntegrationsContext &context, PageActions actions,
                     const QString &provider, const QUuid &id, QWidget *parent = nullptr);

    QWidget *firstStop() override;
    bool hasUnsaved() const override;

    void refresh();

private:
    QWidget *makeForm(const QString &provider);
    Card *makeChoices(const QString &provider);
    void addFeedItems(Card &card);

    AccountForm form() const;
    void takeStored(const IntegrationConnection &now);
    void edited();
    void showState();

    void save();
    void saved(const std::optional<QString> &failure);
    void remove();

    IntegrationConnection m_shown; ///< what the form was filled with
    bool m_isFilled = false;
    std::optional<IntegrationConnection> m_stored; ///< absent once the account is gone
    PaneHeader *m_header;
    QWidget *m_form;
    QWidget *m_gone; ///< in place of the form
    AccountFields *m_fields = nullptr;
    GitHubOptions *m_gitHub = nullptr; ///< of the other services, absent; likewise the next two
    Switch *m_attribution = nullptr;
    Stepper *m_feedItems = nullptr;
    SettingRow *m_feedItemsRow = nullptr;
    Switch *m_active = nullptr;
    EditorBar *m_bar = nullptr;
    bool m_isKeeping = false;    ///< the key is on its way to the keyring
    bool m_hasKeptToken = false; ///< by this form; the next fetch tells of it too
    int m_saves = 0;             ///< so that the end of an earlier one's note is known as such
    bool m_isJustSaved = false;  ///< for a moment
    WorkOwner m_owner;
};

} // namespace zeph::ui
