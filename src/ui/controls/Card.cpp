// SPDX-License-Identifier: MIT
#include "ui/controls/Card.h"

#include "ui/controls/Accessible.h"
#include "ui/controls/Look.h"
#include "ui/controls/MarkRow.h"
#include "ui/controls/Paint.h"
#include "ui/controls/SettingRow.h"

#include <QEvent>
#include <QPainter>
#include <QVBoxLayout>

namespace zeph::ui {

namespace {

constexpr double cardRadius = 16;
constexpr double cardEdge = 20;
constexpr double cardTextStart = 56;
constexpr double belowBody = 16;
constexpr double belowMarks = 8;
constexpr const char *bodyProperty = "zephBody";

bool isMark(const QWidget *row) {
    return dynamic_cast<const RadioRow *>(row) != nullptr ||
           dynamic_cast<const CheckRow *>(row) != nullptr;
}

int textStartOf(const QWidget *row) {
    if (const auto *setting = dynamic_cast<const SettingRow *>(row)) {
        return setting->textStart();
    }
    return scaled(isMark(row) ? cardTextStart : cardEdge);
}

} // namespace

Card::Card(QWidget *parent) : QFrame(parent), m_rows(new QVBoxLayout(this)) {
    m_rows->setContentsMargins(0, 0, 0, 0);
    m_rows->setSpacing(0);
    announceAs(*this, QAccessible::Grouping); // a frame is a window to screen readers
}

void Card::addRow(QWidget *row) {
    m_rows->addWidget(row);
    m_rows->setContentsMargins(0, 0, 0, isMark(row) ? scaled(belowMarks) : 0);
}

void Card::addBody(QWidget *body) {
    body->setProperty(bodyProperty, true);
    body->setContentsMargins(directed(*this, cardTextStart, 0, cardEdge, belowBody));
    m_rows->addWidget(body);
    m_rows->setContentsMargins(0, 0, 0, 0);
}

std::vector<Card::Line> Card::lines() const {
    std::vector<Line> result;
    const QWidget *above = nullptr;
    for (int index = 0; index < m_rows->count(); ++index) {
        const QWidget *row = m_rows->itemAt(index)->widget();
        if (row == nullptr || row->isHidden()) {
            continue;
        }
        const bool isBody = row->property(bodyProperty).toBool();
        const bool isApart = above != nullptr && !isBody && (!isMark(row) || isMark(above));
        if (isApart) {
            result.push_back({row->y(), textStartOf(row)});
        }
        above = row;
    }
    return result;
}

bool Card::event(QEvent *event) {
    if (event->type() == QEvent::LayoutRequest || event->type() == QEvent::Show) {
        placeMarks(); // one may have come, gone or been hidden
    }
    return QFrame::event(event);
}

void Card::placeMarks() const {
    std::vector<QWidget *> marks;
    for (int index = 0; index < m_rows->count(); ++index) {
        QWidget *row = m_rows->itemAt(index)->widget();
        if (row != nullptr && !row->isHidden() && isMark(row)) {
            marks.push_back(row);
        }
    }
    const int count = static_cast<int>(marks.size());
    for (int index = 0; index < count; ++index) {
        QWidget *const row = marks[static_cast<std::size_t>(index)];
        if (auto *one = dynamic_cast<RadioRow *>(row)) {
            one->setPlace(index + 1, count);
        } else if (auto *any = dynamic_cast<CheckRow *>(row)) {
            any->setPlace(index + 1, count);
        }
    }
}

void Card::paintEvent(QPaintEvent *) {
    const Look &look = Look::of(*this);
    const Tokens &tokens = look.tokens();
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const Rounded shape{QRectF(rect()), cardRadius * scale()};
    painter.fillPath(shape.path(), tokens.card);
    if (look.appearance() == Appearance::highContrast) {
        paintHairline(painter, shape, tokens.ink);
    }
    painter.setRenderHint(QPainter::Antialiasing, false);
    for (const Line &line : lines()) {
        const int length = width() - line.start - scaled(cardEdge);
        const QRectF place = mirrored(*this, QRectF(line.start, line.y, length, hairline(painter)));
        painter.fillRect(onPixels(painter, place), tokens.line);
    }
}

} // namespace zeph::ui
