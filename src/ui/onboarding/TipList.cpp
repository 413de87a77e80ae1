// SPDX-License-Identifier: MIT
#include "ui/onboarding/TipList.h"

#include "ui/controls/Look.h"
#include "ui/controls/SymbolView.h"
#include "ui/controls/TextLabel.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

namespace zeph::ui {

namespace {

constexpr double indent = 31;
constexpr double endMargin = 4; // so that rounded sizes have room
constexpr double tipSymbol = 20;
constexpr double besideSymbol = 19;

QWidget *tipRow(const OnboardingWords::Tip &tip) {
    auto *row = new QWidget;
    auto *line = new QHBoxLayout(row);
    line->setContentsMargins(0, 0, 0, 0);
    line->setSpacing(scaled(besideSymbol));
    line->addWidget(new SymbolView(tip.symbol, tipSymbol, SymbolView::Ink::accent, row), 0,
                    Qt::AlignTop);
    line->addWidget(new TextLabel(tip.text, TypeRole::row, TextLabel::Ink::ink, row), 1);
    return row;
}

} // namespace

TipList::TipList(const std::vector<OnboardingWords::Tip> &tips, double gap, QWidget *parent)
    : QWidget(parent), m_column(new QVBoxLayout(this)) {
    const int start = scaled(indent);
    const int end = scaled(endMargin);
    const bool isMirrored = layoutDirection() == Qt::RightToLeft;
    m_column->setContentsMargins(isMirrored ? end : start, 0, isMirrored ? start : end, 0);
    m_column->setSpacing(0);
    for (const OnboardingWords::Tip &tip : tips) {
        if (m_column->count() > 0) {
            m_column->addSpacing(scaled(gap));
        }
        m_column->addWidget(tipRow(tip));
    }
}

void TipList::addBody(QWidget *body, double gap, double reach) {
    m_column->addSpacing(scaled(gap));
    auto *row = new QWidget;
    auto *line = new QHBoxLayout(row);
    line->setContentsMargins(0, 0, 0, 0);
    line->setSpacing(0);
    line->addSpacing(scaled(tipSymbol) + scaled(besideSymbol) - scaled(reach));
    line->addWidget(body, 1);
    m_column->addWidget(row);
}

} // namespace zeph::ui
