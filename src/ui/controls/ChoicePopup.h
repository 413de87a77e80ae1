// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QVariantAnimation>

class QComboBox;
class QWidget;

namespace zeph::ui {

/// Dresses the list that a combo box opens: a menu of ours, laid so that the chosen row covers the
/// box. Keyboard, choosing and accessibility stay those of the toolkit.
class ChoicePopup : public QObject {
public:
    explicit ChoicePopup(QComboBox &box);

    /// Moves the shown list to where it belongs, within the screen.
    void place();
    void fadeIn();

    bool eventFilter(QObject *object, QEvent *event) override;

private:
    void paintMenu() const;

    QComboBox *m_box;
    QWidget *m_window; ///< the list's
    QVariantAnimation m_fade;
};

} // namespace zeph::ui
