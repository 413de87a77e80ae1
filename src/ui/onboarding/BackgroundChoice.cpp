// SPDX-License-Identifier: MIT
#include "ui/onboarding/BackgroundChoice.h"

#include "ui/controls/Look.h"
#include "ui/settings/WallpaperThumbnail.h"

#include <QPainter>

namespace zeph::ui {

using namespace Qt::StringLiterals;

namespace {

constexpr QSizeF pictureSize{105, 59};
constexpr QSizeF smallScreen{1120, 630}; // on which the widgets are large enough to be seen
constexpr double pictureRadius = 9;
constexpr double belowPicture = 6;

} // namespace

BackgroundChoice::BackgroundChoice(const SettingsContext &context, BackgroundMode mode,
                                   const QString &name, QWidget *parent)
    : QRadioButton(name, parent),
      m_mode(mode),
      m_thumbnail(new WallpaperThumbnail(
          context, {scaled(pictureSize.width()), scaled(pictureSize.height())}, this)),
      m_interaction(*this, [this] { return shape(); }) {
    m_thumbnail->setBackground(mode);
    m_thumbnail->setScreenSize(smallScreen);
    m_thumbnail->setRadius(scaled(pictureRadius));
    m_thumbnail->move(scaled(reach), scaled(reach));
    m_thumbnail->setAttribute(Qt::WA_TransparentForMouseEvents);
    setFont(ui::font(TypeRole::note));
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    connect(this, &QRadioButton::toggled, this,
            [this](bool isChosen) { m_interaction.setMarked(isChosen); });
}

QSize BackgroundChoice::sizeHint() const {
    const QSize picture = m_thumbnail->size();
    return {picture.width() + 2 * scaled(reach),
            picture.height() + scaled(reach) + scaled(belowPicture) + lineHeight(TypeRole::note)};
}

Rounded BackgroundChoice::shape() const {
    return {m_thumbnail->pictureRect().translated(m_thumbnail->pos()),
            static_cast<double>(scaled(pictureRadius))};
}

void BackgroundChoice::paintEvent(QPaintEvent *) {
    QPainter painter(this);
    const Tokens &tokens = Look::of(*this).tokens();
    const QRect line(0, height() - lineHeight(TypeRole::note), width(), lineHeight(TypeRole::note));
    const double hover = isChecked() ? 1 : m_interaction.hover();
    painter.setFont(font());
    painter.setPen(blend(tokens.second, tokens.ink, hover));
    painter.drawText(line, Qt::AlignCenter, text());
}

} // namespace zeph::ui
