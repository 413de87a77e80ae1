// SPDX-License-Identifier: MIT
#include "ui/tray/TrayMenu.h"

#include "ports/StatusBar.h"

#include <QBitmap>
#include <QGuiApplication>
#include <QPainter>
#include <QPainterPath>
#include <QPointer>
#include <QScreen>

#include <algorithm>

namespace zeph::ui {

using namespace Qt::StringLiterals;

namespace {

/// A place of the window system as the toolkit counts: a screen's origin stays in device pixels,
/// its size is in logical ones.
QPoint logical(QPoint device) {
    for (const QScreen *screen : QGuiApplication::screens()) {
        const QRect frame = screen->geometry();
        const double ratio = screen->devicePixelRatio();
        const QRect covered(frame.topLeft(), (QSizeF(frame.size()) * ratio).toSize());
        if (covered.contains(device)) {
            return frame.topLeft() + ((QPointF(device - frame.topLeft())) / ratio).toPoint();
        }
    }
    return device;
}

} // namespace

TrayMenu::TrayMenu(const std::vector<MenuItem> &items, Appearance appearance)
    : m_look(*this, appearance) {
    setStyle(&m_style);
    setAttribute(Qt::WA_TranslucentBackground);
    int keyWidth = 0;
    for (const MenuItem &item : items) {
        if (item.text.isEmpty()) {
            addSeparator();
            continue;
        }
        QString text = item.text;
        QAction *const line = addAction(text.replace(u'&', u"&&"_s));
        line->setEnabled(item.action != nullptr);
        if (!item.key.isEmpty()) {
            const QKeySequence key(u"Ctrl+"_s + item.key);
            const QString shown = key.toString(QKeySequence::NativeText);
            keyWidth = std::max(keyWidth, fontMetrics().horizontalAdvance(shown));
            line->setShortcut(key);
            line->setShortcutVisibleInContextMenu(true);
        }
        QObject::connect(line, &QAction::triggered, line, [action = item.action] { action(); });
    }
    m_style.setKeyWidth(keyWidth);
}

void TrayMenu::popUp(const std::vector<MenuItem> &items, Appearance appearance,
                     QPoint devicePosition) {
    static QPointer<TrayMenu> open;
    if (open) {
        open->close();
    }
    open = new TrayMenu(items, appearance);
    open->setAttribute(Qt::WA_DeleteOnClose);
    open->popup(logical(devicePosition));
}

/// Without a compositor the corners would be black.
void TrayMenu::resizeEvent(QResizeEvent *event) {
    QMenu::resizeEvent(event);
    QBitmap shape(size());
    shape.fill(Qt::color0);
    QPainter painter(&shape);
    painter.setPen(Qt::color1);
    painter.setBrush(Qt::color1);
    painter.drawPath(trayMenuOutline(QRectF(rect()).adjusted(0, 0, -1, -1)));
    painter.end();
    setMask(shape);
}

} // namespace zeph::ui
