// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/plugin/PluginFile.h"
#include "adapters/web/HttpOptions.h"
#include "ports/HttpClient.h"

#include <QString>

#include <memory>
#include <mutex>

namespace zeph {

/// The client by libcurl, loaded as a plug-in by the first request: it and the thirty libraries
/// behind it would hold up the start, and cost memory where nothing is asked for.
class PluggedHttpClient : public HttpClient {
public:
    /// Made before other threads read the environment, from which it takes the variable that would
    /// have the keys of all connections written to a file.
    explicit PluggedHttpClient(HttpOptions options = programOptions(),
                               const QString &pluginPath = installedPlugin());

    /// With the name and version of the program for who asks.
    static HttpOptions programOptions();

    /// See `PluginFile::installed`.
    static QString installedPlugin();

    /// Throws `TransportError` when the plug-in can't be loaded, too; the next request tries anew.
    HttpResponse send(const HttpRequest &request) override;
    void cancelAll() override;

private:
    HttpClient &loaded();

    HttpOptions m_options;
    std::mutex m_mutex; // of what follows; never held across a request
    PluginFile m_plugin;
    bool m_isCancelled = false;
    std::unique_ptr<HttpClient> m_client;
};

} // namespace zeph
