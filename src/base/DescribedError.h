// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <exception>
#include <utility>

namespace zeph {

/// A failure that can be shown: one plain sentence, free of keys, header values and query strings.
class DescribedError : public std::exception {
public:
    explicit DescribedError(QString description) : m_description(std::move(description)) {}

    const QString &description() const { return m_description; }
    const char *what() const noexcept override { return "zeph::DescribedError"; }

private:
    QString m_description;
};

} // namespace zeph
