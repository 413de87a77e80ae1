// SPDX-License-Identifier: MIT
#include "ui/settings/UpdateCard.h"

#include "host/UpdateWords.h"
#include "ports/UpdateFramework.h"
#include "ui/controls/PillButton.h"
#include "ui/controls/SettingRow.h"
#include "ui/controls/StatusLine.h"
#include "ui/settings/LiveRefresh.h"

namespace zeph::ui {

using namespace Qt::StringLiterals;

namespace {

StatusLine::Kind kindOf(UpdateStatus::Phase phase) {
    using Phase = UpdateStatus::Phase;
    switch (phase) {
    case Phase::checking:
    case Phase::installing:
        return StatusLine::Kind::busy;
    case Phase::upToDate:
    case Phase::installed:
        return StatusLine::Kind::ok;
    case Phase::failed:
    case Phase::refused:
        return StatusLine::Kind::error;
    case Phase::idle:
    case Phase::available:
    case Phase::notPackaged:
    case Phase::sandboxed:
    case Phase::noService:
        break;
    }
    return StatusLine::Kind::hint;
}

} // namespace

UpdateCard::UpdateCard(const SettingsContext &context, QWidget *parent)
    : Card(parent),
      m_updates(context.updates),
      m_button(new PillButton({})),
      m_status(new StatusLine),
      m_entry{u"Update app"_s,
              u"Check for a newer version and install it in place — no reinstall."_s, m_button} {
    auto *row = new SettingRow({u"arrow.down.circle"_s, m_entry.title, m_entry.detail}, m_button);
    row->addBelow(m_status);
    addRow(row);
    connect(m_button, &QPushButton::clicked, this, [this] { act(); });
    refresh();
    auto *live = new LiveRefresh(*this, context.runLoop, [this] { refresh(); });
    live->follow(context.updates.subscribe(live->handler()));
}

void UpdateCard::refresh() {
    const UpdateStatus &status = m_updates.status();
    const UpdateWords words = updateWords(status);
    m_button->setText(words.button);
    m_button->setAccessibleName(words.button); // it says more than the card's title
    m_button->setEnabled(words.action != UpdateWords::Action::none);
    const bool isIdle = status.phase == UpdateStatus::Phase::idle;
    const QString text = isIdle ? QString() : words.detail;
    if (text != m_status->text() || m_status->kind() != kindOf(status.phase)) {
        m_status->show(kindOf(status.phase), text);
    }
}

void UpdateCard::act() {
    switch (updateWords(m_updates.status()).action) {
    case UpdateWords::Action::check:
        m_updates.checkForUpdates();
        break;
    case UpdateWords::Action::install:
        m_updates.install();
        break;
    case UpdateWords::Action::cancel:
        m_updates.cancel();
        break;
    case UpdateWords::Action::none:
        break;
    }
}

} // namespace zeph::ui
