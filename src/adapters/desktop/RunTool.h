// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

#include <chrono>
#include <optional>

namespace zeph {

/// What a program printed until it ended.
struct ToolAnswer {
    int exitCode = 0;
    QString output; ///< without blanks around it
    QString errors; ///< in English
};

/// Runs a tool of the desktop to its end; absent when it can't be started, crashes or takes longer
/// than `patience`. Not on the main thread, unless the program is about to end.
std::optional<ToolAnswer> runTool(const QString &program, const QStringList &arguments,
                                  std::chrono::milliseconds patience = std::chrono::seconds(10));

/// Starts a program that goes on running by itself, whatever becomes of this one; nobody listens to
/// what it prints. False when it can't be started.
bool startTool(const QString &program, const QStringList &arguments);

/// Whether a program of that name can be found.
bool isProgramThere(const QString &name);

} // namespace zeph
