// SPDX-License-Identifier: MIT
#include "ui/integrations/CustomAPIEditor.h"

#include "model/AppState.h"
#include "services/accounts/IntegrationsStore.h"
#include "services/forms/AccountWords.h"
#include "services/refresh/ServiceCheck.h"
#include "ui/controls/PaneHeader.h"
#include "ui/controls/PillButton.h"
#include "ui/controls/StatusLine.h"
#include "ui/integrations/DataPointRows.h"
#include "ui/integrations/EditorBar.h"
#include "ui/integrations/EndpointFields.h"
#include "ui/integrations/IntegrationsWords.h"
#include "ui/integrations/TestCallCard.h"
#include "ui/settings/LiveRefresh.h"

#include <QPointer>

#include <algorithm>

namespace zeph::ui {

namespace {

const CustomAPIConfig *findEndpoint(const IntegrationsStore &store, const QUuid &id) {
    const auto &configs = store.customAPIs();
    const auto place = std::find_if(configs.begin(), configs.end(),
                                    [&id](const auto &config) { return config.id == id; });
    return place == configs.end() ? nullptr : &*place;
}

CustomAPIDraft draftOf(const IntegrationsStore &store, const QUuid &id) {
    const CustomAPIConfig *const config = findEndpoint(store, id);
    return config == nullptr ? CustomAPIDraft::fresh() : CustomAPIDraft{*config};
}

} // namespace

CustomAPIEditor::CustomAPIEditor(const IntegrationsContext &context, PageActions actions,
                                 const QUuid &id, QWidget *parent)
    : IntegrationsPage(context, std::move(actions), parent),
      m_draft(draftOf(context.integrations, id)),
      m_header(
          addHeader(m_draft.title(context.integrations), words::endpointHelp, words::endpointIcon)),
      m_fields(new EndpointFields(this)),
      m_test(new TestCallCard(this)),
      m_points(new DataPointRows(m_test->lastStop(), this)),
      m_bar(new EditorBar(words::deleteEndpoint, m_draft.saveTitle(context.integrations), this)) {
    m_fields->show(m_draft.config);
    add(m_fields, headerGap);
    add(m_test, cardGap);
    add(m_points, 0);
    add(m_bar, barGap);
    m_points->setFields(m_draft.config.fields);
    connectParts();
    m_kept = typed();
    auto *live = new LiveRefresh(*this, context.runLoop, [this] { refresh(); });
    live->follow(context.integrations.objectWillChange);
    live->follow(context.state.objectWillChange);
    refresh();
}

QWidget *CustomAPIEditor::firstStop() {
    return m_fields->firstStop();
}

bool CustomAPIEditor::hasUnsaved() const {
    return typed() != (m_isSaving ? m_sent : m_kept);
}

void CustomAPIEditor::connectParts() {
    m_fields->onEdited = [this] { edited(); };
    m_fields->onEntered = [this] { save(); };
    m_fields->onImport = [this](const QString &command) { return importCurl(command); };
    m_test->onRun = [this] { runTest(); };
    m_test->onCancel = [this] { cancelTest(); };
    m_test->onChosen = [this](int row) { addField(row); };
    m_points->onEdited = [this] { edited(); };
    m_points->onEntered = [this] { save(); };
    m_points->onEmptied = [this] { m_bar->saving().setFocus(Qt::TabFocusReason); };
    connect(&m_bar->saving(), &QPushButton::clicked, this, [this] { save(); });
    connect(&m_bar->removal(), &QPushButton::clicked, this, [this] { remove(); });
}

void CustomAPIEditor::refresh() {
    const IntegrationsStore &store = context().integrations;
    m_header->setTitle(m_draft.title(store));
    m_header->status().show(StatusLine::Kind::error,
                            m_draft.lastFetch(context().state).value_or(QString()));
    m_fields->setCallable(m_draft.canCall());
    m_test->setCallable(m_draft.canCall());
    m_bar->saving().setText(m_draft.saveTitle(store));
    m_bar->saving().setEnabled(m_draft.canSave());
    m_bar->removal().setVisible(!m_draft.isNew(store));
    if (m_isSaving) {
        m_bar->showBusy(words::saving);
    } else {
        m_bar->showState(false, m_hasLaterChanges ? words::laterChanges : QString());
    }
}

void CustomAPIEditor::collect() {
    m_fields->collect(m_draft.config);
    m_draft.config.fields = m_points->fields();
}

/// As it would be stored.
CustomAPIConfig CustomAPIEditor::typed() const {
    CustomAPIDraft draft = m_draft;
    m_fields->collect(draft.config);
    draft.config.fields = m_points->fields();
    return draft.prepared();
}

void CustomAPIEditor::edited() {
    collect();
    showAnswer(); // a data point less is a value more to add
    refresh();
}

std::optional<QString> CustomAPIEditor::importCurl(const QString &command) {
    collect();
    auto message = m_draft.importCurl(command);
    if (!message) {
        m_fields->show(m_draft.config);
        refresh();
    }
    return message;
}

// The test call

void CustomAPIEditor::runTest() {
    collect();
    m_listing.reset();
    showAnswer();
    m_test->setRunning(true);
    m_call = std::make_unique<WorkOwner>();
    context().serviceCheck.ask(*m_call, m_draft.prepared(), [this](const EndpointListing &listing) {
        m_listing = listing;
        m_test->setRunning(false);
        showAnswer();
    });
}

void CustomAPIEditor::cancelTest() {
    m_call.reset();
    m_test->setRunning(false);
}

void CustomAPIEditor::showAnswer() {
    if (m_listing) {
        m_test->show(m_draft.answer(*m_listing));
    } else {
        m_test->show({});
    }
}

void CustomAPIEditor::addField(int row) {
    const auto rows = m_listing ? m_draft.answer(*m_listing).rows : std::vector<AnswerRow>();
    collect();
    m_draft.addField(rows.at(static_cast<std::size_t>(row)).path);
    m_points->setFields(m_draft.config.fields);
    edited();
}

// Saving

/// The editor closes once the keyring has the endpoint, unless something was typed meanwhile.
void CustomAPIEditor::save() {
    collect();
    if (m_isSaving || !m_draft.canSave()) {
        return;
    }
    m_isSaving = true;
    m_hasLaterChanges = false;
    m_sent = m_draft.prepared();
    m_bar->showFailure({});
    const auto &store = context().integrations;
    const auto done = [editor = QPointer(this), tell = pane().tellFailure, &store,
                       id = m_draft.config.id](SecretOutcome outcome) {
        const auto failure = endpointFailure(outcome, findEndpoint(store, id) != nullptr);
        if (editor != nullptr) {
            editor->saved(failure);
        } else if (failure) {
            tell(*failure);
        }
    };
    m_draft.save(context().integrations, context().preferences, done);
    refresh();
}

void CustomAPIEditor::saved(const std::optional<QString> &failure) {
    m_isSaving = false;
    const CustomAPIConfig *const stored = findEndpoint(context().integrations, m_sent.id);
    if (stored != nullptr && *stored == m_sent) { // also where the keyring has it not yet
        m_kept = m_sent;
    }
    if (failure) {
        m_bar->showFailure(*failure);
        refresh();
        return;
    }
    if (hasUnsaved()) {
        m_hasLaterChanges = true;
        refresh();
        return;
    }
    pane().select({});
}

void CustomAPIEditor::remove() {
    const PageActions actions = pane();
    const QUuid id = m_draft.config.id;
    const QString title = m_draft.title(context().integrations);
    const bool isRemoved = context().integrations.removeForNow(id);
    actions.select({});
    if (isRemoved) {
        actions.offerUndo(id, title);
    }
}

} // namespace zeph::ui
