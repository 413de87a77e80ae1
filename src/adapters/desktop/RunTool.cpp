// SPDX-License-Identifier: MIT
#include "adapters/desktop/RunTool.h"

#include <QProcess>
#include <QProcessEnvironment>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

namespace zeph {

std::optional<ToolAnswer> runTool(const QString &program, const QStringList &arguments,
                                  std::chrono::milliseconds patience) {
    const int milliseconds = static_cast<int>(patience.count());
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"LC_ALL"_s, u"C.UTF-8"_s);
    QProcess tool;
    tool.setProcessEnvironment(environment);
    tool.start(program, arguments, QProcess::ReadOnly);
    if (!tool.waitForFinished(milliseconds)) {
        tool.kill();
        tool.waitForFinished(milliseconds);
        return std::nullopt;
    }
    if (tool.exitStatus() != QProcess::NormalExit) {
        return std::nullopt;
    }
    return ToolAnswer{tool.exitCode(), QString::fromUtf8(tool.readAllStandardOutput()).trimmed(),
                      QString::fromUtf8(tool.readAllStandardError()).trimmed()};
}

bool startTool(const QString &program, const QStringList &arguments) {
    QProcess tool;
    tool.setProgram(program);
    tool.setArguments(arguments);
    tool.setStandardInputFile(QProcess::nullDevice());
    tool.setStandardOutputFile(QProcess::nullDevice());
    tool.setStandardErrorFile(QProcess::nullDevice());
    return tool.startDetached();
}

bool isProgramThere(const QString &name) {
    return !QStandardPaths::findExecutable(name).isEmpty();
}

} // namespace zeph
