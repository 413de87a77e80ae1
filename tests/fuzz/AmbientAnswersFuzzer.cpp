// SPDX-License-Identifier: MIT
#include "base/DescribedError.h"
#include "services/ambient/AmbientAnswers.h"
#include "services/ambient/QuoteService.h"
#include "services/web/Json.h"

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>

namespace {

using namespace zeph;

constexpr Date now{1'795'258'800.0};

void require(bool condition) {
    if (!condition) {
        std::abort();
    }
}

void checkStored(const QByteArray &bytes) {
    if (const auto stored = QuoteService::Stored::decode(bytes)) {
        const auto again = QuoteService::Stored::decode(stored->encode());
        require(again && again->quote == stored->quote);
        require(!QuoteService::builtIn(stored->window).author.isEmpty());
    }
}

void check(char selector, const QJsonValue &answer) {
    switch (selector) {
    case 'w':
        if (const auto info = AmbientAnswers::weather(answer, now)) {
            require(std::abs(info->temperatureC) <= 1000 && info->updated == now);
            require(!info->apparentC || std::abs(*info->apparentC) <= 1000);
        }
        break;
    case 'a':
        if (const auto info = AmbientAnswers::airQuality(answer, now)) {
            require(info->updated == now);
        }
        break;
    case 'z':
        AmbientAnswers::zenQuote(answer);
        break;
    case 'q':
        AmbientAnswers::quotableQuote(answer);
        break;
    case 's':
        if (const auto station = AmbientAnswers::station(answer)) {
            require(std::trunc(station->altitudeKm) == station->altitudeKm);
            require(std::abs(station->coordinate.latitude) <= 90 &&
                    std::abs(station->coordinate.longitude) <= 360 &&
                    std::abs(station->altitudeKm) <= 1'000'000);
        }
        break;
    default:
        // Every other letter is a day of the year.
        AmbientAnswers::onThisDay(answer, static_cast<unsigned char>(selector));
    }
}

} // namespace

/// The first letter chooses the reader of the rest.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    if (size == 0) {
        return 0;
    }
    const QByteArrayView bytes(data, static_cast<qsizetype>(size));
    const QByteArray body = bytes.sliced(1).toByteArray();
    if (bytes.front() == 'k') {
        checkStored(body);
        return 0;
    }
    try {
        check(bytes.front(), json::parse(body));
    } catch (const DescribedError &) {
        return 0; // no JSON
    }
    return 0;
}
