// SPDX-License-Identifier: MIT
#include "platform/linux/folder/LinuxDesktopFolder.h"

#include "platform/RunLoop.h"
#include "platform/TaskExecutor.h"

#include <utility>

namespace zeph {

LinuxDesktopFolder::LinuxDesktopFolder(std::optional<QByteArray> url, TaskExecutor &executor,
                                       RunLoop &runLoop, Lister lister)
    : m_url(std::move(url)),
      m_executor(executor),
      m_runLoop(runLoop),
      m_lister(std::move(lister)),
      m_self(std::make_shared<LinuxDesktopFolder *>(this)) {}

void LinuxDesktopFolder::setEntriesHandler(std::function<void()> handler) {
    m_handler = std::move(handler);
}

std::optional<std::vector<FolderEntry>> LinuxDesktopFolder::entries(const QByteArray &url) {
    // What the handler asks for has just been listed; a new listing would go on for ever.
    if (!m_isTelling) {
        list(url);
    }
    Listing listing = std::exchange(m_listing, std::nullopt);
    return url == m_listedUrl ? std::move(listing) : std::nullopt;
}

void LinuxDesktopFolder::list(const QByteArray &url) {
    if (m_isListing) {
        return;
    }
    m_isListing = true;
    const std::weak_ptr<LinuxDesktopFolder *> weakSelf = m_self;
    m_executor.run([url, lister = m_lister, &runLoop = m_runLoop, weakSelf] {
        // Copyable, since tasks are; the listing itself is made once and then moved.
        const auto listing = std::make_shared<Listing>(lister(url));
        runLoop.post([url, listing, weakSelf] {
            if (const auto self = weakSelf.lock()) {
                (*self)->take(url, std::move(*listing));
            }
        });
    });
}

void LinuxDesktopFolder::take(const QByteArray &url, Listing listing) {
    m_isListing = false;
    m_listedUrl = url;
    m_listing = std::move(listing);
    if (m_listing && m_handler) {
        m_isTelling = true;
        m_handler();
        m_isTelling = false;
    }
}

} // namespace zeph
