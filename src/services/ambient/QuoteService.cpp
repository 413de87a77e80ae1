// SPDX-License-Identifier: MIT
#include "services/ambient/QuoteService.h"

#include "base/DescribedError.h"
#include "ports/Calendar.h"
#include "ports/Clock.h"
#include "ports/RunLoop.h"
#include "ports/UserDefaults.h"
#include "services/ambient/AmbientAnswers.h"
#include "services/ambient/Sayings.h"
#include "services/web/Endpoints.h"
#include "services/web/Json.h"
#include "services/web/ProviderHTTP.h"

#include <QJsonDocument>

#include <cmath>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

constexpr double hourSeconds = 3600.0;
constexpr double windowHours = 6.0;

QString cacheKey() {
    return u"zeph.quote.cache"_s;
}

} // namespace

QByteArray QuoteService::Stored::encode() const {
    const QJsonObject words{{u"text"_s, quote.text}, {u"author"_s, quote.author}};
    const QJsonObject object{{u"window"_s, window.secondsSince1970 - referenceDateSince1970},
                             {u"quote"_s, words}};
    return QJsonDocument(object).toJson(QJsonDocument::Compact);
}

std::optional<QuoteService::Stored> QuoteService::Stored::decode(const QByteArray &bytes) {
    QJsonObject object;
    try {
        object = json::parse(bytes).toObject();
    } catch (const DescribedError &) {
        return std::nullopt;
    }
    const auto window = json::number(object.value(u"window"));
    const QJsonObject words = object.value(u"quote").toObject();
    const auto text = json::text(words.value(u"text"));
    const auto author = json::text(words.value(u"author"));
    if (!window || !text || !author) {
        return std::nullopt;
    }
    return Stored{Date{*window + referenceDateSince1970}, QuoteInfo{*text, *author}};
}

QuoteService::QuoteService(HttpClient &http, const Endpoints &endpoints, const Clock &clock,
                           const Calendar &calendar, UserDefaults &defaults, RunLoop &runLoop)
    : m_http(http),
      m_zenQuotes(endpoints.zenQuotes),
      m_quotable(endpoints.quotable),
      m_clock(clock),
      m_calendar(calendar),
      m_defaults(defaults),
      m_runLoop(runLoop) {
    if (const auto bytes = m_defaults.get<QByteArray>(cacheKey())) {
        m_stored = Stored::decode(*bytes);
    }
}

QuoteInfo QuoteService::fetch() {
    const Date window = windowStart(m_clock.now());
    if (const auto known = stored(); known && known->window == window) {
        return known->quote;
    }
    if (const auto quote = fetchZenQuotes()) {
        return store({window, *quote});
    }
    if (const auto quote = fetchQuotable()) {
        return store({window, *quote});
    }
    const auto old = stored();
    return old ? old->quote : builtIn(window);
}

Date QuoteService::windowStart(Date date) const {
    const Date start = m_calendar.startOfDay(date);
    const double hours = std::trunc((date - start) / hourSeconds);
    return start + std::trunc(hours / windowHours) * windowHours * hourSeconds;
}

QuoteInfo QuoteService::builtIn(Date date) {
    constexpr double count = sayingCount;
    // The remainder of a double is exact, and holds for instants beyond every integer.
    const double step = std::trunc(date.secondsSince1970 / (windowHours * hourSeconds));
    const double remainder = std::fmod(step, count);
    return saying(static_cast<std::size_t>(remainder < 0 ? remainder + count : remainder));
}

std::optional<QuoteInfo> QuoteService::fetchZenQuotes() {
    try {
        return AmbientAnswers::zenQuote(ProviderHTTP::json(m_http, m_zenQuotes + u"/api/random"_s));
    } catch (const DescribedError &) {
        return std::nullopt;
    }
}

std::optional<QuoteInfo> QuoteService::fetchQuotable() {
    try {
        return AmbientAnswers::quotableQuote(ProviderHTTP::json(m_http, m_quotable + u"/random"_s));
    } catch (const DescribedError &) {
        return std::nullopt;
    }
}

std::optional<QuoteService::Stored> QuoteService::stored() const {
    const std::scoped_lock lock(m_mutex);
    return m_stored;
}

QuoteInfo QuoteService::store(const Stored &stored) {
    {
        const std::scoped_lock lock(m_mutex);
        m_stored = stored;
    }
    m_runLoop.post(
        [&defaults = m_defaults, bytes = stored.encode()] { defaults.set(cacheKey(), bytes); });
    return stored.quote;
}

} // namespace zeph
