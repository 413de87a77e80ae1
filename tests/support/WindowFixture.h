// SPDX-License-Identifier: MIT
#pragma once

#include "support/ManualAnimation.h"
#include "ui/controls/Look.h"

#include <QAccessible>
#include <QApplication>
#include <QTest>
#include <QVBoxLayout>
#include <QWidget>

#include <gtest/gtest.h>

#include <memory>

namespace zeph::ui {

/// A window of ours with one control below the other.
class WindowFixture : public testing::Test {
protected:
    WindowFixture() { m_column->setContentsMargins(20, 20, 20, 20); }

    ~WindowFixture() override { window.hide(); }

    /// Puts `control` into the window, which owns it.
    template <typename Control>
    Control &add(Control *control) {
        m_column->addWidget(control);
        return *control;
    }

    /// Shows the window and lets it take the focus.
    void open() {
        window.show();
        window.activateWindow();
        QApplication::setActiveWindow(&window);
        QApplication::processEvents();
    }

    static QAccessibleInterface &accessible(QWidget &widget) {
        return *QAccessible::queryAccessibleInterface(&widget);
    }

    ManualAnimation animation;
    QWidget window;
    Look look{window, Appearance::dark};

private:
    QVBoxLayout *m_column = new QVBoxLayout(&window);
};

} // namespace zeph::ui
