// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <optional>

namespace zeph {

class AppState;
struct FramingContext;
struct IntegrationConnection;

/// What the last fetch of an account came to.
struct ConnectionStatus {
    QString text;
    bool isError = false;

    bool operator==(const ConnectionStatus &) const = default;
};

/// Absent while nothing was fetched for the account.
std::optional<ConnectionStatus> connectionStatus(const IntegrationConnection &connection,
                                                 const AppState &state,
                                                 const FramingContext &framing);

} // namespace zeph
