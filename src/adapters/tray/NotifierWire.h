// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QDBusArgument>
#include <QImage>
#include <QString>

/// Facts of a tray's item as org.kde.StatusNotifierItem tells them.
namespace zeph::notifierwire {

/// A picture as (iiay): ARGB32, the alpha byte first.
struct Pixmap {
    int width = 0;
    int height = 0;
    QByteArray bytes = {};
};

/// As (sa(iiay)ss).
struct ToolTip {
    QString iconName = {};
    QList<Pixmap> pixmaps = {};
    QString title = {};
    QString text = {};
};

/// Makes the types known to the bus library; to be called before any of them is sent.
void registerTypes();

Pixmap pixmapOf(const QImage &picture);

QDBusArgument &operator<<(QDBusArgument &argument, const Pixmap &pixmap);
const QDBusArgument &operator>>(const QDBusArgument &argument, Pixmap &pixmap);
QDBusArgument &operator<<(QDBusArgument &argument, const ToolTip &toolTip);
const QDBusArgument &operator>>(const QDBusArgument &argument, ToolTip &toolTip);

} // namespace zeph::notifierwire
