// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

class QAbstractButton;

namespace zeph::ui {

class TextLabel;

/// A symbol, a title with a line of detail, and the control that they are about. A click on the
/// texts works a switch. The title becomes the control's accessible name, the detail its
/// description; of a button that has a text of its own, both become the description.
class SettingRow : public QWidget {
public:
    struct Words {
        QString symbol; ///< empty for none; the text then starts at the card's edge
        QString title;
        QString detail = {}; ///< empty for none
    };

    /// `control` may be null.
    SettingRow(const Words &words, QWidget *control, QWidget *parent = nullptr);

    void setTitle(const QString &title);
    void setDetail(const QString &detail);
    QString title() const;
    QWidget *control() const { return m_control; }

    /// Adds `widget` below the texts, such as a hint or a status line.
    void addBelow(QWidget *widget);

    /// Where the texts start, in logical pixels from the leading edge.
    int textStart() const;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;

private:
    QWidget *labels(const QString &symbol, double inner);
    void nameControl();
    void showBelow();
    QAbstractButton *switchHere() const;
    bool isOnTexts(const QPoint &point) const;

    TextLabel *m_title;
    TextLabel *m_detail;
    QWidget *m_control;
    QWidget *m_labels = nullptr; ///< the symbol and the texts
    QWidget *m_below;            ///< hidden while nothing in it shows
    bool m_hasSymbol;
    bool m_isPressed = false;
};

} // namespace zeph::ui
