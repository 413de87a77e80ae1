// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Screens.h"

#include <QObject>

class QScreen;

namespace zeph {

/// The displays as the toolkit sees them. The application object has to exist.
class QtScreens : public Screens {
public:
    /// Answers the device pixels of the display with this name; null or an absent answer where
    /// the window system is not asked. The toolkit alone knows them rounded to points.
    using NativeGeometry = std::function<std::optional<QRect>(const QString &name)>;

    explicit QtScreens(NativeGeometry nativeGeometry = nullptr);

    std::vector<Screen> all() const override;
    std::optional<Screen> main() const override;
    void setChangeHandler(std::function<void()> handler) override;

private:
    std::vector<Screen> read() const;
    void watch(QScreen &screen);
    void noteChange();
    Screen describe(const QScreen &screen, const QString &identity) const;

    NativeGeometry m_nativeGeometry;
    mutable std::optional<std::vector<Screen>> m_known; // until something changes
    std::function<void()> m_handler;
    bool m_changePending = false;
    QObject m_context; // last: its end cuts the signals before the rest goes
};

} // namespace zeph
