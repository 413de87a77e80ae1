// SPDX-License-Identifier: MIT
#pragma once

#include "ports/DesktopFolder.h"

#include <vector>

namespace zeph {

/// A Desktop that the test makes up. Empty and readable until the test says otherwise.
class FakeDesktopFolder : public DesktopFolder {
public:
    std::optional<QByteArray> url() const override { return path; }

    bool visitEntries(const QByteArray &url, const Visitor &visit) const override {
        asked.push_back(url);
        for (const FolderEntry &entry : listing.value_or(std::vector<FolderEntry>())) {
            visit(entry);
        }
        return listing.has_value();
    }

    std::optional<QByteArray> path = QByteArray("/home/ada/Desktop");
    std::optional<std::vector<FolderEntry>> listing = std::vector<FolderEntry>{};
    mutable std::vector<QByteArray> asked;
};

} // namespace zeph
