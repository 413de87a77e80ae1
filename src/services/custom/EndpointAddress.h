// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QUrl>

#include <optional>

namespace zeph {

/// The address of an endpoint as the user wrote it; absent for what is none, or has no host.
inline std::optional<QUrl> endpointAddress(const QString &text) {
    QUrl url(text, QUrl::StrictMode);
    return url.isValid() && !url.host().isEmpty() ? std::optional(std::move(url)) : std::nullopt;
}

} // namespace zeph
