// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/bus/BusService.h"
#include "base/ChangePublisher.h"

#include <QTemporaryFile>

#include <functional>
#include <memory>
#include <optional>

namespace zeph {

/// A window as KWin tells of it.
struct KWinWindow {
    QString windowClass;
    QString desktopFile; ///< name of its desktop entry without the ending; may be empty
    qint64 process = 0;

    bool operator==(const KWinWindow &) const = default;
};

/// Where KWin finds what we write there under the same path: in `runtimeFolder`, as XDG_RUNTIME_DIR
/// tells, or in what a sandbox of Flatpak, with the id `flatpak`, shares of it. Empty for none.
QString kwinScriptFolder(const QString &runtimeFolder, const QString &flatpak);

/// A script of ours in KWin, which tells of windows: there is no other way to hear of those of
/// others. It is put in for each KWin that comes, and taken out at the end. What one before us
/// left is replaced. Main thread only.
class KWinScript {
public:
    using FrontHandler = std::function<void(const std::optional<KWinWindow> &)>;

    /// `folder` is one of this user's that KWin can read. Without KWin on `bus` nothing is told.
    KWinScript(QDBusConnection bus, const QString &folder);
    ~KWinScript();
    KWinScript(const KWinScript &) = delete;
    KWinScript &operator=(const KWinScript &) = delete;

    /// Calls `handler` with each window that becomes active, once for the one that is active when
    /// the script starts, and with none: between two windows, and when the desktop is in front.
    [[nodiscard]] Subscription subscribeToFront(FrontHandler handler);

    /// Calls `handler` when a panel came, went or moved.
    [[nodiscard]] Subscription subscribeToPanels(std::function<void()> handler);

private:
    class Callee;

    bool write(const QString &folder);
    void ownerChanged();
    void load();
    void start(const QString &path, const QString &otherPath);
    bool take(const QDBusMessage &call);

    QDBusConnection m_bus;
    QTemporaryFile m_file;
    std::unique_ptr<Callee> m_callee;
    std::optional<KWinWindow> m_front;
    ChangePublisher m_fronts;
    ChangePublisher m_panels;
    BusService m_service; // last, since it calls back
};

} // namespace zeph
