// SPDX-License-Identifier: MIT
#include "adapters/web/PluggedHttpClient.h"

#include "adapters/web/HttpPlugin.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>

#include <dlfcn.h>

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

MakeHttpClient loadPlugin(const QString &path) {
    // Look-ups that hang are left behind on threads of their own, so it is never unloaded.
    void *const plugin = dlopen(QFile::encodeName(path).constData(), RTLD_NOW | RTLD_NODELETE);
    void *const made = plugin == nullptr ? nullptr : dlsym(plugin, "zephMakeHttpClient");
    return reinterpret_cast<MakeHttpClient>(made);
}

} // namespace

PluggedHttpClient::PluggedHttpClient(HttpOptions options, QString pluginPath)
    : m_options(std::move(options)), m_pluginPath(std::move(pluginPath)) {
    qunsetenv("SSLKEYLOGFILE");
}

HttpOptions PluggedHttpClient::programOptions() {
    HttpOptions options;
    options.userAgent = "Tavi/" ZEPH_VERSION;
    return options;
}

QString PluggedHttpClient::installedPlugin() {
    const QDir folder(QCoreApplication::applicationDirPath());
    const QString beside = folder.filePath(QStringLiteral(ZEPH_HTTP_PLUGIN_FILE));
    return QFile::exists(beside)
               ? beside
               : folder.filePath(QStringLiteral(ZEPH_HTTP_PLUGIN_PATH "/" ZEPH_HTTP_PLUGIN_FILE));
}

HttpResponse PluggedHttpClient::send(const HttpRequest &request) {
    return loaded().send(request);
}

void PluggedHttpClient::cancelAll() {
    const std::scoped_lock lock(m_mutex);
    m_isCancelled = true;
    if (m_client) {
        m_client->cancelAll();
    }
}

HttpClient &PluggedHttpClient::loaded() {
    const std::scoped_lock lock(m_mutex);
    if (m_isCancelled && !m_client) {
        throw TransportError(u"The request was cancelled."_s);
    }
    if (!m_client) {
        const MakeHttpClient make = loadPlugin(m_pluginPath);
        if (make == nullptr) {
            throw TransportError(u"The network library could not be loaded."_s);
        }
        m_client.reset(make(m_options));
    }
    return *m_client;
}

} // namespace zeph
