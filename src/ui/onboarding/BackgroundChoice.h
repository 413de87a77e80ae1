// SPDX-License-Identifier: MIT
#pragma once

#include "settings/PreferenceChoices.h"
#include "ui/controls/Interaction.h"

#include <QRadioButton>

namespace zeph::ui {

class WallpaperThumbnail;
struct SettingsContext;

/// One kind of background to choose: a picture of the wallpaper on it, and its name below.
class BackgroundChoice : public QRadioButton {
public:
    /// How far the ring around the picture reaches out of it, in designed pixels.
    static constexpr double reach = 4;

    BackgroundChoice(const SettingsContext &context, BackgroundMode mode, const QString &name,
                     QWidget *parent = nullptr);

    BackgroundMode mode() const { return m_mode; }
    const WallpaperThumbnail &thumbnail() const { return *m_thumbnail; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent *event) override;
    bool hitButton(const QPoint &point) const override { return rect().contains(point); }

private:
    Rounded shape() const;

    BackgroundMode m_mode;
    WallpaperThumbnail *m_thumbnail;
    Interaction m_interaction;
};

} // namespace zeph::ui
