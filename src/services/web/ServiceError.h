// SPDX-License-Identifier: MIT
#pragma once

#include "base/DescribedError.h"

namespace zeph {

/// A service answered that it will not, or with what can't be used.
class ServiceError : public DescribedError {
public:
    /// `domain` names who speaks, `code` is the service's own, 0 without one.
    ServiceError(QString domain, int code, QString description)
        : DescribedError(std::move(description)), m_domain(std::move(domain)), m_code(code) {}

    const QString &domain() const { return m_domain; }
    int code() const { return m_code; }

private:
    QString m_domain;
    int m_code;
};

} // namespace zeph
