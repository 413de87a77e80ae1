// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

namespace zeph::ui {

class PillButton;
class StatusLine;
class TextLabel;

/// The end of an editor: what removes at the start, what saves at the end, how it stands in
/// between, and above them what went wrong.
class EditorBar : public QWidget {
public:
    EditorBar(const QString &removal, const QString &saving, QWidget *parent = nullptr);

    PillButton &removal() const { return *m_removal; }
    PillButton &saving() const { return *m_saving; }

    /// Shows how it stands, with a tick or plainly.
    void showState(bool isGood, const QString &text);
    /// The same while something is under way.
    void showBusy(const QString &text);
    /// Shows what went wrong; empty for nothing.
    void showFailure(const QString &text);

    QString state() const;
    QString failure() const;

private:
    StatusLine *m_failure;
    PillButton *m_removal;
    StatusLine *m_state;
    TextLabel *m_plain; ///< in place of `m_state` where there is no symbol
    PillButton *m_saving;
};

} // namespace zeph::ui
