// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

class QVBoxLayout;

namespace zeph::ui {

class TextLabel;

/// A symbol, a title with a line of detail, and the control that they are about. A click on the
/// texts works a switch. The title becomes the control's accessible name, the detail its
/// description.
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

protected:
    void mouseReleaseEvent(QMouseEvent *event) override;

private:
    TextLabel *m_title;
    TextLabel *m_detail;
    QWidget *m_control;
    QVBoxLayout *m_texts;
};

} // namespace zeph::ui
