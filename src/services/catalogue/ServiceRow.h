// SPDX-License-Identifier: MIT
#pragma once

#include "services/catalogue/AccountRecord.h"
#include "services/web/Endpoints.h"
#include "settings/WidgetKind.h"

#include <QString>

namespace zeph {

class Calendar;
class Clock;
class HttpClient;
struct FramingContext;

/// What services are made of. All but `endpoints` outlive the services.
struct ServiceTools {
    HttpClient &http;
    const Endpoints &endpoints;
    const Clock &clock;
    const Calendar &calendar;  ///< the user's own
    const Calendar &gregorian; ///< for services that know no other
    const FramingContext &framing;
};

/// Whether an account has to give something.
enum class Need { none, optional, required };

/// What the settings say of a service beside its default name and the symbol of its widget.
struct ServiceWords {
    QStringView blurb;                 ///< on its card
    QStringView help;                  ///< above the form of an account
    QStringView keyPlaceholder = {};   ///< in the empty field of the key; empty where there is none
    QStringView valueLabel = {};       ///< of the second field; empty where there is none
    QStringView valuePlaceholder = {}; ///< a sample of it
    QLatin1StringView keyPage = {};    ///< address of the page where keys are made
    QStringView keyWord = u"key";      ///< what the service calls it
    QStringView valueLink = {};        ///< text of a link to where values are found
    QLatin1StringView valuePage = {};  ///< the address of that
};

/// All that is known of one web service.
struct ServiceRow {
    QLatin1StringView key;         ///< as it is stored with an account
    QLatin1StringView defaultName; ///< of an account that was given none
    Need secret = Need::none;      ///< a key or a token
    Need value = Need::none;       ///< a user name, a site, an address ...
    /// Early versions knew one account of it, which is carried over.
    bool hadSingleAccount = false;
    std::optional<AccountFamily> family = {}; ///< absent where nothing is asked
    std::optional<WidgetKind> widget = {};    ///< the one that its figures feed
    QString Endpoints::*root = nullptr;       ///< null where the user gives the address
    /// Makes the service and returns the call of it; null without a family.
    AccountFetch (*fetch)(const ServiceTools &tools) = nullptr;
    std::optional<ServiceWords> words = {}; ///< absent where the settings don't offer it
};

} // namespace zeph
