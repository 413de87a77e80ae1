// SPDX-License-Identifier: MIT
#include "adapters/apps/FolderMonitor.h"

#include <QFile>
#include <QFileInfo>

#include <gio/gio.h>

#include <utility>

namespace zeph {

/// Main thread only.
struct FolderMonitor::News {
    bool isChanged = false;
    std::function<void()> handler;

    void tell() {
        isChanged = true;
        if (const auto told = std::exchange(handler, nullptr)) {
            told();
        }
    }
};

/// One folder.
struct FolderMonitor::Watch {
    /// What a monitor's signal needs.
    struct Target {
        std::shared_ptr<News> news;
        QByteArray child; ///< alone of interest; empty for all that happens
    };

    Watch(const QString &path, const std::shared_ptr<News> &news) {
        // In place of a missing folder the nearest one above it is watched for its coming: GIO
        // itself would look for it every four seconds.
        QString watched = path;
        QString child;
        const bool isFile = QFileInfo(path).isFile();
        if (isFile) {
            child = std::exchange(watched, QFileInfo(watched).path());
        }
        while (!QFileInfo::exists(watched) && watched.size() > 1) {
            child = std::exchange(watched, QFileInfo(watched).path());
        }
        // Not by the user's virtual file system, which would look for its server on the bus.
        GFile *const file =
            g_vfs_get_file_for_path(g_vfs_get_local(), QFile::encodeName(watched).constData());
        monitor = g_file_monitor_directory(file, G_FILE_MONITOR_WATCH_MOVES, nullptr, nullptr);
        g_object_unref(file);
        if (monitor != nullptr) {
            g_signal_connect_data(monitor, "changed", G_CALLBACK(&Watch::changed),
                                  new Target{news, QFile::encodeName(child)}, &Watch::forget,
                                  GConnectFlags{});
        }
        if (!isFile && !child.isEmpty() && QFileInfo::exists(child)) {
            news->isChanged = true; // it came before anybody listened
        }
    }

    ~Watch() {
        if (monitor != nullptr) {
            g_file_monitor_cancel(monitor);
            g_object_unref(monitor);
        }
    }
    Watch(const Watch &) = delete;
    Watch &operator=(const Watch &) = delete;

    static void changed(GFileMonitor * /*monitor*/, GFile *file, GFile *other,
                        GFileMonitorEvent event, gpointer data) {
        const Target target = *static_cast<Target *>(data);
        const auto is = [&target](GFile *one) {
            return one != nullptr && target.child == g_file_peek_path(one);
        };
        const bool isMeant = target.child.isEmpty() || is(file) || is(other);
        // An edit is told again at its end, and only then is the file whole.
        if (isMeant && event != G_FILE_MONITOR_EVENT_CHANGED) {
            target.news->tell();
        }
    }
    static void forget(gpointer data, GClosure * /*closure*/) {
        delete static_cast<Target *>(data);
    }

    GFileMonitor *monitor = nullptr;
};

FolderMonitor::FolderMonitor(const QStringList &paths) : m_news(std::make_shared<News>()) {
    for (const QString &path : paths) {
        m_watches.push_back(std::make_unique<Watch>(path, m_news));
    }
}

FolderMonitor::~FolderMonitor() = default;
FolderMonitor::FolderMonitor(FolderMonitor &&) noexcept = default;
FolderMonitor &FolderMonitor::operator=(FolderMonitor &&) noexcept = default;

void FolderMonitor::whenChanged(std::function<void()> handler) {
    m_news->handler = std::move(handler);
    if (m_news->isChanged) {
        m_news->tell();
    }
}

} // namespace zeph
