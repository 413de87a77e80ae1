// SPDX-License-Identifier: MIT
#pragma once

#include "services/simple/rss/XmlReader.h"

#include <QStringList>

#include <optional>

namespace zeph {

/// Keeps the titles of a feed and nothing else. Items of RSS and entries of Atom are alike, so the
/// kind of feed need not be known.
class RSSParser : private XmlDelegate {
public:
    struct Feed {
        QString title;     ///< a line, as each item is: runs of blanks read as one
        QStringList items; ///< in the order of the document, those without a title left out

        bool operator==(const Feed &) const = default;
    };

    /// What was read up to the first error. Absent when there was one and nothing was read, and for
    /// a web page.
    std::optional<Feed> parse(const QByteArray &data);

private:
    void didStartElement(const QString &name) override;
    void didEndElement(const QString &name) override;
    void foundCharacters(const QString &characters) override;
    void foundCDATA(const QString &characters) override;
    void endTitle();

    Feed m_feed;
    QString m_buffer; ///< text since the last title began or any element ended
    bool m_hasRoot = false;
    bool m_isPage = false;
    bool m_inItem = false;
    QString m_itemTitle;
    bool m_gotFeedTitle = false;
};

} // namespace zeph
