// SPDX-License-Identifier: MIT
#include "ui/integrations/ConnectionEditor.h"

#include "base/Blanks.h"
#include "model/AppState.h"
#include "ports/RunLoop.h"
#include "services/accounts/IntegrationsStore.h"
#include "services/catalogue/ServiceCatalogue.h"
#include "services/forms/AccountWords.h"
#include "services/forms/ConnectionStatus.h"
#include "ui/controls/Look.h"
#include "ui/controls/PaneHeader.h"
#include "ui/controls/PillButton.h"
#include "ui/controls/SettingRow.h"
#include "ui/controls/StatusLine.h"
#include "ui/controls/Stepper.h"
#include "ui/controls/Switch.h"
#include "ui/integrations/AccountFields.h"
#include "ui/integrations/EditorBar.h"
#include "ui/integrations/EmptyCard.h"
#include "ui/integrations/GitHubOptions.h"
#include "ui/integrations/IntegrationsWords.h"
#include "ui/integrations/PlacementRow.h"
#include "ui/settings/LiveRefresh.h"

#include <QPointer>
#include <QVBoxLayout>

#include <algorithm>

namespace zeph::ui {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr auto savedTime = 2500ms;

/// Takes over what has changed in the store and not in the form.
template <typename Value>
void follow(Value IntegrationConnection::*field, IntegrationConnection &form,
            const IntegrationConnection &before, const IntegrationConnection &now) {
    if (form.*field == before.*field) {
        form.*field = now.*field;
    }
}

/// Blanks around the second value are not kept.
IntegrationConnection asStored(IntegrationConnection account) {
    if (account.extra) {
        account.extra = withoutOuterBlanks(*account.extra);
    }
    return account;
}

} // namespace

ConnectionEditor::ConnectionEditor(const IntegrationsContext &context, PageActions actions,
                                   const QString &provider, const QUuid &id, QWidget *parent)
    : IntegrationsPage(context, std::move(actions), parent) {
    m_shown.id = id;
    m_shown.provider = provider;
    const AccountWords service = accountWords(provider);
    m_header = addHeader(service.title, service.help, service.icon);
    m_form = makeForm(provider);
    add(m_form, headerGap);
    m_gone = new EmptyCard(words::accountRemoved, this);
    add(m_gone, 0);
    auto *live = new LiveRefresh(*this, context.runLoop, [this] { refresh(); });
    live->follow(context.integrations.objectWillChange);
    live->follow(context.state.objectWillChange);
    refresh();
}

QWidget *ConnectionEditor::firstStop() {
    return m_stored ? m_fields->firstStop() : nullptr;
}

/// A key that is on its way to the keyring is not lost with the form.
bool ConnectionEditor::hasUnsaved() const {
    if (!m_stored) {
        return false;
    }
    const AccountForm form = this->form();
    return asStored(form.account) != asStored(m_shown) || (!m_isKeeping && !form.secret.isEmpty());
}

QWidget *ConnectionEditor::makeForm(const QString &provider) {
    auto *form = new QWidget(this);
    auto *column = new QVBoxLayout(form);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(scaled(cardGap));
    m_fields = new AccountFields(accountWords(provider), form);
    m_fields->onEdited = [this] { edited(); };
    m_fields->onEntered = [this] { save(); };
    column->addWidget(m_fields);
    if (provider == "github"_L1) {
        m_gitHub = new GitHubOptions(form);
        m_gitHub->onEdited = [this] { edited(); };
        column->addWidget(m_gitHub);
    }
    column->addWidget(makeChoices(provider));
    column->addSpacing(scaled(barGap - cardGap));
    m_bar = new EditorBar(words::remove, saveTitle(false), form);
    connect(&m_bar->removal(), &QPushButton::clicked, this, [this] { remove(); });
    connect(&m_bar->saving(), &QPushButton::clicked, this, [this] { save(); });
    column->addWidget(m_bar);
    return form;
}

/// Whether the account is used, and what else is chosen by a single row.
Card *ConnectionEditor::makeChoices(const QString &provider) {
    auto *card = new Card;
    if (provider == "rss"_L1) {
        addFeedItems(*card);
    }
    if (provider == "ahrefs"_L1) {
        m_attribution = new Switch;
        card->addRow(new SettingRow({.symbol = {}, .title = words::showAhrefs}, m_attribution));
        connect(m_attribution, &QCheckBox::clicked, this, [this] { edited(); });
    }
    m_active = new Switch;
    card->addRow(new SettingRow({.symbol = {}, .title = words::active}, m_active));
    connect(m_active, &QCheckBox::clicked, this, [this] { edited(); });
    const ServiceRow *const row = serviceRow(provider);
    if (row != nullptr && row->widget) {
        card->addRow(new PlacementRow(context().preferences, context().runLoop, *row->widget));
    }
    return card;
}

void ConnectionEditor::addFeedItems(Card &card) {
    m_feedItems = new Stepper(fewestFeedItems, mostFeedItems);
    m_feedItemsRow =
        new SettingRow({.symbol = {}, .title = feedItemsTitle(fewestFeedItems)}, m_feedItems);
    card.addRow(m_feedItemsRow);
    connect(m_feedItems, &QSpinBox::valueChanged, this, [this](int count) {
        m_feedItemsRow->setTitle(feedItemsTitle(count));
        edited();
    });
}

