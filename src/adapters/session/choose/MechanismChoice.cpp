// SPDX-License-Identifier: MIT
#include "adapters/session/choose/MechanismChoice.h"

#include <QStringList>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

using Mechanism = DrawingMechanism;

QString nameOf(DesktopProgram program) {
    switch (program) {
    case DesktopProgram::xfdesktop:
        return u"Xfce"_s;
    case DesktopProgram::caja:
        return u"MATE"_s;
    case DesktopProgram::pcmanfm:
        return u"PCManFM"_s;
    case DesktopProgram::pcmanfmQt:
        return u"PCManFM-Qt"_s;
    case DesktopProgram::nemoDesktop:
        return u"Cinnamon"_s;
    case DesktopProgram::ding:
        return u"GNOME"_s;
    case DesktopProgram::plasmashell:
        return u"Plasma"_s;
    }
    return {};
}

bool isDesktop(const SessionOffer &offer, QLatin1StringView name) {
    return offer.currentDesktop.split(u':').contains(name, Qt::CaseInsensitive);
}

/// A transparent wallpaper needs nothing of the desktop program, above whose desktop it lies.
DrawingWay wayOfTransparent(Mechanism mechanism, DesktopProgram program) {
    return {mechanism,
            u"Your wallpaper is transparent, so Tavi's window lies above the desktop of %1, and "
            u"the icons shine through it and take your clicks."_s.arg(nameOf(program))};
}

DrawingWay plasmaWay(const SessionOffer &offer, Mechanism without) {
    if (offer.plasma.isGranted) {
        return {Mechanism::plasmaPictures,
                u"Tavi hands its pictures to its own wallpaper in Plasma, so your icons stay "
                u"visible and clickable."_s};
    }
    if (offer.isTransparent) {
        return wayOfTransparent(without, DesktopProgram::plasmashell);
    }
    if (!offer.plasma.problem.isEmpty()) {
        return {without,
                u"%1, so Tavi lies above the desktop of Plasma and covers its icons."_s.arg(
                    offer.plasma.problem)};
    }
    return {without, u"Plasma lets nothing shine through its desktop, so Tavi lies above it and "
                     u"covers the icons until you allow Tavi's own wallpaper for Plasma, in "
                     u"Settings under General."_s};
}

DrawingWay waylandWay(const SessionOffer &offer) {
    if (offer.displaySystem == DisplaySystem::wayland && offer.hasLayerShell) {
        return isDesktop(offer, "KDE"_L1)
                   ? plasmaWay(offer, Mechanism::layerSurface)
                   : DrawingWay{Mechanism::layerSurface,
                                u"Your compositor offers layers, so Tavi draws on the one between "
                                u"the background and your windows."_s};
    }
    if (isDesktop(offer, "GNOME"_L1)) {
        return {Mechanism::desktopWindow,
                u"GNOME offers wallpapers no layer of their own on Wayland, so Tavi draws a "
                u"desktop window through Xwayland, which lies under your icons."_s};
    }
    return {Mechanism::desktopWindow,
            u"Your compositor offers wallpapers no layer of their own, so "
            u"Tavi draws a desktop window through Xwayland."_s};
}

/// Whether all of the program's desktop can be reached through the one pixmap that it shares.
/// Those with a window a display share the picture of one of them only, and may leave a display
/// bare that is plugged in while they run.
bool canPaintInto(const DesktopProgramOffer &desktop) {
    switch (desktop.program) {
    case DesktopProgram::xfdesktop:
    case DesktopProgram::caja:
        return desktop.sharesPicture && desktop.hasRoomForCopy;
    case DesktopProgram::pcmanfm:
        return desktop.sharesPicture && desktop.hasRoomForCopy && !desktop.sharesOneDisplayOnly;
    case DesktopProgram::pcmanfmQt:
    case DesktopProgram::nemoDesktop:
    case DesktopProgram::ding:
    case DesktopProgram::plasmashell:
        break;
    }
    return false;
}

