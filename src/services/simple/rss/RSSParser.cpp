// SPDX-License-Identifier: MIT
#include "services/simple/rss/RSSParser.h"

#include <QRegularExpression>

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

bool isItem(const QString &name) {
    return name == u"item" || name == u"entry";
}

bool isPageRoot(const QString &name) {
    return name == u"html" || name.endsWith(u":html");
}

/// The text as one line. A blank that doesn't break stays what it is.
QString lineOf(const QString &text) {
    static const QRegularExpression blanks(uR"([ \t\r\n\x{85}\x{2028}\x{2029}]+)"_s);
    return text.trimmed().replace(blanks, u" "_s);
}

} // namespace

std::optional<RSSParser::Feed> RSSParser::parse(const QByteArray &data) {
    m_feed = {};
    m_buffer.clear();
    m_hasRoot = false;
    m_isPage = false;
    m_inItem = false;
    m_itemTitle.clear();
    m_gotFeedTitle = false;
    const bool isComplete = readXml(data, *this);
    if (m_isPage) {
        return std::nullopt;
    }
    if (!isComplete && m_feed.title.isEmpty() && m_feed.items.isEmpty()) {
        return std::nullopt;
    }
    return m_feed;
}

void RSSParser::didStartElement(const QString &name) {
    const QString lowered = name.toLower();
    m_isPage = m_isPage || (!m_hasRoot && isPageRoot(lowered));
    m_hasRoot = true;
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
    const QString title = lineOf(m_buffer);
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
