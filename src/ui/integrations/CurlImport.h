// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

#include <functional>
#include <optional>

namespace zeph::ui {

class CommandField;
class PillButton;
class StatusLine;

/// A box that opens for a cURL command to be pasted.
class CurlImport : public QWidget {
public:
    explicit CurlImport(QWidget *parent = nullptr);

    /// Takes the command in and returns what to tell when it can't; then the box stays open.
    std::function<std::optional<QString>(const QString &command)> import;

private:
    void setOpen(bool isOpen);
    void run();

    PillButton *m_toggle;
    QWidget *m_box;
    CommandField *m_command;
    StatusLine *m_message;
};

} // namespace zeph::ui
