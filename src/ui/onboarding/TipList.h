// SPDX-License-Identifier: MIT
#pragma once

#include "ui/onboarding/OnboardingWords.h"

#include <QWidget>

class QVBoxLayout;

namespace zeph::ui {

/// Sentences below each other, each beside its symbol.
class TipList : public QWidget {
public:
    /// `gap` designed pixels between two of them.
    TipList(const std::vector<OnboardingWords::Tip> &tips, double gap, QWidget *parent = nullptr);

    /// Stands where the sentences do, below the last one; with its outermost `reach` designed
    /// pixels outside of that line.
    void addBody(QWidget *body, double gap, double reach);

private:
    QVBoxLayout *m_column;
};

} // namespace zeph::ui
