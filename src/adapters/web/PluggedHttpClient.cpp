// SPDX-License-Identifier: MIT
#include "adapters/web/PluggedHttpClient.h"

#include "adapters/web/HttpPlugin.h"

#include <utility>

namespace zeph {

using namespace Qt::StringLiterals;

PluggedHttpClient::PluggedHttpClient(HttpOptions options, const QString &pluginPath)
    : m_options(std::move(options)), m_plugin(pluginPath) {
    qunsetenv("SSLKEYLOGFILE");
}

HttpOptions PluggedHttpClient::programOptions() {
    HttpOptions options;
    options.userAgent = "Tavi/" ZEPH_VERSION;
    return options;
}

QString PluggedHttpClient::installedPlugin() {
    return PluginFile::installed(u"zeph-http.so"_s);
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
        const auto make = m_plugin.function<MakeHttpClient>("zephMakeHttpClient");
        if (make == nullptr) {
            throw TransportError(u"The network library could not be loaded."_s);
        }
        m_client.reset(make(m_options));
    }
    return *m_client;
}

} // namespace zeph
