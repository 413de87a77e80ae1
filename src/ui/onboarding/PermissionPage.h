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

    PillButton *m_allow;
    QWidget *m_allowed;
    TextLabel *m_hindrance;
    PillButton *m_openSettings;
};

} // namespace zeph::ui
