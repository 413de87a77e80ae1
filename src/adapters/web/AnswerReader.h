// SPDX-License-Identifier: MIT
#pragma once

#include "ports/HttpClient.h"

#include <cstddef>

namespace zeph {

/// Gathers one answer as the library brings it, piece by piece, and stops it when it is too much.
class AnswerReader {
public:
    /// Of what was too much, if anything.
    enum class Excess { none, headers, body };

    /// `bodyLimit` in bytes, counted after decompression.
    explicit AnswerReader(qsizetype bodyLimit) : m_bodyLimit(bodyLimit) {}

    /// Handed to the library with `this` as its user data.
    static std::size_t takeHeaderLine(char *bytes, std::size_t size, std::size_t count,
                                      void *reader) noexcept;
    static std::size_t takeBody(char *bytes, std::size_t size, std::size_t count,
                                void *reader) noexcept;

    Excess excess() const { return m_excess; }

    /// What was gathered, without its status; call once.
    HttpResponse take() { return std::move(m_response); }

private:
    bool addHeaderLine(QByteArrayView line);
    bool addBody(QByteArrayView piece);

    qsizetype m_bodyLimit;
    qsizetype m_headerBytes = 0;
    bool m_inHeader = false;
    Excess m_excess = Excess::none;
    HttpResponse m_response;
};

} // namespace zeph
