// SPDX-License-Identifier: MIT
#include "ui/integrations/GitHubOptions.h"

#include "model/ContributionLayout.h"
#include "services/accounts/IntegrationConnection.h"
#include "services/forms/AccountWords.h"
#include "ui/controls/ChoiceBox.h"
#include "ui/controls/LinkLabel.h"
#include "ui/controls/Look.h"
#include "ui/controls/SettingRow.h"
#include "ui/controls/StatusLine.h"
#include "ui/controls/Switch.h"
#include "ui/integrations/IntegrationsWords.h"

#include <QVBoxLayout>

namespace zeph::ui {

namespace {

constexpr double layoutsWidth = 170;
constexpr double noteInset = 20;
constexpr double noteLinkInset = 24;
constexpr double noteLinkGap = 4;

QStringList layoutLabels() {
    QStringList labels;
    for (const ContributionLayout layout : allContributionLayouts) {
        labels << pickerLabel(layout);
    }
    return labels;
}

/// The place in the picker; an unknown layout is shown as the one without a choice.
int pickerIndex(const QString &rawLayout) {
    const auto layout = contributionLayoutFromRaw(rawLayout).value_or(ContributionLayout::y1);
    const auto place =
        std::find(allContributionLayouts.begin(), allContributionLayouts.end(), layout);
    return static_cast<int>(std::distance(allContributionLayouts.begin(), place));
}

} // namespace

GitHubOptions::GitHubOptions(QWidget *parent)
    : Card(parent),
      m_stats(new Switch),
      m_graph(new Switch),
      m_layouts(new ChoiceBox(layoutLabels())),
      m_layoutRow(new SettingRow({.symbol = {}, .title = words::graph}, m_layouts)),
      m_tokenNote(makeTokenNote()) {
    m_layouts->setFixedWidth(scaled(layoutsWidth));
    addRow(new SettingRow({.symbol = {}, .title = words::showStats}, m_stats));
    addRow(new SettingRow({.symbol = {}, .title = words::showGraph}, m_graph));
    auto *graph = new QWidget;
    auto *column = new QVBoxLayout(graph);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(m_layoutRow);
    column->addWidget(m_tokenNote);
    addBody(graph);
    graph->setContentsMargins(0, 0, 0, 0); // its rows start where the others do
    for (Switch *control : {m_stats, m_graph}) {
        connect(control, &QCheckBox::clicked, this, [this] { edited(); });
    }
    connect(m_layouts, &QComboBox::activated, this, [this] { edited(); });
    m_tokenNote->hide();
}

void GitHubOptions::show(const IntegrationConnection &account) {
    m_stats->setChecked(account.showStats);
    m_graph->setChecked(account.showContributionGraph);
    m_layouts->setCurrentIndex(pickerIndex(account.contributionLayout));
    m_layoutRow->setVisible(account.showContributionGraph);
}

void GitHubOptions::collect(IntegrationConnection &account) const {
    account.showStats = m_stats->isChecked();
    account.showContributionGraph = m_graph->isChecked();
    // An unknown layout stays unless another is chosen.
    if (m_layouts->currentIndex() != pickerIndex(account.contributionLayout)) {
        account.contributionLayout = rawValue(
            allContributionLayouts.at(static_cast<std::size_t>(m_layouts->currentIndex())));
    }
}

void GitHubOptions::setNeedsToken(bool needsToken) {
    m_tokenNote->setVisible(needsToken);
}

void GitHubOptions::edited() {
    m_layoutRow->setVisible(m_graph->isChecked());
    if (onEdited) {
        onEdited();
    }
}

QWidget *GitHubOptions::makeTokenNote() {
    auto *note = new QWidget;
    auto *column = new QVBoxLayout(note);
    column->setContentsMargins(scaled(noteInset), 0, scaled(noteInset), scaled(noteInset));
    column->setSpacing(scaled(noteLinkGap));
    auto *text = new StatusLine(note);
    text->show(StatusLine::Kind::hint, words::graphNote);
    column->addWidget(text);
    const FormLink link = gitHubTokenLink();
    auto *indented = new QHBoxLayout;
    indented->setContentsMargins(scaled(noteLinkInset), 0, 0, 0);
    indented->addWidget(new LinkLabel(link.text, link.address, note), 0, Qt::AlignLeading);
    column->addLayout(indented);
    return note;
}

} // namespace zeph::ui
