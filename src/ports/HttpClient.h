// SPDX-License-Identifier: MIT
#pragma once

#include "base/DescribedError.h"
#include "ports/Port.h"

#include <QByteArray>
#include <QUrl>

#include <chrono>
#include <optional>
#include <vector>

namespace zeph {

struct HttpHeader {
    QByteArray name;
    QByteArray value;

    bool operator==(const HttpHeader &) const = default;
};

/// What is sent. A later header of the same name, case aside, replaces an earlier one by
/// `setHeader`.
struct HttpRequest {
    QByteArray method = "GET";
    QUrl url;
    std::vector<HttpHeader> headers = {};
    QByteArray body = {};
    std::chrono::milliseconds timeout = std::chrono::seconds(60); ///< for the whole exchange

    void setHeader(const QByteArray &name, const QByteArray &value) {
        for (HttpHeader &header : headers) {
            if (header.name.compare(name, Qt::CaseInsensitive) == 0) {
                header.value = value;
                return;
            }
        }
        headers.push_back({name, value});
    }
};

/// What came back after redirects; a body that was compressed is told plain.
struct HttpResponse {
    int status = 0;
    std::vector<HttpHeader> headers = {};
    QByteArray body = {};

    bool isSuccess() const { return status >= 200 && status <= 299; }

    /// The first header of that name, case aside.
    std::optional<QByteArray> header(const QByteArray &name) const {
        for (const HttpHeader &header : headers) {
            if (header.name.compare(name, Qt::CaseInsensitive) == 0) {
                return header.value;
            }
        }
        return std::nullopt;
    }
};

/// There was no answer: no connection, no trust, no end within the time, too much of it, or the
/// process is ending.
class TransportError : public DescribedError {
public:
    using DescribedError::DescribedError;
};

/// Requests over the network, http and https alone. Callable from any thread but the main one.
class HttpClient : public Port {
public:
    /// Blocks until the whole answer is there, whatever its status. Throws `TransportError`.
    virtual HttpResponse send(const HttpRequest &request) = 0;

    /// Ends every request under way and refuses all that follow, each with a `TransportError`.
    /// Callable from any thread.
    virtual void cancelAll() = 0;
};

} // namespace zeph
