// SPDX-License-Identifier: MIT
#pragma once

#include "base/ChangePublisher.h"

#include <utility>

namespace zeph {

/// One observable property: every assignment, equal or not, first fires the owner's publisher.
template <typename T>
class Published {
public:
    Published(ChangePublisher &publisher, T initial)
        : m_publisher(publisher), m_value(std::move(initial)) {}
    Published(const Published &) = delete;
    Published &operator=(const Published &) = delete;

    Published &operator=(T value) {
        m_publisher.send();
        m_value = std::move(value);
        return *this;
    }

    const T &get() const { return m_value; }
    const T &operator*() const { return m_value; }
    const T *operator->() const { return &m_value; }

private:
    ChangePublisher &m_publisher;
    T m_value;
};

} // namespace zeph
