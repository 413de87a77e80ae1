// SPDX-License-Identifier: MIT
#include "adapters/desktop/ToolDesktopShell.h"

#include "adapters/desktop/NoDesktopShell.h"

#include <QProcess>
#include <QStandardPaths>

#include <utility>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

// A desktop that hangs must not hold its thread for ever.
constexpr int toolTimeoutMilliseconds = 10'000;

bool isProgramThere(const QString &name) {
    return !QStandardPaths::findExecutable(name).isEmpty();
}

/// What the tool printed; absent when it failed or did not end.
std::optional<QString> run(const QString &program, const QStringList &arguments) {
    QProcess tool;
    tool.setStandardErrorFile(QProcess::nullDevice());
    tool.start(program, arguments, QProcess::ReadOnly);
    if (!tool.waitForFinished(toolTimeoutMilliseconds)) {
        tool.kill();
        tool.waitForFinished(toolTimeoutMilliseconds);
        return std::nullopt;
    }
    const bool isDone = tool.exitStatus() == QProcess::NormalExit && tool.exitCode() == 0;
    return isDone ? std::optional(QString::fromUtf8(tool.readAllStandardOutput()).trimmed())
                  : std::nullopt;
}

} // namespace

ToolDesktopShell::ToolDesktopShell(IconTool tool)
    : m_tool(std::move(tool)),
      m_isInstalled(isProgramThere(m_tool.program) && isProgramThere(m_tool.desktopProgram)) {}

bool ToolDesktopShell::areIconsShown() const {
    return !m_isInstalled || run(m_tool.program, m_tool.read) != m_tool.hiddenAnswer;
}

void ToolDesktopShell::setIconsShown(bool areShown) {
    if (m_isInstalled) {
        run(m_tool.program, areShown ? m_tool.show : m_tool.hide);
    }
}

std::unique_ptr<DesktopShell> makeDesktopShell(const QString &currentDesktop) {
    if (auto tool = iconToolFor(currentDesktop)) {
        return std::make_unique<ToolDesktopShell>(*std::move(tool));
    }
    return std::make_unique<NoDesktopShell>();
}

} // namespace zeph
