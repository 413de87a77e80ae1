// SPDX-License-Identifier: MIT
#include "services/simple/rss/XmlReader.h"

#include "services/simple/rss/HtmlEntities.h"
#include "services/simple/rss/WideTags.h"
#include "services/simple/rss/XmlText.h"

#include <QXmlStreamReader>

#include <algorithm>

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

constexpr int deepestNesting = 256;
constexpr qsizetype longestProlog = 65536;
constexpr qsizetype mostExpansion = 65536;
constexpr qsizetype longestExpansion = 4096;

class HtmlEntityResolver : public QXmlStreamEntityResolver {
public:
    QString resolveUndeclaredEntity(const QString &name) override {
        const auto character = htmlEntity(name);
        return character ? QString(*character) : QString();
    }
};

/// How far one of so many references may expand, so that all of them together stay below
/// `mostExpansion`.
int expansionLimit(qsizetype references) {
    return static_cast<int>(
        std::min(longestExpansion, mostExpansion / std::max<qsizetype>(references, 1)));
}

class Run {
public:
    explicit Run(XmlDelegate &delegate) : m_delegate(delegate) {
        m_reader.setNamespaceProcessing(false);
        m_reader.setEntityResolver(&m_resolver);
    }

    /// `rest` follows when the root element has begun by then: a DTD costs more than its length.
    bool read(const QString &start, const QString &rest) {
        m_references = start.count(u'&') + rest.count(u'&');
        m_reader.setEntityExpansionLimit(expansionLimit(m_references + start.count(u'%')));
        m_reader.addData(start);
        readAll();
        const bool wantsMore = m_reader.error() == QXmlStreamReader::PrematureEndOfDocumentError;
        if (wantsMore && m_hasRoot && !rest.isEmpty()) {
            m_reader.addData(rest);
            readAll();
        }
        return !m_reader.hasError();
    }

private:
    void readAll() {
        while (!m_reader.atEnd()) {
            tell(m_reader.readNext());
        }
    }

    void tell(QXmlStreamReader::TokenType token) {
        switch (token) {
        case QXmlStreamReader::DTD:
            endDtd(m_reader.text());
            break;
        case QXmlStreamReader::StartElement:
            start();
            break;
        case QXmlStreamReader::EndElement:
            --m_depth;
            m_delegate.didEndElement(m_reader.qualifiedName().toString());
            break;
        case QXmlStreamReader::Characters:
            if (m_reader.isCDATA()) {
                m_delegate.foundCDATA(m_reader.text().toString());
            } else {
                m_delegate.foundCharacters(m_reader.text().toString());
            }
            break;
        default:
            break;
        }
    }

    void endDtd(QStringView dtd) {
        // Behind it a "%" is no reference any more.
        m_reader.setEntityExpansionLimit(expansionLimit(m_references));
        if (dtd.contains("<!ATTLIST"_L1)) {
            m_reader.raiseError(u"Attributes may not be declared."_s);
        }
    }

    void start() {
        m_hasRoot = true;
        if (++m_depth > deepestNesting || m_reader.attributes().size() > mostAttributes) {
            m_reader.raiseError(u"There is too much of it."_s);
            return;
        }
        m_delegate.didStartElement(m_reader.qualifiedName().toString());
    }

    XmlDelegate &m_delegate;
    HtmlEntityResolver m_resolver;
    QXmlStreamReader m_reader;
    qsizetype m_references = 0; // that may stand anywhere
    int m_depth = 0;
    bool m_hasRoot = false;
};

/// Where the text may be cut in two: never inside a surrogate pair.
qsizetype prologEnd(const QString &xml) {
    const qsizetype end = std::min(xml.size(), longestProlog);
    return end > 0 && xml[end - 1].isHighSurrogate() ? end - 1 : end;
}

} // namespace

bool readXml(const QByteArray &data, XmlDelegate &delegate) {
    auto decoded = xmlText(data);
    if (!decoded) {
        return false;
    }
    QString &xml = decoded->text;
    const qsizetype length = lengthBeforeWideTag(xml);
    const bool isWhole = decoded->isWhole && length == xml.size();
    xml.truncate(length);
    const qsizetype middle = prologEnd(xml);
    return Run(delegate).read(xml.left(middle), xml.mid(middle)) && isWhole;
}

} // namespace zeph
