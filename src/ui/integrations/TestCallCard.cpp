// SPDX-License-Identifier: MIT
#include "ui/integrations/TestCallCard.h"

#include "services/forms/CustomAPIDraft.h"
#include "ui/controls/Look.h"
#include "ui/controls/PillButton.h"
#include "ui/controls/StatusLine.h"
#include "ui/controls/TextLabel.h"
#include "ui/integrations/IntegrationsWords.h"
#include "ui/integrations/ValueList.h"

#include <QHBoxLayout>

namespace zeph::ui {

using namespace Qt::StringLiterals;

namespace {

constexpr double callPadding = 20;
constexpr double callSpacing = 14;
constexpr double listGap = 10;

} // namespace

TestCallCard::TestCallCard(QWidget *parent)
    : Card(parent),
      m_run(new PillButton(words::runTest, PillButton::Kind::secondary)),
      m_status(new StatusLine),
      m_line(new TextLabel({}, TypeRole::detail, TextLabel::Ink::second)),
      m_values(new ValueList(words::answerName)) {
    auto *content = new QWidget;
    auto *column = new QVBoxLayout(content);
    const int padding = scaled(callPadding);
    column->setContentsMargins(0, padding, 0, scaled(listGap));
    column->setSpacing(scaled(listGap));
    auto *row = new QHBoxLayout;
    row->setContentsMargins(padding, 0, padding, padding - scaled(listGap));
    row->setSpacing(scaled(callSpacing));
    row->addWidget(m_run, 0, Qt::AlignTop);
    row->addWidget(m_status, 1, Qt::AlignVCenter);
    row->addWidget(m_line, 1, Qt::AlignVCenter);
    row->addStretch();
    column->addLayout(row);
    column->addWidget(m_values);
    addRow(content);
    m_run->setSymbol(u"play.circle"_s);
    m_run->setHeight(PillButton::Height::small);
    connect(m_run, &QPushButton::clicked, this, [this] { m_isRunning ? onCancel() : onRun(); });
    m_values->onChosen = [this](int index) { onChosen(index); };
    show({});
}

QWidget &TestCallCard::lastStop() const {
    return *m_values;
}

void TestCallCard::setCallable(bool isCallable) {
    m_isCallable = isCallable;
    m_run->setEnabled(m_isCallable || m_isRunning);
}

void TestCallCard::setRunning(bool isRunning) {
    m_isRunning = isRunning;
    m_run->setText(isRunning ? words::cancelTest : words::runTest);
    m_run->setSymbol(isRunning ? u"xmark.circle"_s : u"play.circle"_s);
    m_status->show(StatusLine::Kind::busy, isRunning ? words::testRuns : QString());
    setCallable(m_isCallable);
}

void TestCallCard::show(const TestAnswer &answer) {
    const bool hasValues = !answer.rows.empty();
    if (!m_isRunning) {
        m_status->show(answer.isError ? StatusLine::Kind::error : StatusLine::Kind::hint,
                       hasValues ? QString() : answer.line);
    }
    m_line->setText(hasValues ? answer.line : QString());
    m_line->setVisible(hasValues);
    std::vector<ValueList::Row> rows;
    for (const AnswerRow &row : answer.rows) {
        rows.push_back({row.shownPath, row.preview, row.isField});
    }
    m_values->setRows(std::move(rows));
    m_values->setVisible(hasValues);
}

} // namespace zeph::ui
