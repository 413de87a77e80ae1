// SPDX-License-Identifier: MIT
#pragma once

#include "ui/controls/Card.h"
#include "ui/controls/MarkRow.h"
#include "ui/controls/PaneHeader.h"
#include "ui/controls/SectionLabel.h"
#include "ui/controls/Segmented.h"
#include "ui/controls/SettingRow.h"
#include "ui/controls/SizeChoice.h"
#include "ui/controls/StatusLine.h"
#include "ui/controls/Switch.h"
#include "ui/controls/Tile.h"
#include "ui/settings/Pane.h"

#include <QGridLayout>
#include <QHBoxLayout>

namespace zeph::ui {

/// A pane with a bit of everything.
class SamplePane : public Pane {
public:
    explicit SamplePane(const QString &title) {
        using namespace Qt::StringLiterals;
        add(new PaneHeader(title, u"App behavior and appearance."_s), 0);
        add(switches(), 26);
        add(displays(), 14);
        add(new SectionLabel(u"Essentials"_s, u"Time, weather, and your schedule"_s), 30);
        add(widgets(), 12);
        add(tiles(), 14);
    }

    std::vector<SearchEntry> searchEntries() override { return entries; }
    void willShow() override { ++showings; }
    bool goBack() override {
        ++stepsBack;
        return true;
    }

    std::vector<SearchEntry> entries;
    int showings = 0;
    int stepsBack = 0;
    Switch *login = nullptr;
    Switch *numbers = nullptr;

private:
    QWidget *switches() {
        using namespace Qt::StringLiterals;
        auto *card = new Card;
        const auto addSwitch = [&](const QString &symbol, const QString &title,
                                   const QString &detail, bool isOn) {
            auto *control = new Switch;
            control->setChecked(isOn);
            auto *row = new SettingRow({symbol, title, detail}, control);
            card->addRow(row);
            entries.push_back({title, detail, row});
            return control;
        };
        login = addSwitch(u"power"_s, u"Open at login"_s,
                          u"Keep your wallpaper alive — Tavi reopens automatically after every "
                          "reboot or logout."_s,
                          true);
        addSwitch(u"calendar"_s, u"Show meeting titles"_s,
                  u"Off by default. Tavi reads only timing unless you turn this on."_s, false);
        addSwitch(u"clock"_s, u"24-hour clock"_s, u"Show the clock as 14:30 instead of 2:30."_s,
                  true);
        addSwitch(u"folder"_s, u"Hide Desktop files"_s,
                  u"Hides folders and files via your file manager — they are removed, not covered "
                  "by Tavi. Still in ~/Desktop when you turn this off. Your file manager restarts "
                  "briefly when you change this."_s,
                  false);
        return card;
    }

    static QWidget *displays() {
        using namespace Qt::StringLiterals;
        auto *card = new Card;
        card->addRow(new SettingRow({u"display.2"_s, u"Show Tavi on"_s,
                                     u"Pick a monitor, or show your wallpaper on every display at "
                                     "once."_s},
                                    nullptr));
        auto *all = new RadioRow(u"All displays"_s, u"2 monitors"_s);
        all->setChecked(true);
        card->addRow(all);
        card->addRow(new RadioRow(u"Harbor 27"_s, u"3840 × 2160"_s));
        auto *desktop = new CheckRow(u"Desktop 1"_s, u"current"_s);
        desktop->setChecked(true);
        card->addRow(desktop);
        card->addRow(new CheckRow(u"Desktop 2"_s, {}));
        return card;
    }

    QWidget *widgets() {
        using namespace Qt::StringLiterals;
        auto *card = new Card;
        auto *both = new QWidget;
        auto *line = new QHBoxLayout(both);
        line->setContentsMargins(0, 0, 0, 0);
        line->setSpacing(14);
        line->addWidget(new SizeChoice);
        auto *toggle = new Switch;
        toggle->setChecked(true);
        line->addWidget(toggle);
        auto *row = new SettingRow({u"chart.line.uptrend.xyaxis"_s, u"ChartMogul"_s}, both);
        auto *hint = new StatusLine;
        hint->show(StatusLine::Kind::hint,
                   u"Add this in Integrations to show it on your wallpaper."_s);
        row->addBelow(hint);
        card->addRow(row);
        card->addRow(
            new SettingRow({u"ruler"_s, u"Units"_s}, new Segmented({u"Metric"_s, u"Imperial"_s})));
        numbers = new Switch;
        auto *plain = new SettingRow({{}, u"Show on wallpaper"_s}, numbers);
        card->addRow(plain);
        entries.push_back({u"Show on wallpaper"_s, {}, plain});
        return card;
    }

    static QWidget *tiles() {
        using namespace Qt::StringLiterals;
        auto *grid = new QWidget;
        auto *places = new QGridLayout(grid);
        places->setContentsMargins(0, 0, 0, 0);
        places->setSpacing(12);
        places->addWidget(new Tile({u"creditcard"_s, u"Stripe"_s, u"Revenue, MRR, customers"_s,
                                    u"checkmark.circle.fill"_s, u"2 connected"_s}),
                          0, 0);
        places->addWidget(
            new Tile({u"chart.line.uptrend.xyaxis"_s, u"ChartMogul"_s, u"MRR, ARR, customers"_s}),
            0, 1);
        places->addWidget(new Tile({u"cart"_s, u"Lemon Squeezy"_s, u"MRR, revenue, trials"_s}), 1,
                          0);
        Tile::Words words{u"plus.circle"_s, u"Add another account"_s, {}};
        words.isAddition = true;
        places->addWidget(new Tile(words), 1, 1);
        return grid;
    }
};

} // namespace zeph::ui
