// SPDX-License-Identifier: MIT
#include "ui/controls/Interaction.h"

#include "ui/controls/Look.h"
#include "ui/controls/Ring.h"

#include <QFocusEvent>
#include <QKeyEvent>
#include <QWidget>

namespace zeph::ui {

namespace {

constexpr std::chrono::milliseconds hoverDuration(90);

bool isModifier(int key) {
    return key == Qt::Key_Shift || key == Qt::Key_Control || key == Qt::Key_Alt ||
           key == Qt::Key_AltGr || key == Qt::Key_Meta;
}

/// Whether the focus came by the keyboard; `before` where it only comes back.
bool isByKeyboard(const QWidget &control, Qt::FocusReason reason, bool before) {
    switch (reason) {
    case Qt::TabFocusReason:
    case Qt::BacktabFocusReason:
    case Qt::ShortcutFocusReason:
        return true;
    case Qt::MouseFocusReason:
        return false;
    case Qt::OtherFocusReason:
        return control.window()->testAttribute(Qt::WA_KeyboardFocusChange);
    default:
        return before;
    }
}

} // namespace

bool bringsIntoView(Qt::FocusReason reason) {
    return reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason ||
           reason == Qt::ShortcutFocusReason || reason == Qt::OtherFocusReason;
}

Interaction::Interaction(QWidget &control, std::function<Rounded()> shape)
    : m_control(&control), m_shape(std::move(shape)), m_hover(control, hoverDuration) {
    control.installEventFilter(this);
}

Interaction::~Interaction() {
    delete m_ring.data();
}

void Interaction::watch(QWidget &part) {
    part.installEventFilter(this);
}

void Interaction::setMarked(bool isMarked) {
    m_isMarked = isMarked;
    showRing();
}

void Interaction::updateRing() {
    showRing();
}

bool Interaction::eventFilter(QObject *object, QEvent *event) {
    switch (event->type()) {
    case QEvent::Enter:
        if (object == m_control && m_control->isEnabled()) {
            m_hover.to(1);
        }
        break;
    case QEvent::Leave:
    case QEvent::Hide:
        if (object == m_control) {
            m_hover.to(0);
        }
        break;
    case QEvent::EnabledChange:
        m_hover.jump(m_control->isEnabled() && m_control->underMouse() ? 1 : 0);
        showRing();
        break;
    case QEvent::FontChange:
    case QEvent::ApplicationFontChange:
        m_control->updateGeometry();
        break;
    case QEvent::Show:
    case QEvent::FocusIn:
    case QEvent::FocusOut:
    case QEvent::KeyPress:
    case QEvent::MouseButtonPress:
        followFocus(*object, *event);
        break;
    default:
        break;
    }
    return QObject::eventFilter(object, event);
}

void Interaction::followFocus(QObject &object, QEvent &event) {
    switch (event.type()) {
    case QEvent::FocusIn:
        m_hasFocus = true;
        m_isByKeyboard = isByKeyboard(*m_control, static_cast<const QFocusEvent &>(event).reason(),
                                      m_isByKeyboard);
        break;
    case QEvent::FocusOut:
        m_hasFocus = false;
        break;
    case QEvent::KeyPress:
        if (!isModifier(static_cast<const QKeyEvent &>(event).key())) {
            m_isByKeyboard = true;
        }
        break;
    case QEvent::MouseButtonPress:
        m_isByKeyboard = false;
        break;
    default:
        break;
    }
    if (auto *part = dynamic_cast<QWidget *>(&object)) {
        part->update();
    }
    m_control->update();
    showRing();
}

void Interaction::showRing() {
    const bool isWanted = m_shape && (m_isMarked || hasKeyboardFocus()) && m_control->isVisible() &&
                          !m_control->isWindow() && !m_shape().rect.isEmpty();
    if (!isWanted) {
        delete m_ring.data();
        return;
    }
    if (m_ring) {
        m_ring->update();
        return;
    }
    m_ring = new Ring(*m_control, m_shape, [this] {
        const Tokens &tokens = Look::of(*m_control).tokens();
        const QColor color = hasKeyboardFocus() ? tokens.focus : tokens.accent;
        return m_control->isEnabled() ? color : veiled(color, disabledOpacity);
    });
}

} // namespace zeph::ui
