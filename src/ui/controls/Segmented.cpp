// SPDX-License-Identifier: MIT
#include "ui/controls/Segmented.h"

#include "ui/controls/Accessible.h"
#include "ui/controls/Look.h"
#include "ui/controls/Segment.h"

#include <QButtonGroup>
#include <QHBoxLayout>
#include <QMouseEvent>
#include <QPainter>

#include <utility>

namespace zeph::ui {

namespace {

constexpr std::chrono::milliseconds thumbDuration(180);

} // namespace

Segmented::Segmented(const QStringList &labels, QWidget *parent)
    : Segmented(labels, Measures{}, parent) {}

Segmented::Segmented(const QStringList &labels, Measures measures, QWidget *parent)
    : QWidget(parent),
      m_measures(std::move(measures)),
      m_group(new QButtonGroup(this)),
      m_way(*this, thumbDuration) {
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    announceAs(*this, QAccessible::Grouping);
    addSegments(labels);
    connect(m_group, &QButtonGroup::idToggled, this, [this](int, bool isChosen) {
        if (isChosen) {
            moveThumb();
            keepOneStop();
        }
    });
    connect(m_group, &QButtonGroup::idClicked, this, [this](int index) {
        if (onChosen) {
            onChosen(index);
        }
    });
    keepOneStop();
}

void Segmented::addSegments(const QStringList &labels) {
    auto *row = new QHBoxLayout(this);
    const int inset = scaled(m_measures.inset);
    row->setContentsMargins(inset, 0, inset, 0);
    row->setSpacing(0);
    for (qsizetype index = 0; index < labels.size(); ++index) {
        const auto at = static_cast<std::size_t>(index);
        const double letters = at < m_measures.sizes.size() ? m_measures.sizes[at] : 0;
        auto *segment =
            new Segment(labels[index],
                        {m_measures.height, m_measures.padding, m_measures.least, letters}, this);
        m_interaction.watch(*segment);
        m_group->addButton(segment, static_cast<int>(index));
        row->addWidget(segment);
    }
}

void Segmented::choose(int index) {
    if (QAbstractButton *button = m_group->button(index)) {
        button->setChecked(true);
        return;
    }
    m_group->setExclusive(false);
    for (QAbstractButton *button : m_group->buttons()) {
        button->setChecked(false);
    }
    m_group->setExclusive(true);
    m_shown = -1;
    keepOneStop();
    update();
}

int Segmented::chosen() const {
    return m_group->checkedId();
}

void Segmented::keepOneStop() {
    QAbstractButton *stop = m_group->checkedButton();
    if (stop == nullptr) {
        stop = m_group->button(0);
    }
    for (QAbstractButton *button : m_group->buttons()) {
        button->setFocusPolicy(button == stop ? Qt::StrongFocus : Qt::ClickFocus);
    }
    setFocusProxy(stop);
}

void Segmented::moveThumb() {
    m_from = thumb();
    m_shown = chosen();
    m_way.jump(m_from.isEmpty() ? 1 : 0);
    m_way.to(1);
}

QRectF Segmented::thumb() const {
    const QAbstractButton *button = m_group->button(m_shown);
    if (button == nullptr) {
        return {};
    }
    const double inset = scaled(m_measures.inset);
    const QRectF to = QRectF(button->geometry()).adjusted(0, inset, 0, -inset);
    const double way = m_way.value();
    if (way >= 1) {
        return to;
    }
    const double left = m_from.left() + (to.left() - m_from.left()) * way;
    const double wide = m_from.width() + (to.width() - m_from.width()) * way;
    return {left, to.top(), wide, to.height()};
}

void Segmented::paintEvent(QPaintEvent *) {
    paintControl(*this, [this](QPainter &painter) {
        const Tokens &tokens = Look::of(*this).tokens();
        painter.fillPath(pill(rect()).path(), tokens.fill);
        if (const Rounded shape = pill(thumb()); !shape.rect.isEmpty()) {
            paintThinShadow(painter, shape);
            painter.fillPath(shape.path(), tokens.raised);
            paintHairline(painter, shape, tokens.hair);
        }
    });
}

void Segmented::mousePressEvent(QMouseEvent *event) {
    // The rim of the track belongs to the segment beside it.
    const bool isAtStart = event->position().x() < width() / 2.0;
    const bool isFirst = isAtStart == (layoutDirection() == Qt::LeftToRight);
    const int last = static_cast<int>(m_group->buttons().size()) - 1;
    if (QAbstractButton *button = m_group->button(isFirst ? 0 : last)) {
        button->setFocus(Qt::MouseFocusReason);
        button->click();
    }
}

} // namespace zeph::ui
