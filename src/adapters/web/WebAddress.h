// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/web/CurlHandles.h"

#include <QByteArray>
#include <QString>

#include <optional>

class QUrl;

namespace zeph {

/// An address with the scheme http or https. The library that connects also takes it apart, so
/// that the origin compared is the one connected to.
class WebAddress {
public:
    /// Absent for what is no address of the web.
    static std::optional<WebAddress> parse(const QUrl &url);

    /// Where the header `Location` leads to from here; absent for what is no address of the web.
    std::optional<WebAddress> resolved(const QByteArray &location) const;

    bool isEncrypted() const;
    bool isSameOrigin(const WebAddress &other) const; ///< scheme, host and port
    QString host() const;

    /// The whole address; it may hold secrets.
    QByteArray text() const;

    /// For the library; valid as long as this lives.
    CURLU *handle() const { return m_url.get(); }

private:
    explicit WebAddress(CurlUrl url) : m_url(std::move(url)) {}
    static std::optional<WebAddress> ofTheWeb(CurlUrl url);
    QByteArray part(CURLUPart part, unsigned int flags = 0) const;

    CurlUrl m_url;
};

} // namespace zeph
