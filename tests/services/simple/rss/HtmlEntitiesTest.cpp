// SPDX-License-Identifier: MIT
#include "services/simple/rss/HtmlEntities.h"

#include "support/Fixture.h"
#include "support/QtPrinters.h"

#include <gtest/gtest.h>

namespace zeph {

using namespace Qt::StringLiterals;

TEST(HtmlEntities, knowsEveryNameOfHtml4) {
    // The table of Python's html.entities, without those that XML knows itself.
    const auto rows = fixture("rss/entities.csv").split('\n');
    int known = 0;
    for (const QByteArray &row : rows) {
        const auto cells = row.split(',');
        if (cells.size() == 2) {
            ++known;
            EXPECT_EQ(htmlEntity(QString::fromLatin1(cells[0])), QChar(cells[1].toUShort()))
                << row.constData();
        }
    }
    EXPECT_EQ(known, 248);
}

TEST(HtmlEntities, knowsNoOthers) {
    for (const QString &name : {u""_s, u"nope"_s, u"NBSP"_s, u"amp"_s, u"lt"_s, u"nbsp "_s}) {
        EXPECT_EQ(htmlEntity(name), std::nullopt) << qPrintable(name);
    }
}

} // namespace zeph
