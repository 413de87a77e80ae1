// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QRect>
#include <QString>

#include <optional>
#include <vector>

namespace zeph {

/// A workspace as sway tells of it.
struct SwayWorkspaceFacts {
    quint64 id = 0; ///< stays the same for as long as the workspace lives
    QString name = {};
    QString output = {};    ///< name of the one that it is on
    QRect area = {};        ///< in logical points; empty while sway has not laid it out
    bool isVisible = false; ///< it is the one that its output shows

    bool operator==(const SwayWorkspaceFacts &) const = default;
};

/// A window as sway tells of it.
struct SwayWindowFacts {
    quint64 id = 0;
    QString applicationId = {};  ///< of a Wayland window, else empty
    QString windowClass = {};    ///< of an X11 window, else empty
    QString windowInstance = {}; ///< of an X11 window, else empty
    qint64 process = 0;          ///< 0 when sway does not know it

    bool operator==(const SwayWindowFacts &) const = default;
};

/// Something that happened to a window.
struct SwayWindowChange {
    QString change = {}; ///< such as "focus" or "close"
    SwayWindowFacts window;

    bool operator==(const SwayWindowChange &) const = default;
};

/// Something that happened to a workspace.
struct SwayWorkspaceChange {
    QString change = {};  ///< such as "focus", "init" or "empty"
    bool isEmpty = false; ///< whether the workspace that it is about holds no window

    bool operator==(const SwayWorkspaceChange &) const = default;
};

// Each makes sense of one payload, and answers absent for one that is not of its form. Any bytes
// are safe.

/// All workspaces, in sway's order.
std::optional<std::vector<SwayWorkspaceFacts>> swayWorkspacesIn(const QByteArray &payload);

/// The window of the tree that has the focus. Absent when it is no window, or the payload no tree.
std::optional<SwayWindowFacts> swayFocusedWindowIn(const QByteArray &payload);

/// Whether an event of a window is one of its title, by the first bytes alone: these come all the
/// time, and each of them tells all that sway knows of the window.
bool swayTellsOfTitle(QByteArrayView payload);

std::optional<SwayWindowChange> swayWindowChangeIn(const QByteArray &payload);
std::optional<SwayWorkspaceChange> swayWorkspaceChangeIn(const QByteArray &payload);

/// Whether the sway of that version draws the later of two surfaces of one layer below the earlier
/// one: all did before 1.10.
std::optional<bool> swayLaterLieBelowIn(const QByteArray &payload);

/// Whether an answer without other content says that the request was met.
bool swaySuccessIn(const QByteArray &payload);

} // namespace zeph
