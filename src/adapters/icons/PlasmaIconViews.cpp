// SPDX-License-Identifier: MIT
#include "adapters/icons/PlasmaIconViews.h"

#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QUrl>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

// Its sizes of icons, as version 5.27 has them: with the usual font and so many dots to the inch.
constexpr std::array kIconSizes{22, 32, 48, 64, 96, 128, 256};
constexpr int kUsualIconSize = 3;
constexpr int kSmallIcon = 16;

// What its lengths are multiples of, the height of a capital letter with room: with the usual font,
// and within what is no damage.
constexpr double kUsualUnit = 18;
constexpr double kLargestUnit = 400;

// What its settings offer.
constexpr int kUsualLabelWidth = 1;
constexpr int kMostLabelWidth = 2;
constexpr int kUsualTextLines = 2;
constexpr int kMostTextLines = 10;

// The sort mode in which icons lie where the user put them.
constexpr int kByHand = -1;

constexpr int kFarthestCell = 1000;
constexpr int kFarthestPixel = 100'000;

/// A folder's address and a name in it.
struct Entry {
    QString folder;
    QString name;
};

Entry entryIn(const QString &address) {
    const qsizetype slash = address.lastIndexOf(u'/');
    return {address.left(slash + 1), QUrl(address).fileName(QUrl::FullyDecoded)};
}

/// The address as it is before the name of an entry.
QString asFolder(const QString &address) {
    return address.endsWith(u'/') ? address : address + u'/';
}

/// The parts of a list in Plasma's settings: between commas, of which those within a part have a
/// backslash before them, as backslashes have.
QStringList partsOf(const QString &list) {
    QStringList parts{QString()};
    bool isEscaped = false;
    for (const QChar one : list) {
        if (!isEscaped && one == u'\\') {
            isEscaped = true;
        } else if (!isEscaped && one == u',') {
            parts.append(QString());
        } else {
            parts.last().append(one);
            isEscaped = false;
        }
    }
    return parts;
}

std::optional<int> cellNumber(const QJsonValue &text) {
    bool isNumber = false;
    const int number = text.toString().toInt(&isNumber);
    return isNumber && number >= 0 && number < kFarthestCell ? std::optional(number) : std::nullopt;
}

int numberIn(const QJsonObject &object, const QString &key, int usual, int least, int most) {
    const int number = object[key].toInt(usual);
    return number >= least && number <= most ? number : usual;
}

/// The cells as `places` says, which is a list for each resolution: how many rows and columns there
/// are, then of each entry the address, the row and the column.
void takePlaces(const QString &positions, PlasmaIconView &view) {
    // One part of a list that holds nothing else.
    const auto all = QJsonDocument::fromJson(partsOf(positions).constFirst().toUtf8()).object();
    const QSize size = view.icons.display.size();
    const QJsonArray list = all[u"%1x%2"_s.arg(size.width()).arg(size.height())].toArray();
    view.icons.perStripe = cellNumber(list.at(1)).value_or(0);
    for (qsizetype i = 2; i + 2 < list.size(); i += 3) {
        const auto stripe = cellNumber(list.at(i + 1));
        const auto place = cellNumber(list.at(i + 2));
        const QString name = entryIn(list.at(i).toString()).name;
        if (stripe && place && !name.isEmpty()) {
            view.places[name] = {*stripe, *place};
        }
    }
}

QSizeF leastCell(const QJsonObject &desktop, double unit) {
    // As it rounds the ratio of dots: to halves, downward.
    const double ratio = std::max(1.0, std::floor(2 * unit / kUsualUnit) / 2);
    const double gap = std::max(2.0, std::floor(unit / 4));
    const int size = numberIn(desktop, u"iconSize"_s, kUsualIconSize, 0,
                              static_cast<int>(kIconSizes.size()) - 1);
    const double icon = kIconSizes.at(static_cast<std::size_t>(size)) * ratio;
    const int label = numberIn(desktop, u"labelWidth"_s, kUsualLabelWidth, 0, kMostLabelWidth);
    const int lines = numberIn(desktop, u"textLines"_s, kUsualTextLines, 0, kMostTextLines);
    return {std::max(icon + 2 * unit + 2 * gap, kSmallIcon * ratio * (2 * label + 4)),
            icon + lines * unit + 4 * gap};
}

PlasmaIconView viewIn(const QJsonObject &desktop, double unit) {
    const auto length = [&](const QString &key) {
        return numberIn(desktop, key, 0, -kFarthestPixel, kFarthestPixel);
    };
    PlasmaIconView view;
    view.folder = asFolder(desktop[u"url"_s].toString());
    view.icons.display =
        QRect(length(u"x"_s), length(u"y"_s), length(u"width"_s), length(u"height"_s));
    view.icons.leastCell = leastCell(desktop, unit);
    view.icons.isByColumns = desktop[u"arrangement"_s].toInt() == 1;
    view.icons.isFromRight = desktop[u"alignment"_s].toInt() == 1;
    if (desktop[u"sortMode"_s].toInt() == kByHand) {
        takePlaces(desktop[u"positions"_s].toString(), view);
    }
    const int filter = desktop[u"filterMode"_s].toInt();
    // By kinds of files, too, it hides fewer of them.
    const bool isByName = desktop[u"filterMimeTypes"_s].toString().startsWith(u"all/all"_s);
    view.filter = filter == 1               ? PlasmaIconView::Filter::onlyMatching
                  : filter == 2 && isByName ? PlasmaIconView::Filter::notMatching
                                            : PlasmaIconView::Filter::none;
    view.patterns = desktop[u"filterPattern"_s].toString().split(u' ', Qt::SkipEmptyParts);
    return view;
}

