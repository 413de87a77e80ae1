// SPDX-License-Identifier: MIT
#pragma once

#include "ports/SystemSettings.h"

#include <QStringList>
#include <QUrl>

namespace zeph {

/// A settings program that writes down what it was asked to open.
class FakeSystemSettings : public SystemSettings {
public:
    bool canOpen(const QUrl & /*link*/) const override { return hasPages; }
    void open(const QUrl &link) override { opened.append(link.toString()); }

    bool hasPages = true;
    QStringList opened;
};

} // namespace zeph
