// SPDX-License-Identifier: MIT
#include "adapters/apps/FolderMonitor.h"

#include "adapters/gio/GioLibrary.h"
#include "base/Log.h"

#include <QFile>
#include <QFileInfo>

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
        const GioLibrary &gio;
        std::shared_ptr<News> news;
        QByteArray child; ///< alone of interest; empty for all that happens
    };

    Watch(const GioLibrary &library, const QString &path, const std::shared_ptr<News> &news)
        : gio(library) {
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
            gio.vfsGetFileForPath(gio.vfsGetLocal(), QFile::encodeName(watched).constData());
        monitor = gio.fileMonitorDirectory(file, G_FILE_MONITOR_WATCH_MOVES, nullptr, nullptr);
        gio.objectUnref(file);
        if (monitor != nullptr) {
            gio.signalConnectData(monitor, "changed", G_CALLBACK(&Watch::changed),
                                  new Target{gio, news, QFile::encodeName(child)}, &Watch::forget,
                                  GConnectFlags{});
        }
        if (!isFile && !child.isEmpty() && QFileInfo::exists(child)) {
            news->isChanged = true; // it came before anybody listened
        }
    }

    ~Watch() {
        if (monitor != nullptr) {
            gio.fileMonitorCancel(monitor);
            gio.objectUnref(monitor);
        }
    }
    Watch(const Watch &) = delete;
    Watch &operator=(const Watch &) = delete;

    static void changed(GFileMonitor * /*monitor*/, GFile *file, GFile *other,
                        GFileMonitorEvent event, gpointer data) {
        const Target target = *static_cast<Target *>(data);
        const auto is = [&target](GFile *one) {
            return one != nullptr && target.child == target.gio.filePeekPath(one);
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

    const GioLibrary &gio;
    GFileMonitor *monitor = nullptr;
};

FolderMonitor::FolderMonitor(const QStringList &paths)
    : FolderMonitor(paths, GioLibrary::loaded()) {}

FolderMonitor::FolderMonitor(const QStringList &paths, const GioLibrary *gio)
    : m_news(std::make_shared<News>()) {
    if (gio == nullptr) {
        qCWarning(logSystem) << "GIO is not there, and what changes in a folder goes unnoticed";
        return;
    }
    for (const QString &path : paths) {
        m_watches.push_back(std::make_unique<Watch>(*gio, path, m_news));
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