DrawingWay wayWithManagerOnly(const SessionOffer &offer) {
    if (!offer.windowManager) {
        return {Mechanism::desktopWindow, u"No window manager runs that Tavi could ask, so it lays "
                                          u"its window beneath all others."_s};
    }
    if (offer.windowManager->knowsDesktopType) {
        return {Mechanism::desktopWindow, u"Your window manager knows desktop windows, so Tavi "
                                          u"draws one that lies behind all others."_s};
    }
    if (offer.compositing == Compositing::windowManager) {
        // What such a manager does not manage it paints over everything, wherever it lies.
        return {Mechanism::desktopWindow,
                u"Your window manager knows no desktop windows and blends all windows itself, so "
                u"Tavi can only ask it to keep its window below the others."_s};
    }
    return {Mechanism::loweredOverride, u"Your window manager knows no desktop windows, so Tavi "
                                        u"keeps its window beneath all others by itself."_s};
}

DrawingWay wayAbove(const SessionOffer &offer, const DesktopProgramOffer &desktop,
                    const QString &why) {
    if (offer.isTransparent) {
        return wayOfTransparent(Mechanism::desktopWindow, desktop.program);
    }
    return {Mechanism::desktopWindow,
            u"%1, so Tavi's window lies above the desktop of %2 and covers its icons."_s.arg(
                why, nameOf(desktop.program))};
}

DrawingWay wayWithDesktop(const SessionOffer &offer, const DesktopProgramOffer &desktop) {
    const QString name = nameOf(desktop.program);
    switch (desktop.program) {
    case DesktopProgram::pcmanfm:
        if (desktop.sharesOneDisplayOnly) {
            return wayAbove(offer, desktop,
                            u"%1 shares the picture of one display only"_s.arg(name));
        }
        [[fallthrough]];
    case DesktopProgram::xfdesktop:
    case DesktopProgram::caja:
        return wayAbove(offer, desktop,
                        desktop.sharesPicture
                            ? u"The X server has no room for a copy of the desktop's picture"_s
                            : u"%1 shares no picture that could be painted into"_s.arg(name));
    case DesktopProgram::pcmanfmQt:
        return wayAbove(offer, desktop, u"%1 keeps its picture to itself"_s.arg(name));
    case DesktopProgram::nemoDesktop:
    case DesktopProgram::ding:
        if (offer.compositing == Compositing::none) {
            return wayAbove(offer, desktop,
                            u"Nothing shines through without a program that blends windows"_s);
        }
        return {Mechanism::underDesktopProgram,
                u"The icons of %1 lie on a transparent window, so Tavi draws beneath it and they "
                u"stay visible and clickable."_s.arg(name)};
    case DesktopProgram::plasmashell:
        return plasmaWay(offer, Mechanism::desktopWindow);
    }
    return wayWithManagerOnly(offer);
}

DrawingWay wayFor(const SessionOffer &offer) {
    const auto &desktop = offer.desktopProgram;
    if (desktop && canPaintInto(*desktop)) {
        if (offer.isTransparent) {
            return wayOfTransparent(Mechanism::rootPixmap, desktop->program);
        }
        return {
            Mechanism::rootPixmap,
            u"%1 shares its desktop picture, so Tavi paints into it and your icons stay visible "
            u"and clickable."_s.arg(nameOf(desktop->program))};
    }
    if (desktop && desktop->program == DesktopProgram::plasmashell && offer.plasma.isGranted) {
        return plasmaWay(offer, Mechanism::desktopWindow);
    }
    if (offer.displaySystem != DisplaySystem::x11) {
        return waylandWay(offer);
    }
    // A manager that knows no desktop windows doesn't keep those of others in place either.
    const bool keepsDesktops = !offer.windowManager || offer.windowManager->knowsDesktopType;
    return desktop && keepsDesktops ? wayWithDesktop(offer, *desktop) : wayWithManagerOnly(offer);
}

} // namespace

DrawingWay chooseDrawingWay(const SessionOffer &offer) {
    DrawingWay way = wayFor(offer);
    way.isTransparent = offer.isTransparent;
    return way;
}

} // namespace zeph
