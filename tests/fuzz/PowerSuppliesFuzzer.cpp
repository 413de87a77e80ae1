// SPDX-License-Identifier: MIT
#include "adapters/power/SysfsBattery.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <map>

namespace {

using zeph::PowerSupply;

void require(bool condition) {
    if (!condition) {
        std::abort();
    }
}

/// Takes the text before `end` off `rest`.
QByteArrayView take(QByteArrayView &rest, char end) {
    const qsizetype place = rest.indexOf(end);
    const QByteArrayView taken = place < 0 ? rest : rest.first(place);
    rest = place < 0 ? QByteArrayView() : rest.sliced(place + 1);
    return taken;
}

PowerSupply supplyIn(QByteArrayView lines) {
    std::map<QString, QByteArray> attributes;
    while (!lines.isEmpty()) {
        QByteArrayView line = take(lines, '\n');
        const QString name = QString::fromLatin1(take(line, '='));
        attributes[name] = line.toByteArray();
    }
    const zeph::AttributeReader read = [&attributes](const QString &name) {
        const auto found = attributes.find(name);
        return found == attributes.end() ? QByteArray() : found->second;
    };
    PowerSupply supply = zeph::identifySupply(read);
    zeph::readDeviceSupply(read, supply);
    require(!supply.model || (!supply.model->isEmpty() && supply.model->size() <= 128));
    zeph::readMachineSupply(read, supply);
    return supply;
}

} // namespace

/// Supplies are set apart by '|', their attributes are lines of "name=value".
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    QByteArrayView rest(data, static_cast<qsizetype>(size));
    std::vector<PowerSupply> supplies;
    while (!rest.isEmpty()) {
        supplies.push_back(supplyIn(take(rest, '|')));
    }
    const zeph::BatteryReading reading = zeph::batteryReading(supplies);
    require(reading.current.has_value() == reading.maximum.has_value());
    require(!reading.current || (*reading.current >= 0 && *reading.maximum >= 1));
    require(!reading.current || *reading.current <= *reading.maximum);
    require(reading.minutesToFull >= -1 && reading.minutesToEmpty >= -1);
    require(!reading.designCapacity || *reading.designCapacity >= 1);
    require(reading.designCapacity.has_value() == reading.fullCapacity.has_value());
    return 0;
}
