// SPDX-License-Identifier: MIT
#include "adapters/power/PowerSupplyTree.h"

#include <QDir>
#include <QFile>

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 longestAttribute = 4096; // a page, the most that the kernel gives
constexpr qsizetype mostSupplies = 64;

AttributeReader readerOf(const QString &folder) {
    return [folder](const QString &name) {
        // An attribute may fail to be read for as long as the hardware is not ready.
        QFile file(folder + u'/' + name);
        const bool isOpen = file.open(QIODevice::ReadOnly | QIODevice::Unbuffered);
        return isOpen ? file.read(longestAttribute) : QByteArray();
    };
}

QStringList folders(const QString &root) {
    QStringList result;
    const QDir directory(root);
    const QStringList names = directory.entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name);
    for (const QString &name : names.first(std::min(names.size(), mostSupplies))) {
        result << directory.filePath(name);
    }
    return result;
}

} // namespace

std::optional<std::vector<PowerSupply>> readMachineSupplies(const QString &root) {
    if (!QDir(root).exists()) {
        return std::nullopt;
    }
    std::vector<PowerSupply> supplies;
    for (const QString &folder : folders(root)) {
        const AttributeReader read = readerOf(folder);
        PowerSupply supply = identifySupply(read);
        if (supply.kind != SupplyKind::other && !supply.isOfDevice) {
            readMachineSupply(read, supply);
            supplies.push_back(supply);
        }
    }
    return supplies;
}

std::vector<PowerSupply> readDeviceSupplies(const QString &root) {
    std::vector<PowerSupply> supplies;
    for (const QString &folder : folders(root)) {
        const AttributeReader read = readerOf(folder);
        PowerSupply supply = identifySupply(read);
        if (supply.kind == SupplyKind::battery && supply.isOfDevice) {
            readDeviceSupply(read, supply);
            supplies.push_back(supply);
        }
    }
    return supplies;
}

} // namespace zeph
