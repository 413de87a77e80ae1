// SPDX-License-Identifier: MIT
#include "ui/controls/Accessible.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAccessibleWidget>
#include <QComboBox>
#include <QVariant>
#include <QWidget>

namespace zeph::ui {

using namespace Qt::StringLiterals;

namespace {

constexpr const char *roleProperty = "zephRole";

/// A combo box, which the toolkit would name after what is chosen alone.
class NamedChoice : public QAccessibleWidget {
public:
    explicit NamedChoice(QComboBox &box) : QAccessibleWidget(&box, QAccessible::ComboBox) {}

    QString text(QAccessible::Text kind) const override {
        QString chosen = box().currentText();
        switch (kind) {
        case QAccessible::Name:
            return box().accessibleName().isEmpty() ? chosen
                                                    : box().accessibleName() + u", "_s + chosen;
        case QAccessible::Value:
            return chosen;
        default:
            return QAccessibleWidget::text(kind);
        }
    }

    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.expandable = true;
        state.expanded = box().view()->isVisible();
        state.hasPopup = true;
        return state;
    }

    QStringList actionNames() const override { return {showMenuAction(), pressAction()}; }

    void doAction(const QString &name) override {
        if (actionNames().contains(name)) {
            box().view()->isVisible() ? box().hidePopup() : box().showPopup();
        }
    }

private:
    QComboBox &box() const { return *static_cast<QComboBox *>(widget()); }
};

/// A button that reads as something else that is pressed, such as a link.
class PressedPart : public QAccessibleWidget {
public:
    PressedPart(QAbstractButton &button, QAccessible::Role role)
        : QAccessibleWidget(&button, role) {}

    QString text(QAccessible::Text kind) const override {
        const QString told = QAccessibleWidget::text(kind);
        return kind == QAccessible::Name && told.isEmpty() ? button().text() : told;
    }

    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.linked = role() == QAccessible::Link;
        state.pressed = button().isDown();
        return state;
    }

    QStringList actionNames() const override {
        return QStringList(pressAction()) + QAccessibleWidget::actionNames();
    }

    void doAction(const QString &name) override {
        if (name != pressAction()) {
            QAccessibleWidget::doAction(name);
        } else if (button().isEnabled()) {
            button().animateClick();
        }
    }

private:
    QAbstractButton &button() const { return *static_cast<QAbstractButton *>(widget()); }
};

QAccessibleInterface *withRole(const QString &, QObject *object) {
    auto *widget = dynamic_cast<QWidget *>(object);
    const QVariant role = widget == nullptr ? QVariant() : widget->property(roleProperty);
    if (auto *box = dynamic_cast<QComboBox *>(object); box != nullptr && role.isValid()) {
        return new NamedChoice(*box);
    }
    if (auto *button = dynamic_cast<QAbstractButton *>(object);
        button != nullptr && role.isValid()) {
        return new PressedPart(*button, static_cast<QAccessible::Role>(role.toInt()));
    }
    return role.isValid()
               ? new QAccessibleWidget(widget, static_cast<QAccessible::Role>(role.toInt()))
               : nullptr;
}

} // namespace

void announceAs(QWidget &widget, QAccessible::Role role) {
    widget.setProperty(roleProperty, static_cast<int>(role));
    QAccessible::installFactory(withRole); // once, however often it is asked for
}

} // namespace zeph::ui
