// SPDX-License-Identifier: MIT
#include "adapters/kernel/ProcFile.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace zeph {

namespace {

constexpr qsizetype kFirstReading = 65'536;
constexpr qsizetype kMost = 4'194'304;

class ProcFileTest : public testing::Test {
protected:
    /// Bytes that tell where they stand.
    static QByteArray bytes(qsizetype count) {
        QByteArray all;
        all.reserve(count + 8);
        while (all.size() < count) {
            all += QByteArray::number(all.size()) + '\n';
        }
        return all.left(count);
    }
    QByteArray readBack(const QByteArray &contents) const {
        const QString path = m_room.filePath(QStringLiteral("file"));
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(contents) == contents.size());
        file.close();
        return procFileContents(path);
    }

private:
    QTemporaryDir m_room;
};

} // namespace

TEST_F(ProcFileTest, isReadWholeHoweverManyReadingsItTakes) {
    for (const qsizetype size : {qsizetype(0), qsizetype(1), kFirstReading - 1, kFirstReading,
                                 kFirstReading + 1, 2 * kFirstReading, 5 * kFirstReading + 7}) {
        const QByteArray contents = bytes(size);
        EXPECT_TRUE(readBack(contents) == contents) << size;
    }
}

TEST_F(ProcFileTest, isReadUpToALimit) {
    const QByteArray contents = bytes(kMost + 10);
    EXPECT_TRUE(readBack(contents) == contents.left(kMost));
}

TEST_F(ProcFileTest, isEmptyWhereThereIsNone) {
    EXPECT_TRUE(procFileContents(QStringLiteral("/nonexistent/stat")).isEmpty());
}

} // namespace zeph
