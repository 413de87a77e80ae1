// SPDX-License-Identifier: MIT
#include "ui/settings/WallpaperThumbnail.h"

#include "model/AppState.h"
#include "ports/RunLoop.h"
#include "ports/Screens.h"
#include "services/accounts/IntegrationsStore.h"
#include "settings/PreferencesStore.h"
#include "ui/controls/Look.h"
#include "ui/settings/StandInDesktop.h"
#include "widgets/RootWallpaperView.h"

#include <QPainter>

#include <chrono>

namespace zeph::ui {

namespace {

constexpr std::chrono::milliseconds restAfterRendering{1000};
constexpr double thumbnailRadius = 14;
constexpr QSizeF commonScreen{1920, 1080}; // while no display is known

} // namespace

WallpaperThumbnail::WallpaperThumbnail(const SettingsContext &context, const QSize &size,
                                       QWidget *parent)
    : QWidget(parent),
      m_context(context),
      m_renderer(context.painter),
      m_radius(scaled(thumbnailRadius)) {
    setFixedSize(size);
    const auto stale = [this] { becomeStale(); };
    m_subscriptions.push_back(context.state.objectWillChange.subscribe(stale));
    m_subscriptions.push_back(context.preferences.objectWillChange.subscribe(stale));
    m_subscriptions.push_back(context.integrations.objectWillChange.subscribe(stale));
    m_subscriptions.push_back(context.screens.subscribe(stale));
}

void WallpaperThumbnail::setBackground(std::optional<BackgroundMode> mode) {
    m_background = mode;
    renderAtOnce();
}

void WallpaperThumbnail::setScreenSize(std::optional<QSizeF> points) {
    m_screenSize = points;
    renderAtOnce();
}

void WallpaperThumbnail::setRadius(double radius) {
    m_radius = radius;
    update();
}

/// What is told of is yet to change; the next paint event comes after it.
void WallpaperThumbnail::becomeStale() {
    m_isStale = true;
    if (!m_isResting) {
        update();
    }
}

void WallpaperThumbnail::renderAtOnce() {
    m_isResting = false;
    becomeStale();
}

QSizeF WallpaperThumbnail::screenSize() const {
    if (m_screenSize) {
        return *m_screenSize;
    }
    const auto screen = m_context.screens.main();
    return screen && !screen->frame.isEmpty() ? screen->frame.size() : commonScreen;
}

QRectF WallpaperThumbnail::pictureRect() const {
    const QSizeF fitted = screenSize().scaled(size(), Qt::KeepAspectRatio);
    QRectF result(QPointF(), fitted);
    result.moveCenter(QRectF(rect()).center());
    return result;
}

void WallpaperThumbnail::render(const QSize &pixels) {
    if (m_picture.size() != pixels) {
        m_picture = QImage(pixels, QImage::Format_ARGB32_Premultiplied);
        m_standIn = Qt::NoBrush;
    }
    const QSizeF screen = screenSize();
    Scene scene = m_background
                      ? m_context.wallpaper.withBackground(*m_background).scene(screen, true)
                      : m_context.wallpaper.scene(screen, true);
    m_isTransparent = !scene.backdrop;
    m_renderer.render(std::move(scene), m_picture, pixels.width() / screen.width());
    ++m_renderCount;
    m_isStale = false;
    m_isResting = true;
    m_context.runLoop.after(restAfterRendering, m_rests.whileAlive([this, last = m_renderCount] {
        if (last == m_renderCount) {
            endRest();
        }
    }));
}

void WallpaperThumbnail::endRest() {
    m_isResting = false;
    if (m_isStale) {
        update();
    }
}

void WallpaperThumbnail::paintEvent(QPaintEvent *) {
    const double ratio = devicePixelRatioF();
    const QRectF place = pictureRect();
    const QSize pixels = (place.size() * ratio).toSize().expandedTo({1, 1});
    if (m_picture.size() != pixels || (m_isStale && !m_isResting)) {
        render(pixels);
    }
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.translate(place.topLeft());
    const double hairline = 1 / ratio;
    const QRectF picture(QPointF(), place.size());
    painter.setPen(Qt::NoPen);
    if (m_isTransparent) {
        if (m_standIn.style() == Qt::NoBrush) {
            m_standIn = standInDesktop(picture.size(), ratio);
        }
        painter.setBrush(m_standIn);
        painter.drawRoundedRect(picture, m_radius, m_radius);
    }
    QBrush brush(m_picture);
    brush.setTransform(QTransform::fromScale(1 / ratio, 1 / ratio));
    painter.setBrush(brush);
    painter.drawRoundedRect(picture, m_radius, m_radius);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(Look::of(*this).tokens().hair, hairline));
    const QRectF edge = picture.adjusted(hairline / 2, hairline / 2, -hairline / 2, -hairline / 2);
    painter.drawRoundedRect(edge, m_radius, m_radius);
}

} // namespace zeph::ui