/// Tells a view which entries are on which display: a list of address, display and activity.
void takeMapping(const QStringList &mapping, const QString &activity, int screen,
                 const std::set<int> &screensOfFolder, PlasmaIconView &view) {
    // What is on none of the displays that are there is on the first.
    view.isOfNamed = screen != *screensOfFolder.begin();
    for (qsizetype i = 0; i + 2 < mapping.size(); i += 3) {
        const Entry entry = entryIn(mapping.at(i));
        const int place = mapping.at(i + 1).toInt();
        if (mapping.at(i + 2) == activity && entry.folder == view.folder &&
            screensOfFolder.contains(place) && (place == screen) == view.isOfNamed) {
            view.named.insert(entry.name);
        }
    }
}

bool isShown(const PlasmaIconView &view, const QString &name) {
    if (view.named.contains(name) != view.isOfNamed) {
        return false;
    }
    switch (view.filter) {
    case PlasmaIconView::Filter::none:
        break;
    case PlasmaIconView::Filter::onlyMatching:
        return QDir::match(view.patterns, name);
    case PlasmaIconView::Filter::notMatching:
        return !QDir::match(view.patterns, name);
    }
    return true;
}

} // namespace

QSizeF plasmaUsualCell() {
    return leastCell({}, kUsualUnit);
}

QString plasmaIconsScript() {
    return uR"(
var mapping = ConfigFile('plasma-org.kde.plasma.desktop-appletsrc', 'ScreenMapping');
print(JSON.stringify({
    unit: gridUnit,
    activity: currentActivity(),
    mapping: String(mapping.readEntry('screenMapping')),
    desktops: desktopsForActivity(currentActivity()).map(function (one) {
        one.currentConfigGroup = ['General'];
        var area = one.screen < 0 ? {} : screenGeometry(one.screen);
        return {
            type: one.type, screen: one.screen,
            x: area.x, y: area.y, width: area.width, height: area.height,
            url: String(one.readConfig('url', 'desktop:/')),
            arrangement: Number(one.readConfig('arrangement', 0)),
            alignment: Number(one.readConfig('alignment', 0)),
            sortMode: Number(one.readConfig('sortMode', 0)),
            positions: String(one.readConfig('positions', '')),
            iconSize: Number(one.readConfig('iconSize', 3)),
            labelWidth: Number(one.readConfig('labelWidth', 1)),
            textLines: Number(one.readConfig('textLines', 2)),
            filterMode: Number(one.readConfig('filterMode', 0)),
            filterPattern: String(one.readConfig('filterPattern', '*')),
            filterMimeTypes: String(one.readConfig('filterMimeTypes', 'all/all'))
        };
    })
}));
)"_s;
}

std::optional<std::vector<PlasmaIconView>> plasmaIconViewsIn(const QByteArray &printed) {
    const QJsonObject told = QJsonDocument::fromJson(printed.trimmed()).object();
    const QJsonArray desktops = told[u"desktops"_s].toArray();
    if (desktops.isEmpty()) {
        return std::nullopt;
    }
    const double unit = std::clamp(told[u"unit"_s].toDouble(kUsualUnit), 1.0, kLargestUnit);
    std::vector<PlasmaIconView> views;
    std::vector<int> screens; // of the views
    std::map<QString, std::set<int>> screensOfFolder;
    for (const QJsonValue value : desktops) {
        const QJsonObject desktop = value.toObject();
        const int screen = desktop[u"screen"_s].toInt(-1);
        if (screen >= 0 && desktop[u"type"_s].toString() == u"org.kde.plasma.folder"_s) {
            views.push_back(viewIn(desktop, unit));
            screens.push_back(screen);
            screensOfFolder[views.back().folder].insert(screen);
        }
    }
    const QStringList mapping = partsOf(told[u"mapping"_s].toString());
    for (std::size_t i = 0; i < views.size(); ++i) {
        takeMapping(mapping, told[u"activity"_s].toString(), screens[i],
                    screensOfFolder[views[i].folder], views[i]);
    }
    return views;
}

DisplayIcons plasmaIconsOf(const PlasmaIconView &view, const std::optional<QStringList> &entries) {
    DisplayIcons icons = view.icons;
    if (!entries) {
        for (const auto &[name, cell] : view.places) {
            icons.taken.insert(cell);
        }
        return icons;
    }
    for (const QString &name : *entries) {
        const auto place = view.places.find(name);
        if (!isShown(view, name)) {
            continue;
        }
        if (place == view.places.end() || !icons.taken.insert(place->second).second) {
            ++icons.unplaced;
        }
    }
    return icons;
}

} // namespace zeph
