// SPDX-License-Identifier: MIT
#include "ui/controls/PaneHeader.h"

#include "ui/controls/Look.h"
#include "ui/controls/PillButton.h"
#include "ui/controls/StatusLine.h"
#include "ui/controls/SymbolView.h"
#include "ui/controls/TextLabel.h"

#include <QHBoxLayout>

namespace zeph::ui {

using namespace Qt::StringLiterals;

namespace {

constexpr double aboveTitle = 8; // where no way back stands there
constexpr double backToTitle = 10;
constexpr double titleToSubtitle = 4;
constexpr double subtitleToStatus = 12;
constexpr double headerSymbolSize = 28;
constexpr double headerSymbolToTitle = 16;
constexpr int mostTitleLines = 2; // names that people gave may be of any length

} // namespace

PaneHeader::PaneHeader(const QString &title, const QString &subtitle, QWidget *parent)
    : QWidget(parent),
      m_title(new TextLabel(title, TypeRole::title, TextLabel::Ink::ink, this)),
      m_status(new StatusLine(this)),
      m_column(new QVBoxLayout(this)),
      m_titleLine(new QHBoxLayout) {
    m_column->setContentsMargins(0, scaled(aboveTitle), 0, 0);
    m_column->setSpacing(0);
    m_titleLine->setSpacing(scaled(headerSymbolToTitle));
    m_title->setMostLines(mostTitleLines);
    m_titleLine->addWidget(m_title, 1);
    m_column->addLayout(m_titleLine);
    if (!subtitle.isEmpty()) {
        m_column->addSpacing(scaled(titleToSubtitle));
        m_column->addWidget(new TextLabel(subtitle, TypeRole::body, TextLabel::Ink::second, this));
    }
    m_status->setContentsMargins(0, scaled(subtitleToStatus), 0, 0);
    m_column->addWidget(m_status);
}

void PaneHeader::setBack(const QString &text, std::function<void()> action) {
    auto *back = new PillButton(text, PillButton::Kind::plain, this);
    back->setHeight(PillButton::Height::small);
    back->setSymbol(u"chevron.left"_s);
    connect(back, &QPushButton::clicked, this, std::move(action));
    m_column->setContentsMargins(0, 0, 0, 0);
    m_column->insertWidget(0, back, 0, Qt::AlignLeading);
    m_column->insertSpacing(1, scaled(backToTitle));
}

void PaneHeader::setSymbol(const QString &identifier) {
    m_titleLine->insertWidget(
        0, new SymbolView(identifier, headerSymbolSize, SymbolView::Ink::second, this), 0,
        Qt::AlignVCenter);
}

void PaneHeader::setTitle(const QString &title) {
    m_title->setText(title);
}

} // namespace zeph::ui
