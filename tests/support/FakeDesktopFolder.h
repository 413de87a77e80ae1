// SPDX-License-Identifier: MIT
#pragma once

#include "platform/DesktopFolder.h"

#include <utility>

namespace zeph {

/// A Desktop that the test makes up. Empty and readable until the test says otherwise.
class FakeDesktopFolder : public DesktopFolder {
public:
    std::optional<QByteArray> url() const override { return path; }

    std::optional<std::vector<FolderEntry>> entries(const QByteArray &url) override {
        asked.push_back(url);
        return listing;
    }

    void setEntriesHandler(std::function<void()> handler) override {
        entriesHandler = std::move(handler);
    }

    std::optional<QByteArray> path = QByteArray("/home/ada/Desktop");
    std::optional<std::vector<FolderEntry>> listing = std::vector<FolderEntry>{};
    std::function<void()> entriesHandler;
    std::vector<QByteArray> asked;
};

} // namespace zeph
