// SPDX-License-Identifier: MIT
#pragma once

namespace zeph {

/// Base of every interface that the logic asks of a machine: polymorphic, never copied.
class Port {
public:
    Port() = default;
    virtual ~Port() = default;
    Port(const Port &) = delete;
    Port &operator=(const Port &) = delete;
};

} // namespace zeph
