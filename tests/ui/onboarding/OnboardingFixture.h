// SPDX-License-Identifier: MIT
#pragma once

#include "ui/SettingsFixture.h"
#include "ui/onboarding/OnboardingView.h"
#include "ui/onboarding/OnboardingWindow.h"

#include <QAbstractButton>
#include <QApplication>
#include <QLabel>
#include <QTest>

#include <memory>

namespace zeph {

/// The window of the first start, driven as a person would.
class OnboardingFixture : public SettingsFixture {
protected:
    OnboardingFixture() { fillMorning(); }

    /// Makes the window and shows it.
    void open() {
        window = std::make_unique<ui::OnboardingWindow>(context(), [this] { ++ends; });
        window->onClosed = [this] { ++closings; };
        present();
    }

    void present() {
        window->present();
        settle();
    }

    void openAt(OnboardingStep step) {
        open();
        while (window->step() != step) {
            click(QStringLiteral("Continue"));
        }
    }

    /// Lets everything happen that is due.
    void settle() {
        loop.drain();
        QApplication::sendPostedEvents();
        QApplication::processEvents();
        loop.drain();
        QApplication::processEvents();
    }

    /// The visible button of that text; null when there is none.
    QAbstractButton *button(const QString &text) const {
        for (QAbstractButton *found : window->findChildren<QAbstractButton *>()) {
            if (found->text() == text && found->isVisible()) {
                return found;
            }
        }
        return nullptr;
    }

    void click(const QString &text) {
        QAbstractButton *found = button(text);
        ASSERT_NE(found, nullptr) << text.toStdString();
        QTest::mouseClick(found, Qt::LeftButton);
        settle();
    }

    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QWidget *focused = window->focusWidget();
        QTest::keyClick(focused != nullptr ? focused : window.get(), key, modifiers);
        settle();
    }

    /// All texts that can be seen, in the order in which they were made.
    QStringList words() const {
        QStringList texts;
        for (const QWidget *widget : window->findChildren<QWidget *>()) {
            if (!widget->isVisible()) {
                continue;
            }
            if (const auto *label = dynamic_cast<const QLabel *>(widget)) {
                texts << label->text();
            } else if (const auto *pressed = dynamic_cast<const QAbstractButton *>(widget)) {
                texts << pressed->text();
            }
        }
        return texts;
    }

    int ends = 0;
    int closings = 0;
    std::unique_ptr<ui::OnboardingWindow> window;
};

} // namespace zeph
