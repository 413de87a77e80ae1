// SPDX-License-Identifier: MIT
#pragma once

#include <QPointer>
#include <QWidget>

#include <functional>

namespace zeph::ui {

class PillButton;
class StatusLine;

/// Asks whether what was typed may go. It goes away by itself as soon as the user is elsewhere in
/// the window again, which keeps what was typed.
class DiscardLine : public QWidget {
public:
    explicit DiscardLine(QWidget *parent = nullptr);

    /// Shows the question, with the focus on what keeps the changes.
    void ask();
    bool isAsking() const { return !isHidden(); }

    /// Takes the question away, and gives the focus back to where it was.
    void dismiss();

    /// Called when the user gives the changes up.
    std::function<void()> onDiscard;

private:
    void follow(const QWidget *focused);

    StatusLine *m_question;
    PillButton *m_discard;
    PillButton *m_keep;
    QPointer<QWidget> m_before; ///< what had the focus
};

} // namespace zeph::ui
