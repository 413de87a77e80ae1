// SPDX-License-Identifier: MIT
#include "services/forms/CustomAPIDraft.h"

#include "base/Capitalized.h"
#include "base/TakenOut.h"
#include "base/WholeNumber.h"
#include "model/AppState.h"
#include "services/accounts/IntegrationsStore.h"
#include "services/custom/CurlCommand.h"
#include "services/custom/EndpointAddress.h"
#include "settings/PreferencesStore.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace zeph {

CustomAPIDraft CustomAPIDraft::fresh() {
    CustomAPIDraft draft;
    draft.config.id = QUuid::createUuid();
    return draft;
}

bool CustomAPIDraft::isNew(const IntegrationsStore &store) const {
    return placeOf(store.customAPIs(), config.id) == store.customAPIs().end();
}

QString CustomAPIDraft::title(const IntegrationsStore &store) const {
    if (isNew(store)) {
        return u"Add Custom API"_s;
    }
    return config.name.isEmpty() ? u"Custom API"_s : config.name;
}

QString CustomAPIDraft::saveTitle(const IntegrationsStore &store) const {
    return isNew(store) ? u"Add integration"_s : u"Save changes"_s;
}

std::optional<QString> CustomAPIDraft::lastFetch(const AppState &state) const {
    const auto result = placeOf(*state.customResults, config.id);
    const bool hasFailed = result != state.customResults->end() && result->error;
    return hasFailed ? std::optional(u"Last fetch: "_s + result->error.value_or(QString()))
                     : std::nullopt;
}

CustomAPIConfig CustomAPIDraft::prepared() const {
    CustomAPIConfig prepared = config;
    prepared.name = config.name.trimmed();
    prepared.urlString = config.urlString.trimmed();
    std::erase_if(prepared.headers, [](const HTTPHeaderEntry &header) {
        return header.name.trimmed().isEmpty() && header.value.trimmed().isEmpty();
    });
    return prepared;
}

bool CustomAPIDraft::canCall() const {
    return endpointAddress(config.urlString.trimmed()).has_value();
}

bool CustomAPIDraft::canSave() const {
    return canCall() && !config.name.trimmed().isEmpty();
}

std::optional<QString> CustomAPIDraft::importCurl(const QString &command) {
    auto found = CustomAPI::parseCurl(command);
    if (!found) {
        return u"Couldn't find a URL in that command."_s;
    }
    config.urlString = found->url;
    if (!found->headers.empty()) {
        config.headers = std::move(found->headers);
    }
    return std::nullopt;
}

bool CustomAPIDraft::hasField(const QString &path) const {
    return std::any_of(config.fields.begin(), config.fields.end(),
                       [&path](const CustomAPIField &field) { return field.jsonPath == path; });
}

void CustomAPIDraft::addField(const QString &path) {
    if (!hasField(path)) {
        config.fields.push_back({QUuid::createUuid(), fieldLabel(path), path});
    }
}

TestAnswer CustomAPIDraft::answer(const EndpointListing &listing) const {
    if (listing.error) {
        return {*listing.error, true, {}};
    }
    if (listing.leaves.empty()) {
        return {u"The response had no readable values."_s, false, {}};
    }
    TestAnswer answer{u"Tap + to add a value to your widget:"_s, false, {}};
    for (const JsonLeaf &leaf : listing.leaves) {
        answer.rows.push_back({leaf.path, shownPath(leaf.path), leaf.preview, hasField(leaf.path)});
    }
    return answer;
}

bool CustomAPIDraft::save(IntegrationsStore &store, PreferencesStore &preferences,
                          SecretDone done) const {
    const bool isFirst = isNew(store);
    store.upsertCustomAPI(prepared(), std::move(done));
    if (isNew(store)) {
        return false;
    }
    if (isFirst && !preferences.hasChosenPlacement(WidgetKind::customAPIs)) {
        preferences.set(WidgetPlacement::always, WidgetKind::customAPIs);
    }
    return true;
}

QString CustomAPIDraft::fieldLabel(const QString &path) {
    const QStringList pieces = path.split(u'.', Qt::SkipEmptyParts);
    const auto word = std::find_if(pieces.rbegin(), pieces.rend(),
                                   [](const QString &piece) { return !wholeNumber(piece); });
    const QString label =
        word == pieces.rend() ? QString() : capitalized(QString(*word).replace(u'_', u' '));
    return label.trimmed().isEmpty() ? u"Value"_s : label;
}

QString CustomAPIDraft::shownPath(const QString &path) {
    return path.isEmpty() ? u"(response)"_s : path;
}

} // namespace zeph
