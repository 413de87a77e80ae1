// SPDX-License-Identifier: MIT
#pragma once

#include <QPixmap>
#include <QPointer>
#include <QVariantAnimation>
#include <QWidget>

namespace zeph::ui {

/// Lets one page become another: a picture of the old one, which it is itself, goes while the new
/// one comes.
class PageFade : public QWidget {
public:
    explicit PageFade(QWidget *parent);

    /// The page as it is, on nothing. To be called before the change.
    static QPixmap pictureOf(QWidget &page);

    /// Starts at once, over `area` of the parent. Without motion, or while nobody sees it, `after`
    /// is simply there.
    void start(const QPixmap &before, const QRect &area, QWidget &after);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    void bring(double arrived);
    void end();

    QPixmap m_before;
    QPointer<QWidget> m_after;
    QVariantAnimation m_animation;
};

} // namespace zeph::ui
