// SPDX-License-Identifier: MIT
#pragma once

#include "ports/Formatters.h"

namespace zeph {

/// A locale that only tells how it measures; it formats nothing.
class FakeFormatters : public Formatters {
public:
    std::optional<QString> currency(double /*amount*/, const QString & /*code*/,
                                    NumberLocale /*locale*/, int /*minimumFractionDigits*/,
                                    int /*maximumFractionDigits*/) const override {
        return std::nullopt;
    }
    std::optional<QString> currencySymbol(const QString & /*code*/,
                                          NumberLocale /*locale*/) const override {
        return std::nullopt;
    }
    std::optional<QString> decimal(qint64 /*number*/, NumberLocale /*locale*/) const override {
        return std::nullopt;
    }
    QString date(Date /*date*/, const QString & /*pattern*/,
                 const DayHalfSymbols & /*dayHalves*/) const override {
        return {};
    }
    bool usesUSMeasurement() const override { return american; }

    bool american = false;
};

} // namespace zeph
