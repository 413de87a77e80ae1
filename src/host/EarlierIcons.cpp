// SPDX-License-Identifier: MIT
#include "host/EarlierIcons.h"

#include "ports/UserDefaults.h"

#include <QJsonDocument>
#include <QJsonObject>

namespace zeph {

namespace {

/// Stands for the desktop that an earlier version did not name.
const QString unnamed;

} // namespace

std::optional<QString> EarlierIcons::of(const QString &desktop) const {
    const auto kept = all();
    const auto own = kept.find(desktop);
    const auto found = own == kept.end() ? kept.find(unnamed) : own;
    return found == kept.end() ? std::nullopt : std::optional(*found);
}

bool EarlierIcons::isEmpty() const {
    return all().isEmpty();
}

bool EarlierIcons::keep(const QString &desktop, const QString &value) {
    const auto before = all();
    auto kept = before;
    kept.remove(unnamed);
    kept[desktop] = value;
    write(kept);
    if (!m_defaults.isSaved()) {
        write(before);
        return false;
    }
    return true;
}

void EarlierIcons::forget(const QString &desktop) {
    auto kept = all();
    kept.remove(unnamed);
    kept.remove(desktop);
    write(kept);
}

QMap<QString, QString> EarlierIcons::all() const {
    const auto text = m_defaults.get<QString>(earlierIconsKey);
    if (!text) {
        return {};
    }
    const QJsonDocument document = QJsonDocument::fromJson(text->toUtf8());
    if (!document.isObject()) {
        return {{unnamed, *text}};
    }
    QMap<QString, QString> kept;
    const QJsonObject desktops = document.object();
    for (auto desktop = desktops.begin(); desktop != desktops.end(); ++desktop) {
        kept[desktop.key()] = desktop->toString();
    }
    return kept;
}

void EarlierIcons::write(const QMap<QString, QString> &kept) {
    if (kept.isEmpty()) {
        m_defaults.remove(earlierIconsKey);
    } else if (kept.contains(unnamed)) {
        m_defaults.set(earlierIconsKey, kept[unnamed]);
    } else {
        QJsonObject desktops;
        for (auto desktop = kept.begin(); desktop != kept.end(); ++desktop) {
            desktops[desktop.key()] = *desktop;
        }
        const QJsonDocument document(desktops);
        m_defaults.set(earlierIconsKey, QString::fromUtf8(document.toJson(QJsonDocument::Compact)));
    }
}

} // namespace zeph
