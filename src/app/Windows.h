// SPDX-License-Identifier: MIT
#pragma once

#include "app/WindowParts.h"
#include "host/ApplicationWindows.h"
#include "host/CalendarPermission.h"
#include "services/refresh/ServiceCheck.h"
#include "ui/settings/SettingsContext.h"

namespace zeph {

namespace ui {
class OnboardingWindow;
class SettingsWindow;
} // namespace ui

/// The program's windows over the toolkit. Each is made when it is first opened.
class Windows : public ApplicationWindows {
public:
    explicit Windows(const WindowParts &parts);
    ~Windows() override;

    void openSettings() override;
    void openUpdates() override;
    void showOnboarding(OnboardingEvents events) override;
    void closeOnboarding() override;

private:
    ui::SettingsWindow &settings();

    WindowParts m_parts;
    CalendarPermission m_calendarPermission;
    ServiceCheck m_serviceCheck;
    ui::SettingsContext m_context;
    std::unique_ptr<ui::SettingsWindow> m_settings;
    std::unique_ptr<ui::OnboardingWindow> m_onboarding;
    WorkOwner m_work;
};

} // namespace zeph
