// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/session/common/UsableAreas.h"
#include "adapters/session/kwin/KWinScript.h"
#include "base/WorkOwner.h"

#include <functional>
#include <map>

namespace zeph {

class RunLoop;

/// What Plasma's panels leave of each output, as its shell tells when asked. It is asked again
/// whenever KWin tells of a panel, and for an output that has changed: at once, and when the shell
/// has had the time to follow that change itself.
class PlasmaInsets : public UsableAreas {
public:
    /// `script` and `runLoop` outlive this. `isShownByPlasma`: whether the wallpaper is in Plasma's
    /// own desktops, of which Plasma itself decides which one of two mirrors has.
    PlasmaInsets(
        const QDBusConnection &bus, KWinScript &script, RunLoop &runLoop,
        std::function<bool()> isShownByPlasma = [] { return false; });

    /// Absent at the first call for an output, and the first after it changed, which ask for it.
    std::optional<QRectF> usableArea(const QString &outputName, const QRectF &frame) override;
    /// KWin paints one scene, and each output the part of it at its place.
    bool mirrorsShareSurfaces() const override { return !m_isShownByPlasma(); }
    [[nodiscard]] Subscription subscribe(std::function<void()> handler) override;

private:
    struct Output {
        QRectF frame;
        std::optional<QRectF> area = std::nullopt;
        bool isAsked = false;
        bool isStale = false; // to be asked again once the answer under way has come
    };

    void askForAll();
    void askSoon();
    void ask(const QString &outputName);
    void take(const QString &outputName, const std::optional<QRectF> &area);
    void shellChanged();

    RunLoop &m_runLoop;
    std::function<bool()> m_isShownByPlasma;
    std::map<QString, Output> m_outputs;
    ChangePublisher m_changes;
    int m_lastChange = 0; // of an output
    WorkOwner m_later;
    Subscription m_panels;
    BusService m_shell; // last, since it calls back
};

} // namespace zeph
