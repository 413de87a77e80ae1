// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>

namespace zeph {

/// Is told of what an XML text holds, in its order. Names are qualified names, prefix included.
class XmlDelegate {
public:
    XmlDelegate() = default;
    virtual ~XmlDelegate() = default;
    XmlDelegate(const XmlDelegate &) = delete;
    XmlDelegate &operator=(const XmlDelegate &) = delete;

    virtual void didStartElement(const QString &name) = 0;
    virtual void didEndElement(const QString &name) = 0;
    /// Entities are replaced, those that HTML names included.
    virtual void foundCharacters(const QString &characters) = 0;
    virtual void foundCDATA(const QString &characters) = 0;
};

/// Reads `data` up to its end or its first error. False after an error; what stood before it was
/// told. Prefixes need no declaration and nothing outside of `data` is read.
///
/// The text comes from strangers: time and memory are linear in it. Nesting deeper than 256, a tag
/// of more than 256 attributes, attributes declared by a DTD, a prolog beyond 64 KiB and declared
/// entities that add up to more than 64 KiB count as errors.
bool readXml(const QByteArray &data, XmlDelegate &delegate);

} // namespace zeph
