// SPDX-License-Identifier: MIT
#pragma once

#include "base/Date.h"
#include "model/QuoteInfo.h"

#include <QByteArray>
#include <QString>

#include <mutex>
#include <optional>

namespace zeph {

class Calendar;
class Clock;
class HttpClient;
class RunLoop;
class UserDefaults;
struct Endpoints;

/// A saying that changes four times a day and outlives a restart. Without the network it is an
/// older one, or one that the program knows.
class QuoteService {
public:
    /// The quote of a window of six hours.
    struct Stored {
        Date window; ///< when the window began
        QuoteInfo quote;

        bool operator==(const Stored &) const = default;

        /// The stored form, a JSON object; `decode` answers absent for anything else.
        QByteArray encode() const;
        static std::optional<Stored> decode(const QByteArray &bytes);
    };

    /// Reads what is stored, on the main thread. All but `endpoints` outlive this object.
    QuoteService(HttpClient &http, const Endpoints &endpoints, const Clock &clock,
                 const Calendar &calendar, UserDefaults &defaults, RunLoop &runLoop);

    /// Blocks, so never called on the main thread; any other may call it, and this object outlives
    /// the call. Asks at most two services, and none again in a window that has its quote. A new
    /// quote is stored on the main thread soon after.
    QuoteInfo fetch();

    /// 0, 6, 12 or 18 hours after the start of the local day.
    Date windowStart(Date date) const;

    /// The saying of that moment, another one every six hours.
    static QuoteInfo builtIn(Date date);

private:
    std::optional<QuoteInfo> fetchZenQuotes();
    std::optional<QuoteInfo> fetchQuotable();
    std::optional<Stored> stored() const;
    QuoteInfo store(const Stored &stored);

    HttpClient &m_http;
    QString m_zenQuotes;
    QString m_quotable;
    const Clock &m_clock;
    const Calendar &m_calendar;
    UserDefaults &m_defaults;
    RunLoop &m_runLoop;
    mutable std::mutex m_mutex; // guards what is stored; never held across a request
    std::optional<Stored> m_stored;
};

} // namespace zeph
