// SPDX-License-Identifier: MIT
#pragma once

#include "ui/settings/SettingsContext.h"

#include <QCloseEvent>
#include <QWidget>

#include <functional>

namespace zeph::ui {

/// Stands in for the first-run window until it is there: an empty one of its size.
class OnboardingWindow : public QWidget {
public:
    OnboardingWindow(const SettingsContext & /*context*/, std::function<void()> onDone)
        : m_onDone(std::move(onDone)) {
        setWindowTitle(QStringLiteral("Welcome to Tavi"));
        setFixedSize(470, 580);
    }

    std::function<void()> onClosed;

    void present() {
        show();
        raise();
    }

protected:
    void closeEvent(QCloseEvent *event) override {
        QWidget::closeEvent(event);
        if (onClosed) {
            onClosed();
        }
    }

private:
    std::function<void()> m_onDone;
};

} // namespace zeph::ui
