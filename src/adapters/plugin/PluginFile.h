// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <atomic>

namespace zeph {

/// A library of our own that is loaded by its first use, and then for good. It is held open from
/// the start: an upgrade takes the file of the running version away, and a later version's would
/// not fit.
class PluginFile {
public:
    /// There may be no file at `path`, now or ever.
    explicit PluginFile(QString path);
    ~PluginFile();
    PluginFile(const PluginFile &) = delete;
    PluginFile &operator=(const PluginFile &) = delete;

    /// Where the plug-in of that file name is: beside the executable, else in the library folder of
    /// the installation.
    static QString installed(const QString &name);

    /// Its function of that name, a pointer to `Function`. Null where it could not be loaded, of
    /// which `dlerror` tells more. Any thread; takes milliseconds.
    template <typename Function>
    Function function(const char *name) {
        return reinterpret_cast<Function>(symbol(name));
    }

private:
    void *symbol(const char *name);
    bool isReplaced() const;

    const QString m_path;
    const int m_held; // -1 where there was no file
    std::atomic<bool> m_isLoadedByNumber = false;
};

} // namespace zeph
