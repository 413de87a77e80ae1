// SPDX-License-Identifier: MIT
#pragma once

#include "ui/SettingsFixture.h"
#include "ui/controls/Look.h"
#include "ui/controls/TextLabel.h"

#include <QAccessible>
#include <QApplication>
#include <QTest>
#include <QVBoxLayout>

#include <algorithm>
#include <stdexcept>

namespace zeph::ui {

/// A login item that answers when the test says so.
class PendingLoginItem : public LoginItem {
public:
    bool isEnabled() const override { return enabled; }
    void setEnabled(bool isWanted,
                    std::function<void(const std::optional<QString> &error)> done) override {
        wanted = isWanted;
        answer = std::move(done);
    }
    void renew(std::function<void(const std::optional<QString> &error)> done) override {
        done(std::nullopt);
    }

    void take() {
        enabled = *wanted;
        answer(std::nullopt);
    }
    void refuse() { answer(QStringLiteral("no")); }

    bool enabled = false;
    std::optional<bool> wanted;
    std::function<void(const std::optional<QString> &error)> answer;
};

/// A desktop that writes down what is to become of its icons.
class RecordingShell : public DesktopShell {
public:
    bool canHideIcons() const override { return canHide; }
    QString name() const override { return QStringLiteral("recording"); }
    std::optional<IconSetting> iconSetting() const override {
        return isReadable ? std::optional(IconSetting{shown}) : std::nullopt;
    }
    ShellOutcome hideIcons() override {
        shown = false;
        return ShellOutcome::done;
    }
    ShellOutcome showIcons(const QString &) override {
        shown = true;
        return ShellOutcome::done;
    }
    ShellOutcome relaunch() override {
        ++relaunches;
        return ShellOutcome::done;
    }

    bool canHide = true;
    bool isReadable = true;
    bool shown = true;
    int relaunches = 0;
};

/// Updates whose steps the test takes.
class RecordingUpdates : public UpdateFramework {
public:
    const UpdateStatus &status() const override { return told; }
    Subscription subscribe(std::function<void()> handler) override {
        return m_changes.subscribe(std::move(handler));
    }
    void checkForUpdates() override { asked << QStringLiteral("check"); }
    void install() override { asked << QStringLiteral("install"); }
    void cancel() override { asked << QStringLiteral("cancel"); }

    void tell(const UpdateStatus &status) {
        told = status;
        m_changes.send();
    }

    UpdateStatus told;
    QStringList asked;

private:
    ChangePublisher m_changes;
};

/// A pane or a card in a window, driven as a user does.
class PaneFixture : public SettingsFixture {
protected:
    PaneFixture() { m_column.setContentsMargins(20, 20, 20, 20); }
    ~PaneFixture() override { window.hide(); }

    /// The machine's part of the settings, as the tests play it, with `store` where one is
    /// told.
    SettingsContext paneContext(IntegrationsStore *store = nullptr) {
        SettingsContext known = context();
        return {.preferences = known.preferences,
                .integrations = store == nullptr ? known.integrations : *store,
                .state = known.state,
                .defaults = known.defaults,
                .notifications = known.notifications,
                .runLoop = known.runLoop,
                .clock = known.clock,
                .framing = known.framing,
                .screens = known.screens,
                .windowServer = known.windowServer,
                .virtualDesktops = known.virtualDesktops,
                .appearance = known.appearance,
                .permissions = known.permissions,
                .systemSettings = known.systemSettings,
                .launchAtLogin = paneLaunchAtLogin,
                .desktopIcons = paneDesktopIcons,
                .updates = paneUpdates,
                .serviceCheck = known.serviceCheck,
                .wallpaper = known.wallpaper,
                .painter = known.painter};
    }

    /// Puts `made` into the window, which owns it, and shows it.
    template <typename View>
    View &show(View *made) {
        m_column.addWidget(made);
        window.resize(640, 700);
        window.show();
        QApplication::setActiveWindow(&window);
        settle();
        return *made;
    }

    /// Lets all that was asked for happen.
    void settle() {
        loop.drain();
        QApplication::processEvents();
    }

    /// The shown control of that kind that screen readers call so. Fails the test without one.
    template <typename Control>
    Control &named(const QString &name) {
        Control *found = find<Control>(name);
        if (found == nullptr) {
            throw std::runtime_error("nothing is called " + name.toStdString());
        }
        return *found;
    }

    /// The same, null without one.
    template <typename Control>
    Control *find(const QString &name) const {
        const auto controls = all<Control>();
        const auto found = std::find_if(controls.begin(), controls.end(), [&](Control *control) {
            return control->isVisible() && spoken(*control) == name;
        });
        return found == controls.end() ? nullptr : *found;
    }

    /// All of a kind, shown or not. The toolkit's own search knows none of our kinds.
    template <typename Control>
    std::vector<Control *> all() const {
        std::vector<Control *> found;
        for (QWidget *widget : window.findChildren<QWidget *>()) {
            if (auto *control = dynamic_cast<Control *>(widget)) {
                found.push_back(control);
            }
        }
        return found;
    }

    /// Whether that text stands in the window.
    bool says(const QString &text) const { return find<TextLabel>(text) != nullptr; }

    static QString spoken(QWidget &widget) {
        if (!widget.accessibleName().isEmpty()) {
            return widget.accessibleName();
        }
        QAccessibleInterface *interface = QAccessible::queryAccessibleInterface(&widget);
        return interface == nullptr ? QString() : interface->text(QAccessible::Name);
    }

    void click(QWidget &widget) {
        QTest::mouseClick(&widget, Qt::LeftButton);
        settle();
    }

    /// Gives `widget` the focus and presses `key`.
    void press(QWidget &widget, Qt::Key key) {
        widget.setFocus(Qt::TabFocusReason);
        QTest::keyClick(&widget, key);
        settle();
    }

    PendingLoginItem paneLoginItem;
    LaunchAtLogin paneLaunchAtLogin{paneLoginItem};
    RecordingShell paneShell;
    DesktopIconsManager paneDesktopIcons{paneShell, defaults, background};
    RecordingUpdates paneUpdates;
    QWidget window;
    Look look{window, Appearance::dark};

private:
    QVBoxLayout m_column{&window};
};

} // namespace zeph::ui
