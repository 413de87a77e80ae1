// SPDX-License-Identifier: MIT
#include "adapters/desktop/PlasmaIcons.h"

#include "adapters/bus/DBusCalls.h"
#include "adapters/desktop/PlasmaScript.h"
#include "adapters/desktop/RunTool.h"

#include <QDBusMessage>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <map>
#include <utility>
#include <vector>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

// The shell's own filter mode that shows only what passes, and a name and a kind of file that
// there are none of.
constexpr int onlyMatching = 1;
const QString nothing = u"__none__"_s;

/// Does `body` with every desktop of every activity that shows a folder, which is called `one`.
QString forEachFolder(const QString &before, const QString &body, const QString &after = {}) {
    return before +
           u"desktops().forEach(function (one) {"
           "if (one.type !== 'org.kde.plasma.folder') return;"
           "one.currentConfigGroup = ['General'];"_s +
           body + u"});"_s + after;
}

/// Prints the filters.
QString readingScript() {
    return forEachFolder(
        u"var told = [];"_s,
        u"told.push({id: one.id,"
        "filterMode: Number(one.readConfig('filterMode', 0)),"
        "filterPattern: String(one.readConfig('filterPattern', '*')),"
        "filterMimeTypes: String(one.readConfig('filterMimeTypes', 'all/all'))});"_s,
        u"print(JSON.stringify(told));"_s);
}

/// Gives each desktop the filter that its number finds, else the one that stands under "other".
QString writingScript(const QJsonObject &filters, const QString &condition) {
    const QString known = QString::fromUtf8(QJsonDocument(filters).toJson(QJsonDocument::Compact));
    return forEachFolder(u"var filters = "_s + known + u';',
                         u"if (!("_s + condition +
                             u")) return;"
                             "var wanted = filters[one.id] || filters.other;"
                             "for (var key in wanted) one.writeConfig(key, wanted[key]);"
                             "one.reloadConfig();"_s);
}

QJsonObject filter(int mode, const QString &pattern, const QString &kinds) {
    return {{u"filterMode"_s, mode}, {u"filterPattern"_s, pattern}, {u"filterMimeTypes"_s, kinds}};
}

bool isOurs(const QJsonObject &desktop) {
    return desktop[u"filterMode"_s].toInt() == onlyMatching &&
           desktop[u"filterPattern"_s].toString() == nothing;
}

int idOf(const QJsonObject &desktop) {
    return desktop[u"id"_s].toInt();
}

QString textOf(const QJsonArray &desktops) {
    return QString::fromUtf8(QJsonDocument(desktops).toJson(QJsonDocument::Compact));
}

/// The desktops in the value of a setting; none in anything else.
std::vector<QJsonObject> desktopsIn(const QString &value) {
    std::vector<QJsonObject> desktops;
    const QJsonArray all = QJsonDocument::fromJson(value.toUtf8()).array();
    for (const QJsonValue desktop : all) {
        desktops.push_back(desktop.toObject());
    }
    return desktops;
}

/// The filters of an earlier answer by desktop, of which nothing but the told parts is kept.
QJsonObject filtersIn(const QString &earlier) {
    QJsonObject filters;
    for (const QJsonObject &desktop : desktopsIn(earlier)) {
        filters.insert(QString::number(idOf(desktop)),
                       filter(desktop[u"filterMode"_s].toInt(),
                              desktop[u"filterPattern"_s].toString(),
                              desktop[u"filterMimeTypes"_s].toString()));
    }
    return filters;
}

ShellOutcome outcomeOf(const QDBusMessage &answer) {
    if (answer.type() == QDBusMessage::ReplyMessage) {
        return ShellOutcome::done;
    }
    return tellsOfNoService(answer.errorName()) ? ShellOutcome::unavailable : ShellOutcome::refused;
}

} // namespace

PlasmaIcons::PlasmaIcons(QDBusConnection bus)
    : m_bus(std::move(bus)), m_isInstalled(isProgramThere(u"plasmashell"_s)) {}

std::optional<IconSetting> PlasmaIcons::iconSetting() const {
    const QDBusMessage answer = evaluate(readingScript());
    const auto printed = printedBy(answer);
    const auto told = QJsonDocument::fromJson(printed.value_or(QString()).toUtf8());
    if (!told.isArray()) {
        return std::nullopt;
    }
    const QJsonArray all = told.array();
    if (all.isEmpty()) {
        return IconSetting{false, {}, IconDrawer::none};
    }
    QJsonArray shown;
    for (const QJsonValue desktop : all) {
        if (!isOurs(desktop.toObject())) {
            shown.append(desktop);
        }
    }
    return IconSetting{!shown.isEmpty(), textOf(shown)};
}

QString PlasmaIcons::mergedValue(const QString &earlier, const QString &later) const {
    std::map<int, QJsonObject> byDesktop;
    for (const QString &value : {earlier, later}) {
        for (const QJsonObject &desktop : desktopsIn(value)) {
            byDesktop[idOf(desktop)] = desktop;
        }
    }
    QJsonArray merged;
    for (const auto &[id, desktop] : byDesktop) {
        merged.append(desktop);
    }
    return textOf(merged);
}

ShellOutcome PlasmaIcons::hideIcons() {
    const QJsonObject ours = filter(onlyMatching, nothing, nothing + u'/' + nothing);
    return outcomeOf(evaluate(writingScript({{u"other"_s, ours}}, u"true"_s)));
}

ShellOutcome PlasmaIcons::showIcons(const QString &earlier) {
    QJsonObject filters = filtersIn(earlier);
    filters.insert(u"other"_s, filter(0, u"*"_s, u"all/all"_s));
    // One that shows its icons has been set since.
    const QString isHidden = u"one.readConfig('filterPattern', '') === '"_s + nothing + u'\'';
    return outcomeOf(evaluate(writingScript(filters, isHidden)));
}

ShellOutcome PlasmaIcons::relaunch() {
    return m_isInstalled ? ShellOutcome::done : ShellOutcome::unavailable;
}

QDBusMessage PlasmaIcons::evaluate(const QString &script) const {
    if (!m_isInstalled) {
        return QDBusMessage::createError(QDBusError::ServiceUnknown, {});
    }
    return evaluateInPlasma(m_bus, script);
}

} // namespace zeph
