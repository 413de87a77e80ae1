// SPDX-License-Identifier: MIT
#pragma once

#include "ports/Port.h"

class QUrl;

namespace zeph {

/// The desktop's own settings program.
class SystemSettings : public Port {
public:
    /// Opens the page that a settings link names; a page that does not exist opens nothing.
    virtual void open(const QUrl &link) = 0;
};

} // namespace zeph
