// SPDX-License-Identifier: MIT
#pragma once

#include "host/ApplicationWindows.h"
#include "ports/ApplicationPolicy.h"
#include "ports/DesktopAppearance.h"
#include "ports/DesktopShell.h"
#include "ports/LoginItem.h"
#include "ports/ShellPorts.h"
#include "ports/StatusBar.h"
#include "ports/UpdateFramework.h"
#include "support/FakeLocation.h"
#include "support/FakeScreens.h"
#include "support/FakeSystemSettings.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <utility>

namespace zeph {

/// What happened to the fakes of a `FakeShell` in order, such as "accessory" or "settings".
using ShellStory = std::vector<std::string>;

/// A tray that remembers what is in it.
class FakeStatusBar : public StatusBar {
public:
    explicit FakeStatusBar(ShellStory &story) : m_story(story) {}

    std::unique_ptr<StatusItem> makeItem(const QString &itemSymbol, const QString &itemDescription,
                                         std::vector<MenuItem> itemMenu) override {
        m_story.emplace_back("tray");
        symbol = itemSymbol;
        description = itemDescription;
        menu = std::move(itemMenu);
        ++items;
        return std::make_unique<Item>(items);
    }

    /// Chooses the line with this text, as the user does.
    void choose(const QString &text) const {
        const auto line = std::find_if(menu.begin(), menu.end(), [&](const MenuItem &one) {
            return one.text == text && one.action;
        });
        ASSERT_NE(line, menu.end()) << text.toStdString();
        line->action();
    }

    QString symbol;
    QString description;
    std::vector<MenuItem> menu;
    int items = 0; ///< in the tray now

private:
    class Item : public StatusItem {
    public:
        explicit Item(int &count) : m_count(count) {}
        ~Item() override { --m_count; }

    private:
        int &m_count;
    };

    ShellStory &m_story;
};

/// A session that starts the program or not.
class FakeLoginItem : public LoginItem {
public:
    bool isEnabled() const override { return enabled; }
    void setEnabled(bool wanted,
                    std::function<void(const std::optional<QString> &)> done) override {
        wishes.push_back(wanted);
        if (!problem) {
            enabled = wanted;
        }
        done(problem);
    }

    void renew(std::function<void(const std::optional<QString> &)> done) override {
        ++renewals;
        done(renewalProblem);
    }

    int renewals = 0; ///< how often it was to follow a program that was moved
    bool enabled = false;
    std::optional<QString> problem;
    std::optional<QString> renewalProblem;
    std::vector<bool> wishes; ///< what was asked for, in order
};

/// A search for newer versions that finds what the test says.
class FakeUpdateFramework : public UpdateFramework {
public:
    explicit FakeUpdateFramework(ShellStory &story) : m_story(story) {}

    const UpdateStatus &status() const override { return current; }
    Subscription subscribe(std::function<void()> handler) override {
        return m_changes.subscribe(std::move(handler));
    }
    void checkForUpdates() override {
        m_story.emplace_back("check");
        change({.phase = UpdateStatus::Phase::checking});
    }
    void install() override { m_story.emplace_back("install"); }
    void cancel() override { m_story.emplace_back("cancel"); }

    /// Brings the search there and tells of it.
    void change(UpdateStatus status) {
        current = std::move(status);
        m_changes.send();
    }

    UpdateStatus current;

private:
    ShellStory &m_story;
    ChangePublisher m_changes;
};

/// A desktop whose look the test chooses.
class FakeAppearance : public DesktopAppearance {
public:
    Scheme scheme() const override { return chosen; }
    bool wantsHighContrast() const override { return false; }
    bool wantsMotion() const override { return true; }
    Subscription subscribe(std::function<void()> handler) override {
        return m_changes.subscribe(std::move(handler));
    }

    Scheme chosen = Scheme::unknown;

private:
    ChangePublisher m_changes;
};

/// A desktop with icons. What is written to it may not take effect.
class FakeDesktopShell : public DesktopShell {
public:
    explicit FakeDesktopShell(ShellStory &story) : m_story(story) {}

