// SPDX-License-Identifier: MIT
#pragma once

#include "ui/onboarding/OnboardingWords.h"
#include "ui/onboarding/StepPage.h"

#include <functional>

namespace zeph::ui {

class PillButton;
class TextLabel;

/// Asks for one permission, and tells when it is there.
class PermissionPage : public StepPage {
public:
    explicit PermissionPage(const OnboardingWords::Permission &words, QWidget *parent = nullptr);

    void refresh(const OnboardingFlow &flow) override;

    std::function<void()> onAllow;
    std::function<void()> onOpenSettings;

private:
    QWidget *answer();

    QString m_reason;
    PillButton *m_allow;
    QWidget *m_allowed;
    TextLabel *m_note;      ///< above the button
    TextLabel *m_hindrance; ///< in place of the button
    PillButton *m_openSettings;
    QWidget *m_lowest;
};

} // namespace zeph::ui
