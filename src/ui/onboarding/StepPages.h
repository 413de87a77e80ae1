// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>

namespace zeph {
enum class OnboardingStep;
}

namespace zeph::ui {

class StepPage;
struct SettingsContext;

/// What the buttons of a page ask for.
struct StepActions {
    std::function<void()> allow;
    std::function<void()> openSettings;
};

/// The page of `step`.
std::unique_ptr<StepPage> makeStepPage(OnboardingStep step, const SettingsContext &context,
                                       const StepActions &actions);

} // namespace zeph::ui
