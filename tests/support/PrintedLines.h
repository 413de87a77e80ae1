// SPDX-License-Identifier: MIT
#pragma once

#include "support/QtPrinters.h"

#include <QString>
#include <QStringList>

#include <gtest/gtest.h>

namespace zeph {

/// What `action` prints on standard output, line by line.
template <typename Action>
QStringList printedLines(Action action) {
    testing::internal::CaptureStdout();
    action();
    const auto text = QString::fromStdString(testing::internal::GetCapturedStdout());
    return text.split(u'\n', Qt::SkipEmptyParts);
}

} // namespace zeph