// Following the store

void ConnectionEditor::refresh() {
    const auto accounts = context().integrations.connections(m_shown.provider);
    const auto place = std::find_if(accounts.begin(), accounts.end(), [this](const auto &account) {
        return account.id == m_shown.id;
    });
    if (place == accounts.end()) {
        m_stored.reset();
    } else if (m_stored != *place) {
        m_stored = *place;
        takeStored(*place);
    }
    m_form->setVisible(m_stored.has_value());
    m_gone->setVisible(!m_stored);
    if (!m_stored) {
        m_header->status().clear();
        return;
    }
    const auto status = connectionStatus(*m_stored, context().state, context().framing);
    m_header->status().show(status && status->isError ? StatusLine::Kind::error
                                                      : StatusLine::Kind::ok,
                            status ? status->text : QString());
    showState();
}

/// What the user has changed in the form stays.
void ConnectionEditor::takeStored(const IntegrationConnection &now) {
    IntegrationConnection shown = now;
    if (std::exchange(m_isFilled, true)) {
        shown = form().account;
        using Account = IntegrationConnection;
        follow(&Account::name, shown, m_shown, now);
        follow(&Account::enabled, shown, m_shown, now);
        follow(&Account::extra, shown, m_shown, now);
        follow(&Account::showAhrefsAttribution, shown, m_shown, now);
        follow(&Account::feedCount, shown, m_shown, now);
        follow(&Account::showContributionGraph, shown, m_shown, now);
        follow(&Account::contributionLayout, shown, m_shown, now);
        follow(&Account::showStats, shown, m_shown, now);
    }
    m_shown = now;
    m_fields->show(shown);
    m_active->setChecked(shown.enabled);
    if (m_gitHub != nullptr) {
        m_gitHub->show(shown);
    }
    if (m_attribution != nullptr) {
        m_attribution->setChecked(shown.showAhrefsAttribution);
    }
    if (m_feedItems != nullptr) {
        m_feedItems->setValue(static_cast<int>(feedItems(shown)));
    }
}

// What the user does

AccountForm ConnectionEditor::form() const {
    AccountForm form{m_shown};
    m_fields->collect(form);
    form.account.enabled = m_active->isChecked();
    if (m_gitHub != nullptr) {
        m_gitHub->collect(form.account);
    }
    if (m_attribution != nullptr) {
        form.account.showAhrefsAttribution = m_attribution->isChecked();
    }
    // A count that was never chosen stays unsaid.
    if (m_feedItems != nullptr && m_feedItems->value() != feedItems(m_shown)) {
        form.account.feedCount = m_feedItems->value();
    }
    return form;
}

void ConnectionEditor::edited() {
    if (m_stored) {
        showState();
    }
}

void ConnectionEditor::showState() {
    const AccountForm form = this->form();
    const bool isReady = context().integrations.isReady(m_shown);
    m_bar->saving().setText(saveTitle(isReady));
    m_bar->saving().setEnabled(canSave(form, context().integrations));
    if (m_isKeeping) {
        m_bar->showBusy(words::saving);
    } else {
        const FormState state = formState(isReady, m_isJustSaved);
        m_bar->showState(!state.icon.isEmpty(), state.text);
    }
    if (m_gitHub != nullptr) {
        // Nobody is told to make a token who may have one.
        const bool isKept = context().integrations.isSecretKept(m_shown.id).value_or(isReady);
        m_gitHub->setNeedsToken(!m_hasKeptToken && needsTokenNote(form, context().state, isKept));
    }
}

/// The key stays in its field until the keyring has it, which may take as long as a person takes
/// to answer a prompt.
void ConnectionEditor::save() {
    const AccountForm form = this->form();
    if (m_isKeeping || !m_stored || !canSave(form, context().integrations)) {
        return;
    }
    m_isKeeping = true;
    const bool hasToken = !form.secret.trimmed().isEmpty();
    m_fields->setKeeping(true);
    m_bar->showFailure({});
    saveAccount(
        form, context().integrations, context().preferences,
        [editor = QPointer(this), tell = pane().tellFailure, hasToken](SecretOutcome outcome) {
            const auto failure = keepingFailure(outcome);
            if (editor != nullptr) {
                editor->m_hasKeptToken = editor->m_hasKeptToken || (hasToken && !failure);
                editor->saved(failure);
            } else if (failure) {
                tell(*failure);
            }
        });
    refresh();
}

void ConnectionEditor::saved(const std::optional<QString> &failure) {
    m_isKeeping = false;
    m_fields->setKeeping(false);
    m_bar->showFailure(failure.value_or(QString()));
    if (!failure) {
        m_fields->forgetSecret();
        m_isJustSaved = true;
        context().runLoop.after(savedTime, m_owner.whileAlive([this, save = ++m_saves] {
            if (save == m_saves) {
                m_isJustSaved = false;
                refresh();
            }
        }));
    }
    refresh();
}

void ConnectionEditor::remove() {
    const PageActions actions = pane();
    const QString title = accountTitle(m_shown);
    const bool isRemoved = context().integrations.removeForNow(m_shown.id);
    actions.select({.page = IntegrationsSelection::Page::accounts, .provider = m_shown.provider});
    if (isRemoved) {
        actions.offerUndo(m_shown.id, title);
    }
}

} // namespace zeph::ui
