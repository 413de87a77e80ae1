// SPDX-License-Identifier: MIT
#include "ui/controls/SettingRow.h"

#include "ui/controls/IconButton.h"
#include "ui/controls/Look.h"
#include "ui/controls/Switch.h"
#include "ui/controls/SymbolView.h"
#include "ui/controls/TextLabel.h"

#include <QAbstractButton>
#include <QHBoxLayout>
#include <QMouseEvent>

#include <algorithm>
#include <utility>

namespace zeph::ui {

using namespace Qt::StringLiterals;

namespace {

constexpr double rowEdge = 20;
constexpr double rowSymbolSize = 20;
constexpr double rowPartsGap = 16;
constexpr double aboveRowText = 14;
constexpr double aboveControl = 7;       // so that a row with a title and a switch is 48 high
constexpr double aboveControlAlone = 10; // where there is no symbol
constexpr double rowTitleToDetail = 2;
constexpr double textToBelow = 10;

/// How far the control's box ends from the card's rowEdge, so that what is painted of it ends at
/// the common line.
double endGap(const QWidget *control) {
    if (dynamic_cast<const IconButton *>(control) != nullptr) {
        return 10; // its middle is on the axis 25 from the rowEdge
    }
    const QLayout *parts = control->layout();
    if (parts == nullptr || parts->count() == 0) {
        return rowEdge;
    }
    const QWidget *last = parts->itemAt(parts->count() - 1)->widget();
    return last == nullptr ? rowEdge : endGap(last);
}

} // namespace

SettingRow::SettingRow(const Words &words, QWidget *control, QWidget *parent)
    : QWidget(parent),
      m_title(new TextLabel(words.title, TypeRole::row, TextLabel::Ink::ink, this)),
      m_detail(new TextLabel(words.detail, TypeRole::detail, TextLabel::Ink::second, this)),
      m_control(control),
      m_below(new QWidget(this)),
      m_hasSymbol(!words.symbol.isEmpty()) {
    const double outer = m_hasSymbol ? aboveControl : aboveControlAlone;
    const double inner = aboveRowText - outer;
    const double textIndent = m_hasSymbol ? rowSymbolSize + rowPartsGap : 0;
    m_labels = labels(words.symbol, inner);

    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(directed(*this, rowEdge, outer, 0, outer));
    column->setSpacing(0);
    auto *top = new QHBoxLayout;
    top->setContentsMargins(
        directed(*this, 0, 0, control == nullptr ? rowEdge : endGap(control), 0));
    top->setSpacing(scaled(rowPartsGap));
    top->addWidget(m_labels, 1, Qt::AlignVCenter);
    column->addLayout(top);
    if (control != nullptr && !isTextLarge()) {
        top->addWidget(control, 0, Qt::AlignVCenter);
    } else if (control != nullptr) {
        auto *under = new QHBoxLayout;
        under->setContentsMargins(directed(*this, textIndent, 0, rowEdge, 0));
        under->addWidget(control);
        under->addStretch(1);
        if (auto *alone = dynamic_cast<Switch *>(control)) {
            alone->setAtStart(true);
        }
        column->addLayout(under);
    }
    auto *below = new QVBoxLayout(m_below);
    below->setContentsMargins(directed(*this, textIndent, textToBelow - inner, rowEdge, inner));
    below->setSpacing(scaled(textToBelow));
    m_below->hide();
    column->addWidget(m_below);
    nameControl();
}

QWidget *SettingRow::labels(const QString &symbol, double inner) {
    auto *widget = new QWidget(this);
    widget->setAttribute(Qt::WA_TransparentForMouseEvents);
    auto *line = new QHBoxLayout(widget);
    line->setContentsMargins(0, scaled(inner), 0, scaled(inner));
    line->setSpacing(scaled(rowPartsGap));
    if (!symbol.isEmpty()) {
        line->addWidget(new SymbolView(symbol, rowSymbolSize, SymbolView::Ink::second, widget), 0,
                        Qt::AlignTop);
    }
    auto *texts = new QVBoxLayout;
    texts->setSpacing(scaled(rowTitleToDetail));
    texts->addWidget(m_title);
    texts->addWidget(m_detail);
    m_detail->setVisible(!m_detail->text().isEmpty());
    line->addLayout(texts, 1);
    return widget;
}

int SettingRow::textStart() const {
    return scaled(rowEdge + (m_hasSymbol ? rowSymbolSize + rowPartsGap : 0));
}

void SettingRow::setTitle(const QString &title) {
    m_title->setText(title);
    nameControl();
}

void SettingRow::setDetail(const QString &detail) {
    m_detail->setText(detail);
    m_detail->setVisible(!detail.isEmpty());
    nameControl();
}

QString SettingRow::title() const {
    return m_title->text();
}

void SettingRow::nameControl() {
    QAbstractButton *button = switchHere();
    QWidget *named = button == nullptr ? m_control : button;
    if (named == nullptr) {
        return;
    }
    const auto *spoken = dynamic_cast<const QAbstractButton *>(named);
    if (spoken != nullptr && !spoken->isCheckable() &&
        !(spoken->text().isEmpty() && spoken->accessibleName().isEmpty())) {
        const QString detail = m_detail->text();
        named->setAccessibleDescription(detail.isEmpty() ? title() : title() + u". "_s + detail);
        return;
    }
    named->setAccessibleName(title());
    named->setAccessibleDescription(m_detail->text());
}

void SettingRow::addBelow(QWidget *widget) {
    m_below->layout()->addWidget(widget);
    widget->installEventFilter(this);
    showBelow();
}

/// What holds nothing to be seen takes no room.
void SettingRow::showBelow() {
    const QLayout &parts = *m_below->layout();
    bool isWanted = false;
    for (int index = 0; index < parts.count(); ++index) {
        const QWidget *part = parts.itemAt(index)->widget();
        isWanted = isWanted || (part != nullptr && !part->isHidden());
    }
    m_below->setVisible(isWanted);
}

bool SettingRow::eventFilter(QObject *watched, QEvent *event) {
    if (event->type() == QEvent::ShowToParent || event->type() == QEvent::HideToParent) {
        showBelow();
    }
    return QWidget::eventFilter(watched, event);
}

/// The switch of this row, which may stand beside others.
QAbstractButton *SettingRow::switchHere() const {
    if (m_control == nullptr) {
        return nullptr;
    }
    if (auto *button = dynamic_cast<QAbstractButton *>(m_control)) {
        return button->isCheckable() ? button : nullptr;
    }
    const QList<QAbstractButton *> parts = m_control->findChildren<QAbstractButton *>();
    const auto found = std::find_if(parts.begin(), parts.end(), [](const QAbstractButton *part) {
        return dynamic_cast<const Switch *>(part) != nullptr;
    });
    return found == parts.end() ? nullptr : *found;
}

bool SettingRow::isOnTexts(const QPoint &point) const {
    return m_labels->geometry().contains(point);
}

void SettingRow::mousePressEvent(QMouseEvent *event) {
    m_isPressed = event->button() == Qt::LeftButton && isOnTexts(event->pos());
    if (!m_isPressed) {
        QWidget::mousePressEvent(event);
    }
}

void SettingRow::mouseReleaseEvent(QMouseEvent *event) {
    if (std::exchange(m_isPressed, false) && isOnTexts(event->pos())) {
        if (QAbstractButton *button = switchHere()) {
            button->click();
        }
        return;
    }
    QWidget::mouseReleaseEvent(event);
}

} // namespace zeph::ui
