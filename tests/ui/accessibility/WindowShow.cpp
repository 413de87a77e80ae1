// SPDX-License-Identifier: MIT
// Shows one of our windows, named by the argument, until it is ended.
#include "ui/SettingsFixture.h"
#include "ui/accessibility/PageShow.h"
#include "ui/accessibility/SampleControls.h"
#include "ui/onboarding/OnboardingView.h"
#include "ui/onboarding/OnboardingWindow.h"
#include "ui/settings/SettingsWindow.h"

#include <QApplication>
#include <QTimer>

#include <cstdio>

namespace zeph {

namespace {

using namespace Qt::StringLiterals;

/// What the windows show, outside of a test.
class Shown : public SettingsFixture {
public:
    Shown() { fillMorning(); }
    void TestBody() override {}

    /// The first start, gone on to that step.
    std::unique_ptr<QWidget> onboarding(int step) {
        auto window = std::make_unique<ui::OnboardingWindow>(context(), [] {});
        for (int gone = 0; gone < step; ++gone) {
            window->view().goOn();
        }
        window->present();
        return window;
    }

    std::unique_ptr<QWidget> settings() {
        std::vector<ui::SettingsWindow::Tab> tabs{
            {u"gearshape"_s, u"Controls"_s, [] { return makeSampleControls(); }},
            {u"info.circle"_s, u"About"_s, [] { return std::make_unique<ui::Pane>(); }}};
        auto window = std::make_unique<ui::SettingsWindow>(std::move(tabs), appearance, loop);
        window->showTab(0);
        window->show();
        return window;
    }

    /// All that there is to set, each part on a page of its own.
    std::unique_ptr<QWidget> pages(bool ofAccounts) {
        preferences.setBackgroundMode(BackgroundMode::solid);
        preferences.setLayoutMode(WidgetLayoutMode::manual);
        screens.screens.push_back(screen(u"two"_s, 2, 1920, 1200));
        integrations.loadCustomAPIs();
        executor.runAll();
        loop.drain();
        return show.open(ofAccounts);
    }

    std::unique_ptr<QWidget> window(const QString &name) {
        if (name == u"settings") {
            return settings();
        }
        if (name == u"pages" || name == u"forms") {
            return pages(name == u"forms");
        }
        bool isNumber = false;
        const int step = name.toInt(&isNumber);
        return isNumber ? onboarding(step) : nullptr;
    }

    void turn(double seconds) {
        executor.runAll();
        loop.advance(seconds);
    }

    ui::SettingsContext parts = context();
    PageShow show{parts, background};
};

} // namespace

} // namespace zeph

int main(int argc, char **argv) {
    const QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("window-show"));
    constexpr int turnPeriod = 20; // milliseconds
    constexpr double secondsATurn = 0.02;
    zeph::Shown shown;
    const auto window = shown.window(QString::fromLocal8Bit(argc > 1 ? argv[1] : ""));
    if (!window) {
        std::fputs("which window?\n", stderr);
        return 2;
    }
    QTimer turns;
    QObject::connect(&turns, &QTimer::timeout, &turns, [&] { shown.turn(secondsATurn); });
    turns.start(turnPeriod);
    return QApplication::exec();
}
