// SPDX-License-Identifier: MIT
#pragma once

#include "ui/onboarding/OnboardingWords.h"

#include <QWidget>

namespace zeph::ui {

/// Titles with what belongs to them, apart by fine lines, above the first and below the last too.
class SourceList : public QWidget {
public:
    explicit SourceList(const std::vector<OnboardingWords::Source> &sources,
                        QWidget *parent = nullptr);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    std::vector<QWidget *> m_rows;
};

} // namespace zeph::ui
