// SPDX-License-Identifier: MIT
#include "FuzzFraming.h"
#include "base/DescribedError.h"
#include "services/simple/AhrefsService.h"
#include "services/simple/BlueskyService.h"
#include "services/simple/CoinGeckoService.h"
#include "services/simple/CurrencyService.h"
#include "services/simple/GumroadService.h"
#include "services/simple/HackerNewsService.h"
#include "services/simple/NetlifyService.h"
#include "services/simple/PolarService.h"
#include "services/simple/TrustMRRService.h"
#include "services/simple/VercelService.h"
#include "services/web/Json.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

using namespace zeph;

namespace {

/// The card of the service that the first byte chooses, '0' to '9'.
SimpleCard card(std::uint8_t service, const QJsonValue &answer, const FramingContext &framing) {
    const QString name = QStringLiteral("a");
    switch ((service - '0') % 10) {
    case 0:
        return ahrefsCard(answer, name);
    case 1:
        return blueskyCard(answer, name, framing);
    case 2:
        return coinGeckoCard(answer, name);
    case 3:
        return currencyCard(answer, {name, name});
    case 4:
        return gumroadCard(answer, framing);
    case 5:
        return hackerNewsCard(answer, name, framing);
    case 6:
        return netlifyCard(answer);
    case 7:
        return polarCard(answer, framing);
    case 8:
        return trustMRRCard(answer, name, framing);
    default:
        return vercelCard(answer);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    static const FuzzFraming framing;
    if (size == 0) {
        return 0;
    }
    const QByteArray bytes(reinterpret_cast<const char *>(data + 1),
                           static_cast<qsizetype>(size - 1));
    try {
        const SimpleCard made = card(data[0], json::parse(bytes), framing.context);
        for (const IntegrationChip &chip : made.chips) {
            if (chip.icon.isEmpty() || chip.text.isEmpty()) {
                std::abort();
            }
        }
    } catch (const DescribedError &error) {
        if (error.description().isEmpty()) {
            std::abort();
        }
    }
    return 0;
}
