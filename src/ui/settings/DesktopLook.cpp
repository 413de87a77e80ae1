// SPDX-License-Identifier: MIT
#include "ui/settings/DesktopLook.h"

#include "ports/RunLoop.h"

#include <QApplication>

#include <utility>

namespace zeph::ui {

namespace {

constexpr int middleLightness = 128;

} // namespace

Appearance appearanceOf(const DesktopAppearance &desktop, const QPalette &palette) {
    if (desktop.wantsHighContrast()) {
        return Appearance::highContrast;
    }
    switch (desktop.scheme()) {
    case DesktopAppearance::Scheme::dark:
        return Appearance::dark;
    case DesktopAppearance::Scheme::light:
        return Appearance::light;
    case DesktopAppearance::Scheme::unknown:
        break;
    }
    return palette.color(QPalette::Window).lightness() < middleLightness ? Appearance::dark
                                                                         : Appearance::light;
}

DesktopLook::DesktopLook(QWidget &window, DesktopAppearance &desktop, RunLoop &runLoop)
    : m_desktop(desktop),
      m_runLoop(runLoop),
      m_look(window, appearanceOf(desktop, QApplication::palette())),
      m_subscription(desktop.subscribe([this] { refreshSoon(); })) {
    m_look.setMotion(desktop.wantsMotion());
}

DesktopLook::~DesktopLook() = default;

void DesktopLook::refreshSoon() {
    if (!std::exchange(m_refreshes, true)) {
        m_runLoop.post(m_owner.whileAlive([this] { refresh(); }));
    }
}

void DesktopLook::refresh() {
    m_refreshes = false;
    m_look.setMotion(m_desktop.wantsMotion());
    m_look.setAppearance(appearanceOf(m_desktop, QApplication::palette()));
}

} // namespace zeph::ui
