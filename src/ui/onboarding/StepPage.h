// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

class QVBoxLayout;

namespace zeph {
class OnboardingFlow;
}

namespace zeph::ui {

/// One page of the first start: a picture, a title, and below it what the page tells.
class StepPage : public QWidget {
public:
    /// Where the picture begins, in designed pixels from the top of the page.
    static constexpr double usualTop = 56;

    /// `head` is what stands above the title.
    StepPage(QWidget *head, const QString &title, double top = usualTop, QWidget *parent = nullptr);

    /// In the middle, `gap` designed pixels below what was added before.
    void add(QWidget *widget, double gap);
    /// The same, at the lower edge of the page where there is room.
    void addLowest(QWidget *widget, double distance);

    /// Shows where the permission of the page stands.
    virtual void refresh(const OnboardingFlow & /*flow*/) {}

private:
    QVBoxLayout *m_column;
};

} // namespace zeph::ui
