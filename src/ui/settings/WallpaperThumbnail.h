// SPDX-License-Identifier: MIT
#pragma once

#include "base/ChangePublisher.h"
#include "base/WorkOwner.h"
#include "drawing/painting/SceneRenderer.h"
#include "settings/PreferenceChoices.h"
#include "ui/settings/SettingsContext.h"

#include <QBrush>
#include <QImage>
#include <QWidget>

#include <optional>
#include <vector>

namespace zeph::ui {

/// A small picture of the wallpaper as it is now, in the proportions of the main screen. It follows
/// what the wallpaper shows, at most once a second and only while it can be seen.
class WallpaperThumbnail : public QWidget {
public:
    /// `size`, in logical pixels, is the room that the picture is fitted into.
    WallpaperThumbnail(const SettingsContext &context, const QSize &size,
                       QWidget *parent = nullptr);

    /// Shows the wallpaper with that background, whatever is stored; without one, as it is.
    void setBackground(std::optional<BackgroundMode> mode);

    /// Lays the wallpaper out for a screen of `points` instead of the main one.
    void setScreenSize(std::optional<QSizeF> points);

    /// The radius of the corners, in logical pixels.
    void setRadius(double radius);

    /// Where the picture lies in the widget.
    QRectF pictureRect() const;

    /// How often the wallpaper was laid out anew.
    int renderCount() const { return m_renderCount; }

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    void becomeStale();
    void renderAtOnce();
    void render(const QSize &pixels);
    void endRest();
    QSizeF screenSize() const;

    SettingsContext m_context;
    SceneRenderer m_renderer;
    std::optional<BackgroundMode> m_background;
    std::optional<QSizeF> m_screenSize;
    double m_radius;
    QImage m_picture;
    bool m_isTransparent = false;
    QBrush m_standIn; // what shows through
    bool m_isStale = true;
    bool m_isResting = false; // was rendered within the last second
    int m_renderCount = 0;
    WorkOwner m_rests;
    std::vector<Subscription> m_subscriptions;
};

} // namespace zeph::ui
