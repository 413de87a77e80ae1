// SPDX-License-Identifier: MIT
#include "host/DesktopRows.h"

#include "settings/PreferencesStore.h"

#include <QRegularExpression>
#include <QStringList>

#include <map>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

/// The chosen numbers; none of them where all are chosen.
std::set<int> chosenNumbers(const DesktopSelection &selection) {
    const auto *some = std::get_if<SomeDesktops>(&selection);
    return some ? some->numbers : std::set<int>();
}

/// Whether that name says no more than the number does, such as "2" or "Workspace 2".
bool isNumberAlone(const QString &name, int number) {
    static const QRegularExpression onlyCounted(u"^(\\S+ )?(\\d+)$"_s);
    const auto match = onlyCounted.match(name);
    return match.hasMatch() && match.captured(2).toInt() == number;
}

/// What is told of the workspaces with one number, one a display that has its own.
struct NumberedDesktops {
    QStringList names; ///< each once
    bool isCurrent = false;
};

std::map<int, NumberedDesktops> byNumber(const std::vector<DesktopSpace> &desktops) {
    std::map<int, NumberedDesktops> all;
    for (const DesktopSpace &desktop : desktops) {
        NumberedDesktops &entry = all[desktop.index];
        entry.isCurrent = entry.isCurrent || desktop.isCurrent;
        const QString name = desktop.name.simplified();
        if (!name.isEmpty() && !isNumberAlone(name, desktop.index) && !entry.names.contains(name)) {
            entry.names.append(name);
        }
    }
    return all;
}

QString detailOf(const NumberedDesktops &entry) {
    QStringList parts;
    if (!entry.names.isEmpty()) {
        parts.append(entry.names.join(u", "_s));
    }
    if (entry.isCurrent) {
        parts.append(u"current"_s);
    }
    return parts.join(u" · "_s);
}

} // namespace

std::vector<DesktopRow> desktopRows(const DesktopSelection &selection,
                                    const std::vector<DesktopSpace> &desktops) {
    const auto numbered = byNumber(desktops);
    if (numbered.size() < 2) {
        return {};
    }
    const std::set<int> chosen = chosenNumbers(selection);
    std::vector<DesktopRow> rows{
        {std::nullopt, u"All desktops"_s, u"%1 desktops"_s.arg(numbered.size()), chosen.empty()}};
    for (const auto &[number, entry] : numbered) {
        rows.push_back(
            {number, u"Desktop %1"_s.arg(number), detailOf(entry), chosen.count(number) > 0});
    }
    return rows;
}

DesktopSelection toggled(const DesktopSelection &selection, int number) {
    std::set<int> chosen = chosenNumbers(selection);
    if (chosen.count(number) == 0) {
        chosen.insert(number);
    } else if (chosen.size() > 1) {
        chosen.erase(number);
    }
    return SomeDesktops{chosen};
}

void toggleDesktop(int number, PreferencesStore &preferences) {
    const DesktopSelection next = toggled(preferences.desktopSelection(), number);
    if (next != preferences.desktopSelection()) {
        preferences.setDesktopSelection(next);
    }
}

} // namespace zeph
