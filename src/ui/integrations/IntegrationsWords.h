// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// What the integrations pane says by itself. The words of services, accounts and endpoints come
/// from where those are decided on.
namespace zeph::ui::words {

using namespace Qt::StringLiterals;

inline const auto paneTitle = u"Integrations"_s;
inline const auto paneSubtitle =
    u"Connect with your own API keys. Tavi calls each service directly "
    u"from your computer — no middleman."_s;
inline const auto keyringTitle = u"API keys live in your keyring"_s;
inline const auto keyringNotice =
    u"Your desktop may ask for your login password when you save a key or when Tavi reads one. "
    u"Tavi only accesses its own keyring entries — never passwords or secrets from other apps."_s;
inline const auto wayBack = u"All integrations"_s;
inline const auto discardChanges = u"Discard changes?"_s;
inline const auto discard = u"Discard"_s;
inline const auto keepEditing = u"Keep editing"_s;
inline const auto laterChanges = u"Saved, but for what you changed since."_s;
inline const auto endpointsLocked =
    u"Your custom endpoints are in the keyring, which has not been opened."_s;
inline const auto openKeyring = u"Open keyring"_s;

inline const auto addAccount = u"Add another account"_s;
inline const auto accountRemoved = u"This account was removed."_s;
inline const auto nameLabel = u"Display name"_s;
inline const auto namePlaceholder = u"e.g. Main store"_s;
inline const auto keyNote = u"Your desktop will ask for your login password to store this in your "
                            u"keyring. Tavi can only read keys saved for Tavi."_s;
inline const auto active = u"Active"_s;
inline const auto showOnWallpaper = u"Show on wallpaper"_s;
inline const auto sizes = u"Display size: Small, Medium or Large"_s;
inline const auto remove = u"Remove"_s;
inline const auto saving = u"Saving…"_s;

inline const auto showStats = u"Show stats (stars, followers, PRs, repos)"_s;
inline const auto showGraph = u"Show my contribution graph on the wallpaper"_s;
inline const auto graph = u"Graph"_s;
inline const auto graphNote =
    u"The contribution grid needs a personal access token — GitHub only exposes it to "
    u"authenticated requests, so a username alone won't work. A token also unlocks your "
    u"private-repo stats."_s;
inline const auto showAhrefs = u"Show “Domain Rating by Ahrefs” on wallpaper"_s;

inline const auto endpointHelp =
    u"Point Tavi at any GET endpoint, run a test call, then pick the values to show."_s;
inline const auto endpointIcon = u"puzzlepiece.extension"_s;
inline const auto endpointName = u"Name"_s;
inline const auto endpointNamePlaceholder = u"e.g. Signups"_s;
inline const auto endpointAddress = u"API Endpoint"_s;
inline const auto endpointAddressPlaceholder = u"https://api.example.com/v1/stats"_s;
inline const auto invalidAddress = u"Invalid URL"_s;
inline const auto headers = u"Headers (optional)"_s;
inline const auto headerName = u"Name (e.g. Authorization)"_s;
inline const auto headerValue = u"Value (e.g. Bearer sk_…)"_s;
inline const auto addHeader = u"Add header"_s;
inline const auto removeHeader = u"Remove header"_s;
inline const auto importCurl = u"Import from cURL"_s;
inline const auto importHelp =
    u"Paste a cURL command and Tavi pulls out the endpoint and headers."_s;
inline const auto importAction = u"Import"_s;
inline const auto runTest = u"Run test call"_s;
inline const auto cancelTest = u"Cancel"_s;
inline const auto testRuns = u"Waiting for the answer…"_s;
inline const auto answerName = u"Values of the response"_s;
inline const auto dataPoints = u"Data points on your wallpaper"_s;
inline const auto removeDataPoint = u"Remove data point"_s;
inline const auto deleteEndpoint = u"Delete"_s;

inline const auto quoteHelp = u"A daily quote from ZenQuotes. No account or key needed."_s;
inline const auto showQuote = u"Show quote of the day"_s;

} // namespace zeph::ui::words
