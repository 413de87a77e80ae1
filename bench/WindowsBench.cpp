// SPDX-License-Identifier: MIT
// Opens the settings on the display of the environment and prints how long people wait.
#include "ui/SettingsPages.h"
#include "ui/controls/Segment.h"
#include "ui/controls/Swatch.h"
#include "ui/controls/Switch.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QFont>
#include <QKeyEvent>
#include <QLineEdit>
#include <QRadioButton>
#include <QScrollArea>
#include <QStyleFactory>

#include <algorithm>
#include <cstdio>
#include <stdexcept>

namespace zeph {

namespace {

using namespace Qt::StringLiterals;

constexpr double windowBudget = 150;
constexpr double paneBudget = 50;
constexpr double controlBudget = 16;
constexpr int times = 15;

/// Hears when something is painted.
class PaintWatch : public QObject {
public:
    PaintWatch() { QApplication::instance()->installEventFilter(this); }

    bool eventFilter(QObject * /*watched*/, QEvent *event) override {
        hasPainted = hasPainted || event->type() == QEvent::Paint;
        return false;
    }

    bool hasPainted = false;
};

/// The settings over fakes of the machine, outside of a test.
class BenchWindows : public SettingsFixture {
public:
    BenchWindows() { fillMorning(); }
    void TestBody() override {}

    void measure() {
        integrations.loadCustomAPIs();
        const double opened = timed([this] {
            window = pages.open();
            window->show();
        });
        print(u"settings window, first opening"_s, opened, windowBudget);
        pages.addPanes();
        pages.addForms({u"github"_s});
        settle();
        for (const SettingsPages::Page &page : pages.pages()) {
            if (page.name != u"general") { // which came with the window
                print(u"pane, first look: "_s + page.name, timed(page.show), paneBudget);
            }
        }
        again();
        controls();
    }

private:
    void again() {
        print(u"settings window, opened again"_s, median([this] {
                  window->close();
                  settle();
                  return timed([this] { window->show(); });
              }),
              windowBudget);
        for (const SettingsPages::Page &page : pages.pages()) {
            const auto &other = pages.pages()[page.name == u"about" ? 0 : 5];
            print(u"pane, looked at again: "_s + page.name, median([&] {
                      timed(other.show);
                      return timed(page.show);
                  }),
                  paneBudget);
        }
    }

    /// One of each kind that there is on the panes, pressed until it has answered.
    void controls() {
        const auto &all = pages.pages();
        timed(all[0].show);
        press<ui::Switch>(u"switch"_s);
        press<ui::Swatch>(u"swatch"_s);
        press<ui::Segment>(u"choice"_s);
        timed(all[2].show);
        press<ui::Switch>(u"switch of a widget"_s);
        timed(all.back().show);
        typeInto(u"field"_s);
    }

    template <typename Control>
    void press(const QString &name) {
        print(u"control: "_s + name, median([this] {
                  Control *const control = choosable<Control>();
                  reveal(*control);
                  return timed([control] { control->click(); });
              }),
              controlBudget);
    }

    static void reveal(QWidget &control) {
        for (QWidget *around = control.parentWidget(); around != nullptr;
             around = around->parentWidget()) {
            if (auto *area = dynamic_cast<QScrollArea *>(around)) {
                area->ensureWidgetVisible(&control);
            }
        }
    }

    /// The first that a click changes: a choice that is made already stays as it is.
    template <typename Control>
    Control *choosable() const {
        for (QWidget *widget : window->findChildren<QWidget *>()) {
            auto *control = dynamic_cast<Control *>(widget);
            const bool isOffered =
                control != nullptr && control->isVisible() && control->isEnabled();
            const bool isOne = dynamic_cast<QRadioButton *>(widget) != nullptr;
            if (isOffered && !(isOne && control->isChecked())) {
                return control;
            }
        }
        throw std::runtime_error("there is none to click");
    }

    void typeInto(const QString &name) {
        for (QLineEdit *field : window->findChildren<QLineEdit *>()) {
            if (field->isVisible() && field->accessibleName() == u"Display name") {
                print(u"control: "_s + name, median([&] {
                          return timed([field] {
                              QKeyEvent key(QEvent::KeyPress, Qt::Key_A, {}, u"a"_s);
                              QApplication::sendEvent(field, &key);
                          });
                      }),
                      controlBudget);
            }
        }
    }

    /// Milliseconds until what `action` brings about was painted and is with the display.
    double timed(const std::function<void()> &action) {
        constexpr double longest = 2000;
        settle();
        QElapsedTimer passed;
        const auto milliseconds = [&passed] {
            return static_cast<double>(passed.nsecsElapsed()) / 1e6;
        };
        passed.start();
        paints.hasPainted = false;
        action();
        while (!paints.hasPainted && milliseconds() < longest) {
            settle();
        }
        QApplication::sync();
        return milliseconds();
    }

    static double median(const std::function<double()> &measured) {
        std::array<double, times> all{};
        for (double &one : all) {
            one = measured();
        }
        std::sort(all.begin(), all.end());
        return all[times / 2];
    }

    void settle() {
        executor.runAll();
        loop.drain();
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QApplication::processEvents();
    }

    static void print(const QString &what, double milliseconds, double budget) {
        std::printf("%-46s%8.1f ms  %4.0f ms  %s\n", qPrintable(what), milliseconds, budget,
                    milliseconds <= budget ? "met" : "MISSED");
    }

    PaintWatch paints;
    ui::SettingsContext parts = context();
    SettingsPages pages{parts, background};
    std::unique_ptr<ui::SettingsWindow> window;
};

} // namespace

} // namespace zeph

int main(int argc, char **argv) {
    const QApplication application(argc, argv);
    QFont designed(QStringLiteral("Inter"));
    designed.setPointSizeF(10);
    QApplication::setFont(designed);
    zeph::BenchWindows().measure();
}
