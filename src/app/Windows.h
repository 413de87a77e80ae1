// SPDX-License-Identifier: MIT
#pragma once

#include "app/WindowParts.h"
#include "host/ApplicationWindows.h"
#include "host/CalendarPermission.h"
#include "services/refresh/ServiceCheck.h"
#include "ui/settings/SettingsContext.h"

#include <QPointer>
#include <QWidget>

namespace zeph {

struct Consents;
struct PermissionsContext;

namespace ui {
class OnboardingWindow;
class SettingsWindow;
} // namespace ui

/// The program's windows over the toolkit. Each is made when it is first opened.
class Windows : public ApplicationWindows {
public:
    /// `consents` are those that the adapters go by.
    Windows(const WindowParts &parts, Consents &consents);
    ~Windows() override;

    void openSettings() override;
    void openUpdates() override;
    void showOnboarding(OnboardingEvents events) override;
    void closeOnboarding() override;

private:
    ui::SettingsContext makeContext(Consents &consents);
    PermissionsContext permissions(Consents &consents);
    void showPermissions();
    ui::SettingsWindow &settings();
    void bringToFront(QWidget &window);
    void bringUsedToFront();

    WindowParts m_parts;
    WorkOwner m_work;
    CalendarPermission m_calendarPermission;
    ServiceCheck m_serviceCheck;
    ui::SettingsContext m_context;
    std::unique_ptr<ui::SettingsWindow> m_settings;
    std::unique_ptr<ui::OnboardingWindow> m_onboarding;
    QPointer<QWidget> m_broughtLast; ///< of the two
};

} // namespace zeph
