// SPDX-License-Identifier: MIT
#include "adapters/power/PowerSupply.h"

#include <algorithm>
#include <cmath>

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype longestText = 128;
constexpr double largestAmount = 1e12; // a megawatt-hour

SupplyKind kindOf(const QString &type) {
    if (type == u"Battery"_s) {
        return SupplyKind::battery;
    }
    if (type == u"Mains"_s || type == u"Wireless"_s) {
        return SupplyKind::mains;
    }
    return type.startsWith(u"USB"_s) ? SupplyKind::usb : SupplyKind::other;
}

ChargeStatus statusOf(const QString &status) {
    if (status == u"Charging"_s) {
        return ChargeStatus::charging;
    }
    if (status == u"Discharging"_s) {
        return ChargeStatus::discharging;
    }
    if (status == u"Full"_s) {
        return ChargeStatus::full;
    }
    return status == u"Not charging"_s ? ChargeStatus::notCharging : ChargeStatus::unknown;
}

std::optional<qint64> number(const AttributeReader &read, const QString &name) {
    return parseAttributeNumber(read(name));
}

QString text(const AttributeReader &read, const QString &name) {
    return parseAttributeText(read(name)).value_or(QString());
}

std::optional<double> amount(const AttributeReader &read, const QString &name) {
    const std::optional<qint64> value = number(read, name);
    if (!value || *value < 0 || static_cast<double>(*value) > largestAmount) {
        return std::nullopt;
    }
    return static_cast<double>(*value);
}

/// Some drivers tell what flows out as a negative rate.
std::optional<double> rate(const AttributeReader &read, const QString &name) {
    const std::optional<qint64> value = number(read, name);
    if (!value || std::abs(static_cast<double>(*value)) > largestAmount) {
        return std::nullopt;
    }
    return std::abs(static_cast<double>(*value));
}

std::optional<double> times(std::optional<double> value, double factor) {
    return value ? std::optional(*value * factor) : std::nullopt;
}

BatteryAmounts readAmounts(const AttributeReader &read) {
    BatteryAmounts amounts;
    amounts.now = amount(read, u"energy_now"_s);
    amounts.full = amount(read, u"energy_full"_s);
    amounts.design = amount(read, u"energy_full_design"_s);
    amounts.rate = rate(read, u"power_now"_s);
    if (!amounts.now && !amounts.full) {
        amounts.now = amount(read, u"charge_now"_s);
        amounts.full = amount(read, u"charge_full"_s);
        amounts.design = amount(read, u"charge_full_design"_s);
        amounts.rate = rate(read, u"current_now"_s);
        std::optional<double> microvolts = amount(read, u"voltage_min_design"_s);
        if (!microvolts || *microvolts <= 0) {
            microvolts = amount(read, u"voltage_now"_s);
        }
        amounts.isEnergy = microvolts && *microvolts > 0;
        const double volts = amounts.isEnergy ? *microvolts / 1e6 : 1;
        amounts.now = times(amounts.now, volts);
        amounts.full = times(amounts.full, volts);
        amounts.design = times(amounts.design, volts);
        amounts.rate = times(amounts.rate, volts);
    }
    if (amounts.full && *amounts.full <= 0) {
        amounts.full.reset();
    }
    return amounts;
}

} // namespace

std::optional<qint64> parseAttributeNumber(QByteArrayView bytes) {
    const QByteArrayView word = bytes.trimmed();
    const QByteArrayView digits = word.startsWith('-') ? word.sliced(1) : word;
    // The conversion alone would let a plus sign pass, and end at a zero byte.
    const bool areDigits = std::all_of(digits.begin(), digits.end(),
                                       [](char byte) { return byte >= '0' && byte <= '9'; });
    if (digits.isEmpty() || !areDigits) {
        return std::nullopt;
    }
    bool isWhole = false;
    const qint64 value = word.toLongLong(&isWhole);
    return isWhole ? std::optional(value) : std::nullopt;
}

std::optional<QString> parseAttributeText(QByteArrayView bytes) {
    const qsizetype end = bytes.indexOf('\n');
    QString line = QString::fromUtf8(end < 0 ? bytes : bytes.first(end));
    for (QChar &character : line) {
        if (character.category() == QChar::Other_Control) {
            character = u' ';
        }
    }
    line = line.trimmed().left(longestText);
    return line.isEmpty() ? std::nullopt : std::optional(line);
}

PowerSupply identifySupply(const AttributeReader &read) {
    PowerSupply supply;
    supply.kind = kindOf(text(read, u"type"_s));
    supply.isOfDevice = text(read, u"scope"_s) == u"Device"_s;
    return supply;
}

void readMachineSupply(const AttributeReader &read, PowerSupply &supply) {
    if (const auto online = number(read, u"online"_s)) {
        supply.isOnline = *online > 0;
    }
    if (supply.kind != SupplyKind::battery) {
        return;
    }
    supply.isPresent = number(read, u"present"_s).value_or(1) != 0;
    supply.status = statusOf(text(read, u"status"_s));
    supply.capacity = number(read, u"capacity"_s);
    supply.amounts = readAmounts(read);
    supply.cycleCount = number(read, u"cycle_count"_s);
}

void readDeviceSupply(const AttributeReader &read, PowerSupply &supply) {
    supply.isPresent = number(read, u"present"_s).value_or(1) != 0;
    if (const auto online = number(read, u"online"_s)) {
        supply.isOnline = *online > 0;
    }
    supply.model = parseAttributeText(read(u"model_name"_s));
    supply.capacity = number(read, u"capacity"_s);
}

} // namespace zeph
