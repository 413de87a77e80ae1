// SPDX-License-Identifier: MIT
#include "ui/onboarding/SourceList.h"

#include "ui/controls/Look.h"
#include "ui/controls/TextLabel.h"

#include <QPainter>
#include <QVBoxLayout>

namespace zeph::ui {

namespace {

constexpr double listSide = 16;
constexpr double rowPadding = 10;
constexpr double rowInset = 2;

QWidget *sourceRow(const OnboardingWords::Source &source) {
    auto *row = new QWidget;
    auto *column = new QVBoxLayout(row);
    const int padding = scaled(rowPadding);
    const int inset = scaled(rowInset);
    column->setContentsMargins(inset, padding, inset, padding);
    column->setSpacing(scaled(1));
    column->addWidget(new TextLabel(source.title, TypeRole::strong, TextLabel::Ink::ink, row));
    column->addWidget(new TextLabel(source.detail, TypeRole::detail, TextLabel::Ink::second, row));
    return row;
}

} // namespace

SourceList::SourceList(const std::vector<OnboardingWords::Source> &sources, QWidget *parent)
    : QWidget(parent) {
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(scaled(listSide), 0, scaled(listSide), 0);
    column->setSpacing(0);
    for (const OnboardingWords::Source &source : sources) {
        m_rows.push_back(sourceRow(source));
        column->addWidget(m_rows.back());
    }
}

void SourceList::paintEvent(QPaintEvent *) {
    QPainter painter(this);
    const double hair = 1 / devicePixelRatioF();
    const QColor color = Look::of(*this).tokens().hair;
    for (const QWidget *row : m_rows) {
        painter.fillRect(QRectF(row->x(), row->y(), row->width(), hair), color);
    }
    const QRectF lowest(m_rows.back()->x(), height() - hair, m_rows.back()->width(), hair);
    painter.fillRect(lowest, color);
}

} // namespace zeph::ui
