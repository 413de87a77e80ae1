// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Screens.h"

#include <QMargins>
#include <QObject>

class QScreen;

namespace zeph {

/// The displays as the toolkit sees them. The application object has to exist.
class QtScreens : public Screens {
public:
    /// Answers the device pixels of the display with this name; null or an absent answer where
    /// the window system is not asked. The toolkit alone knows them rounded to points.
    using NativeGeometry = std::function<std::optional<QRect>(const QString &name)>;

    /// Answers what panels take from the sides of the display with these device pixels; null where
    /// the window system is not asked. The toolkit alone knows it of a lone display.
    using ReservedMargins = std::function<QMargins(const QRect &deviceFrame)>;

    explicit QtScreens(NativeGeometry nativeGeometry = nullptr,
                       ReservedMargins reservedMargins = nullptr);

    std::vector<Screen> all() const override;
    std::optional<Screen> main() const override;
    void setChangeHandler(std::function<void()> handler) override;

    /// To be called when other margins are reserved; tells of it if a visible frame has changed.
    void noteReservedMargins();

private:
    std::vector<Screen> read() const;
    void watch(QScreen &screen);
    void noteChange();
    Screen describe(const QScreen &screen, const QString &identity) const;
    QRectF visibleFrameOf(const Screen &described, const QScreen &screen) const;

    NativeGeometry m_nativeGeometry;
    ReservedMargins m_reservedMargins;
    mutable std::optional<std::vector<Screen>> m_known; // until something changes
    std::function<void()> m_handler;
    bool m_changePending = false;
    QObject m_context; // last: its end cuts the signals before the rest goes
};

} // namespace zeph
