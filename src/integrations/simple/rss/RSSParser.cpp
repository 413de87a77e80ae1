// SPDX-License-Identifier: MIT
#include "integrations/simple/rss/RSSParser.h"

namespace zeph {

namespace {

bool isItem(const QString &name) {
    return name == u"item" || name == u"entry";
}

} // namespace

std::optional<RSSParser::Feed> RSSParser::parse(const QByteArray &data) {
    m_feed = {};
    m_buffer.clear();
    m_inItem = false;
    m_itemTitle.clear();
    m_gotFeedTitle = false;
    const bool isComplete = readXml(data, *this);
    if (!isComplete && m_feed.title.isEmpty() && m_feed.items.isEmpty()) {
        return std::nullopt;
    }
    return m_feed;
}

void RSSParser::didStartElement(const QString &name) {
    const QString lowered = name.toLower();
    if (isItem(lowered)) {
        m_inItem = true;
        m_itemTitle.clear();
    } else if (lowered == u"title") {
        m_buffer.clear();
    }
}

void RSSParser::didEndElement(const QString &name) {
    const QString lowered = name.toLower();
    if (lowered == u"title") {
        endTitle();
    } else if (isItem(lowered)) {
        if (!m_itemTitle.isEmpty()) {
            m_feed.items.append(m_itemTitle);
        }
        m_inItem = false;
    }
    m_buffer.clear();
}

void RSSParser::foundCharacters(const QString &characters) {
    m_buffer += characters;
}

void RSSParser::foundCDATA(const QString &characters) {
    m_buffer += characters;
}

void RSSParser::endTitle() {
    const QString title = m_buffer.trimmed();
    if (m_inItem) {
        if (m_itemTitle.isEmpty()) {
            m_itemTitle = title;
        }
    } else if (!m_gotFeedTitle && !title.isEmpty()) {
        m_feed.title = title;
        m_gotFeedTitle = true;
    }
}

} // namespace zeph
