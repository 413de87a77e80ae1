// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/session/x11/InsistenceLimit.h"
#include "adapters/session/x11/RootPixmapTarget.h"
#include "adapters/session/x11/X11EarlierPicture.h"
#include "adapters/session/x11/X11EventListener.h"
#include "adapters/session/x11/X11FrameBuffer.h"

#include <QRegion>
#include <QTimer>

#include <xcb/damage.h>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace zeph {

/// The picture of the program that draws the desktop's icons, into which we paint in its stead:
/// that program then draws its icons over our pixels. What it painted there itself is kept, and put
/// back wherever no surface of ours is shown. Outlives its surfaces.
class X11DesktopPicture : private X11EventListener {
public:
    /// A part of the picture that is ours while this lives; main thread.
    class Claim {
    public:
        ~Claim();
        Claim(const Claim &) = delete;
        Claim &operator=(const Claim &) = delete;

        const QRect &area() const { return m_area; }

    private:
        friend class X11DesktopPicture;
        Claim(X11DesktopPicture &picture, const QRect &area, std::function<void()> repaint);

        X11DesktopPicture &m_picture;
        QRect m_area;
        std::function<void()> m_repaint;
    };

    /// `askForItsOwn` has the desktop program paint its picture anew where it has a way to be
    /// asked; it is called when what a killed run kept may be out of date. `isGone` is called when
    /// the target turned out not to be there, of which its program may never tell: one that shows
    /// a plain colour from now on leaves the number on the root window.
    X11DesktopPicture(
        X11Connection &connection, std::function<void()> askForItsOwn,
        std::function<void()> isGone = [] {});
    ~X11DesktopPicture() override;

    /// False when the server lacks what tells their pixels from ours.
    static bool isPossible(const X11Connection &connection);

    /// Paints into this picture from now on; absent while there is none. The last one is left as
    /// it was without us.
    void setTarget(const std::optional<RootPixmapTarget> &target);

    /// Whether there is a picture to paint into.
    bool isThere() const { return m_earlier != nullptr; }

    /// Whether there is one that is left alone, as the server has no room for a copy of it.
    bool isRefused() const { return m_isRefused; }

    /// Device pixels for one of the picture, each way.
    int enlargement() const { return m_target ? m_target->enlargement : 1; }

    /// Takes `area`, in device pixels of the root. `repaint` is called whenever the desktop program
    /// painted over it or came back.
    std::unique_ptr<Claim> claim(const QRect &area, std::function<void()> repaint);

    /// Has `put` put pixels into the picture, all of them within `region`, and the desktop program
    /// draw what lies over them. The region is in device pixels of the root; those that are put are
    /// the picture's own.
    void paint(const QRegion &region, const std::function<void(const X11Canvas &)> &put);

private:
    void handleEvent(std::uint8_t kind, const xcb_generic_event_t &event) override;
    void release(const Claim &claim);
    void answerTheirPainting();
    void takeTarget(const RootPixmapTarget &target);
    void forgetPicture();
    void repaintAll();
    void leaveItAsItWas();
    void putBack(const QRegion &region);
    void change(const QRegion &region, const std::function<void()> &change);
    bool keepWhatTheyPainted();
    void followTheirPainting();
    void stopFollowing();

    std::function<void()> m_askForItsOwn;
    std::function<void()> m_isGone;
    int m_damageEvent = -1;
    std::optional<RootPixmapTarget> m_target;
    std::optional<RootPixmapTarget> m_lost; // is no more, though another may have its number
    bool m_isRefused = false;
    std::unique_ptr<X11EarlierPicture> m_earlier; // there while there is a target
    xcb_damage_damage_t m_damage = 0;
    xcb_xfixes_region_t m_painted = 0; // by them
    std::vector<Claim *> m_claims;
    QTimer m_unannounced; // runs after they painted until they announce it
    InsistenceLimit m_answers;
};

} // namespace zeph
