// SPDX-License-Identifier: MIT
#include "ui/pages/EveryPageFixture.h"

#include "host/OnboardingFlow.h"
#include "services/catalogue/ServiceCatalogue.h"
#include "ui/controls/Look.h"
#include "ui/controls/OverlayBar.h"
#include "ui/controls/PaneScroll.h"
#include "ui/onboarding/OnboardingView.h"
#include "ui/onboarding/OnboardingWindow.h"

#include <QApplication>
#include <QScrollArea>
#include <QScrollBar>

#include <algorithm>
#include <stdexcept>

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

// Letters may be drawn a little otherwise by another version of the font's renderer.
constexpr GoldenOptions places{.channelTolerance = 3, .allowedPixels = 12, .shades = 16};

/// Each with something that the others have not. They stand for all where accounts are counted.
const QStringList &firstForms() {
    static const QStringList services{u"stripe"_s, u"github"_s, u"ahrefs"_s, u"rss"_s,
                                      u"currency"_s};
    return services;
}

constexpr double usualTextSize = 10;
constexpr int usualHeight = 580;
constexpr int mostHeight = 1000; // of a picture

} // namespace

EveryPageFixture::EveryPageFixture() {
    fillMorning();
    preferences.setBackgroundMode(BackgroundMode::solid);
    preferences.setLayoutMode(WidgetLayoutMode::manual);
    integrations.loadCustomAPIs();
    QApplication::setCursorFlashTime(0);
}

EveryPageFixture::~EveryPageFixture() {
    window.reset();
    QApplication::setLayoutDirection(Qt::LeftToRight);
    setTextSize(usualTextSize);
}

void EveryPageFixture::setTextSize(double points) {
    QFont font = QApplication::font();
    font.setPointSizeF(points);
    QApplication::setFont(font);
}

void EveryPageFixture::open() {
    window = pages.open();
    pages.addPanes();
    pages.addForms(firstForms());
    window->show();
    QApplication::setActiveWindow(window.get());
    settle();
}

void EveryPageFixture::settle() {
    executor.runAll();
    loop.drain();
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    for (int level = 0; level < 12; ++level) { // a layout asks the one around it in a later pass
        QApplication::processEvents();
    }
}

/// As high as the page is, between the window's usual height and a limit.
QImage EveryPageFixture::picture() {
    settle();
    QScrollArea &scroll = shownPane();
    const int height = scroll.widget()->heightForWidth(scroll.viewport()->width());
    const int usual = ui::scaled(usualHeight);
    const int most = window->devicePixelRatioF() > 1 ? usual : ui::scaled(mostHeight);
    window->resize(window->width(), std::clamp(height, usual, most));
    settle();
    scroll.verticalScrollBar()->setValue(0);
    settle();
    for (QWidget *widget : window->findChildren<QWidget *>()) {
        if (dynamic_cast<ui::OverlayBar *>(widget) != nullptr) {
            widget->hide(); // it goes by itself, some time after the last scrolling
        }
    }
    return window->grab().toImage();
}

QScrollArea &EveryPageFixture::shownPane() const {
    for (QScrollArea *area : window->findChildren<QScrollArea *>()) {
        if (area->isVisible() && dynamic_cast<ui::PaneScroll *>(area) != nullptr) {
            return *area;
        }
    }
    throw std::runtime_error("no pane is shown");
}

void EveryPageFixture::expectPictures(const QString &variant, const QStringList &only) {
    for (const SettingsPages::Page &page : pages.pages()) {
        if (only.isEmpty() || only.contains(page.name)) {
            expectPicture(page, variant);
        }
    }
}

void EveryPageFixture::expectFurtherForms(const QString &variant) {
    QStringList services;
    for (const ServiceRow &service : serviceCatalogue()) {
        if (service.words && !firstForms().contains(service.key)) {
            services << service.key;
        }
    }
    const std::size_t before = pages.pages().size();
    pages.addForms(services);
    settle();
    ASSERT_EQ(pages.pages().size(), before + static_cast<std::size_t>(services.size()));
    for (std::size_t index = before; index < pages.pages().size(); ++index) {
        expectPicture(pages.pages()[index], variant);
    }
}

void EveryPageFixture::expectPicture(const SettingsPages::Page &page, const QString &variant) {
    page.show();
    const QString name = QString(page.name).replace(u' ', u'-');
    EXPECT_TRUE(matchesGolden(picture(), u"pages/%1-%2"_s.arg(name, variant), places));
}

void EveryPageFixture::expectSteps(const QString &variant) {
    ui::OnboardingWindow welcome(parts, [] {});
    welcome.present();
    for (int step = 0; step < OnboardingFlow::stepCount; ++step) {
        settle();
        const QString name = u"pages/step-%1-%2"_s.arg(QString::number(step), variant);
        EXPECT_TRUE(matchesGolden(welcome.grab().toImage(), name, places));
        if (step + 1 < OnboardingFlow::stepCount) {
            welcome.view().goOn();
        }
    }
}

} // namespace zeph
