// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

#include <functional>

class QHBoxLayout;
class QVBoxLayout;

namespace zeph::ui {

class StatusLine;
class TextLabel;

/// The title and the line at the head of a pane, 26 above what follows; in an editor the way back
/// above, the symbol of the service beside, and a status line below.
class PaneHeader : public QWidget {
public:
    PaneHeader(const QString &title, const QString &subtitle, QWidget *parent = nullptr);

    /// Shows the way back, which calls `action`.
    void setBack(const QString &text, std::function<void()> action);
    void setSymbol(const QString &identifier);
    void setTitle(const QString &title);
    StatusLine &status() { return *m_status; }

private:
    TextLabel *m_title;
    StatusLine *m_status;
    QVBoxLayout *m_column;
    QHBoxLayout *m_titleLine;
};

} // namespace zeph::ui
