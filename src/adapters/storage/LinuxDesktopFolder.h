// SPDX-License-Identifier: MIT
#pragma once

#include "ports/DesktopFolder.h"

#include <utility>

namespace zeph {

/// The Desktop on a file system. Hidden are the names that begin with a dot and those that the
/// folder's own ".hidden" file lists, a line each. No other entry is followed, opened or entered,
/// and no folder among them is asked for anything: it can be a mount that hangs.
class LinuxDesktopFolder : public DesktopFolder {
public:
    /// `url` is what findDesktopFolder answers.
    explicit LinuxDesktopFolder(std::optional<QByteArray> url) : m_url(std::move(url)) {}

    std::optional<QByteArray> url() const override { return m_url; }
    bool visitEntries(const QByteArray &url, const Visitor &visit) const override;

private:
    std::optional<QByteArray> m_url;
};

} // namespace zeph
