// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <functional>
#include <memory>

namespace zeph {

class PermissionsManager;
class SystemSettings;

/// The pages of the first start, in their order.
enum class OnboardingStep { welcome, input, location, integrations, customizing, finish };

/// Where the user stands in the first start, and what its buttons do. Nothing stops the user from
/// going on: a permission is skipped by that. Main thread only.
class OnboardingFlow {
public:
    static constexpr int stepCount = 6;

    /// `onDone` is called when the user went through to the end. All of it outlives the flow.
    OnboardingFlow(std::shared_ptr<PermissionsManager> permissions, SystemSettings &settings,
                   std::function<void()> onDone);

    OnboardingStep step() const { return m_step; }
    int number() const { return static_cast<int>(m_step); } ///< from 0
    bool isFirst() const { return m_step == OnboardingStep::welcome; }
    bool isLast() const { return m_step == OnboardingStep::finish; }

    bool hasBack() const { return !isFirst(); }
    void goBack();

    QString mainTitle() const;
    /// To the next step, or from the last one to the end.
    void goOn();

    /// Whether this step asks for a permission.
    bool asks() const;
    /// What this desktop lacks for this step's permission: why nothing is asked, or what a consent
    /// is good for all the same. Mostly empty.
    QString note() const;
    /// Whether the permission that this step asks for is there.
    bool isGranted() const;
    /// Whether this step offers the desktop's own page as another way to its permission.
    bool offersSettings() const;
    /// Reads anew what is granted; it may be given or withdrawn elsewhere at any time.
    void refresh();
    /// The user's wish that this step's permission be given.
    void allow();
    void openSettings();

private:
    void openPage(const QString &link);
    bool hasPage(const QString &link) const;

    std::shared_ptr<PermissionsManager> m_permissions;
    SystemSettings &m_settings;
    std::function<void()> m_onDone;
    OnboardingStep m_step = OnboardingStep::welcome;
};

} // namespace zeph
