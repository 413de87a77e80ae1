// SPDX-License-Identifier: MIT
#include "ui/settings/PermissionRow.h"

#include "ui/controls/IconButton.h"
#include "ui/controls/Look.h"
#include "ui/controls/PillButton.h"
#include "ui/controls/StatusLine.h"
#include "ui/controls/SymbolView.h"
#include "ui/controls/TextLabel.h"

#include <QHBoxLayout>

namespace zeph::ui {

using namespace Qt::StringLiterals;

namespace {

constexpr double markSize = 16;
constexpr double markGap = 8;
constexpr double iconButtonOverhang = 10; // it ends nearer to the card's edge than other controls

} // namespace

/// At the end of the row: a word with a mark and the way back, or the button that asks.
struct PermissionRow::Control : QWidget {
    explicit Control(const QString &title)
        : asking(new QWidget),
          granted(new QWidget),
          mark(new SymbolView(u"checkmark.circle.fill"_s, markSize, SymbolView::Ink::ok)),
          word(new TextLabel({}, TypeRole::detail, TextLabel::Ink::ink)),
          withdraw(new IconButton(u"xmark.circle"_s, u"Withdraw"_s)),
          allow(new PillButton(u"Allow"_s)) {
        auto *line = new QHBoxLayout(this);
        line->setContentsMargins(0, 0, 0, 0);
        line->setSpacing(0);
        line->addWidget(asking);
        line->addWidget(granted);
        auto *button = new QHBoxLayout(asking);
        button->setContentsMargins(directed(*this, 0, 0, iconButtonOverhang, 0));
        button->addWidget(allow);
        auto *parts = new QHBoxLayout(granted);
        parts->setContentsMargins(0, 0, 0, 0);
        parts->setSpacing(scaled(markGap));
        parts->addWidget(mark);
        parts->addWidget(word);
        parts->addWidget(withdraw);
        word->setWordWrap(false);
        withdraw->setAccessibleName(u"Withdraw %1"_s.arg(title));
        allow->setAccessibleName(u"Allow %1"_s.arg(title));
    }

    QWidget *asking;
    QWidget *granted;
    SymbolView *mark;
    TextLabel *word;
    IconButton *withdraw;
    PillButton *allow;
};

PermissionRow::PermissionRow(const Words &words, Actions actions, QWidget *parent)
    : PermissionRow(words, std::move(actions), new Control(words.title), parent) {}

PermissionRow::PermissionRow(const Words &words, Actions actions, Control *control, QWidget *parent)
    : SettingRow(words, control, parent), m_state(control), m_note(new StatusLine) {
    addBelow(m_note);
    connect(control->allow, &QPushButton::clicked, this, std::move(actions.allow));
    connect(control->withdraw, &QPushButton::clicked, this, std::move(actions.withdraw));
    control->granted->hide();
}

void PermissionRow::show(bool isGranted, const PermissionState &state) {
    const bool hadFocus = button()->hasFocus();
    m_isGranted = isGranted;
    m_state->word->setText(state.word);
    m_state->granted->setVisible(isGranted);
    m_state->asking->setVisible(!isGranted && state.isOffered);
    if (hadFocus) {
        button()->setFocus(); // the one that was pressed is gone
    }
    if (m_note->text() != state.note) {
        m_note->show(StatusLine::Kind::hint, state.note);
    }
}

QWidget *PermissionRow::button() const {
    return m_isGranted ? static_cast<QWidget *>(m_state->withdraw) : m_state->allow;
}

} // namespace zeph::ui