    bool canHideIcons() const override { return true; }
    QString name() const override { return desktop; }
    bool hidesUnread() const override { return canHideUnread; }
    std::optional<IconSetting> iconSetting() const override {
        if (!isReadable) {
            return std::nullopt;
        }
        return areShown ? IconSetting{true, style} : IconSetting{false, none, drawerUnshown};
    }
    QString mergedValue(const QString &earlier, const QString &later) const override {
        return isOfParts ? earlier + QLatin1Char('+') + later : later;
    }
    ShellOutcome hideIcons() override { return write("hide icons", false); }
    ShellOutcome showIcons(const QString &earlier) override {
        const ShellOutcome written = write("show icons", true);
        if (areShown) {
            style = earlier.isEmpty() ? plain : earlier;
        }
        return written;
    }
    ShellOutcome relaunch() override {
        m_story.emplace_back("relaunch");
        return outcome;
    }
    Subscription subscribeToDrawer(const std::function<void()> &handler) override {
        return drawers.subscribe(handler);
    }

    /// What draws the icons comes up, with icons.
    void bringDrawer() {
        areShown = true;
        drawers.send();
    }

    inline static const QString plain = QStringLiteral("plain");
    inline static const QString none = QStringLiteral("none");

    QString desktop = QStringLiteral("fake");
    bool areShown = true;
    bool isReadable = true;
    bool canHideUnread = false;
    QString style = plain;                        ///< the setting's value while they are shown
    IconDrawer drawerUnshown = IconDrawer::there; ///< while they are not
    bool isOfParts = false;                       ///< of which each has a value
    int deafFor = 0;                              ///< so many writes have no effect
    ShellOutcome outcome = ShellOutcome::done;
    ChangePublisher drawers; ///< that may have come or gone

private:
    ShellOutcome write(const char *event, bool wanted) {
        m_story.emplace_back(event);
        if (--deafFor < 0) {
            areShown = wanted;
        }
        return outcome;
    }

    ShellStory &m_story;
};

/// Writes down what the program is to be.
class FakeApplicationPolicy : public ApplicationPolicy {
public:
    explicit FakeApplicationPolicy(ShellStory &story) : m_story(story) {}

    void setActivationPolicy(ActivationPolicy policy) override {
        m_story.emplace_back(policy == ActivationPolicy::regular ? "regular" : "accessory");
    }
    void activate(QWindow &) override { m_story.emplace_back("activate"); }

private:
    ShellStory &m_story;
};

/// Windows that nobody sees.
class FakeApplicationWindows : public ApplicationWindows {
public:
    FakeApplicationWindows(ShellStory &story, OnboardingEvents &events)
        : m_story(story), m_events(events) {}

    void openSettings() override { m_story.emplace_back("settings"); }
    void openUpdates() override { m_story.emplace_back("updates"); }
    void showOnboarding(OnboardingEvents events) override {
        m_story.emplace_back("onboarding");
        m_events = std::move(events);
    }
    void closeOnboarding() override { m_story.emplace_back("onboarding closed"); }

private:
    ShellStory &m_story;
    OnboardingEvents &m_events;
};

/// A desktop around the wallpaper, all of fakes, with the story of what they were asked to do.
class FakeShell {
public:
    std::unique_ptr<ApplicationWindows> makeWindows() {
        story.emplace_back("windows made");
        return std::make_unique<FakeApplicationWindows>(story, onboarding);
    }

    ShellStory story;
    OnboardingEvents onboarding; ///< of the window that was shown last
    FakeApplicationPolicy policy{story};
    FakeStatusBar statusBar{story};
    FakeLoginItem loginItem;
    FakeUpdateFramework updates{story};
    FakeAppearance appearance;
    FakeDesktopShell desktopShell{story};
    FakeSystemSettings systemSettings;
    FakeScreens windowScreens;
    ShellPorts ports{.policy = policy,
                     .statusBar = statusBar,
                     .loginItem = loginItem,
                     .updates = updates,
                     .appearance = appearance,
                     .desktopShell = desktopShell,
                     .systemSettings = systemSettings,
                     .windowScreens = windowScreens,
                     .makeLocationClient = [] { return std::make_unique<FakeLocationClient>(); }};
};

} // namespace zeph
