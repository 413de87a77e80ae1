// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/desktop/RunTool.h"
#include "ports/UserDefaults.h"

#include <QStringList>

#include <functional>
#include <optional>

namespace zeph {

/// What became of a change of Nemo's settings.
enum class NemoOutcome {
    done,
    nothingToDo, ///< it is so already, or is not to be
    refused,     ///< the setting can't be written, or holds what nobody understands
    unavailable, ///< there is no such setting, or none of the tool that writes it
};

/// The two settings of Nemo's desktop that it needs changed to get along with ours. What was there
/// before is kept among our own settings from before the first write on, so that it comes back
/// after a killed run too. Any thread, one call at a time; each waits for the tool.
class NemoSettings {
public:
    /// What the tool says to these arguments; absent where it does not run.
    using Tool = std::function<std::optional<ToolAnswer>(const QStringList &arguments)>;

    /// `defaults` outlives it.
    NemoSettings(Tool tool, UserDefaults &defaults);

    /// Adds our windows to those beside which Nemo shows its desktop; otherwise it gives up as soon
    /// as it starts after us.
    NemoOutcome getAlong() const;

    /// Writes the arrangement of the icons in other words, so that Nemo makes its windows anew.
    /// What hides the icons is left alone.
    NemoOutcome changeLayout() const;

    /// Writes it as it was, unless somebody has written another one since.
    NemoOutcome giveLayoutBack() const;

    /// Undoes whatever of both is not undone yet; `nothingToDo` when nothing is.
    NemoOutcome giveBack() const;

    /// Whether anything is kept for `giveBack`.
    bool keepsAnything() const;

private:
    bool keep(const QString &key, const DefaultsValue &value) const;
    std::optional<QString> read(const QString &key) const;
    NemoOutcome write(const QString &key, const QString &value) const;
    NemoOutcome leaveHandlers() const;

    Tool m_tool;
    UserDefaults &m_defaults;
};

} // namespace zeph
