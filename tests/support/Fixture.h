// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QFile>

#include <gtest/gtest.h>

namespace zeph {

/// The answer of a service as kept in tests/services/fixtures, which the test's target names
/// as ZEPH_FIXTURES.
inline QByteArray fixture(const char *path) {
    QFile file(QStringLiteral(ZEPH_FIXTURES "/") + QString::fromUtf8(path));
    EXPECT_TRUE(file.open(QFile::ReadOnly)) << qPrintable(file.fileName());
    return file.readAll();
}

} // namespace zeph
