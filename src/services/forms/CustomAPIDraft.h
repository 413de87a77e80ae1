// SPDX-License-Identifier: MIT
#pragma once

#include "services/accounts/CustomAPIConfig.h"
#include "services/accounts/SecretQueue.h"
#include "services/custom/EndpointListing.h"

#include <QString>

#include <optional>
#include <vector>

namespace zeph {

class AppState;
class IntegrationsStore;
class PreferencesStore;

/// A value of a test call's answer.
struct AnswerRow {
    QString path;      ///< as `CustomAPIDraft::addField` takes it
    QString shownPath; ///< "(response)" for the answer itself
    QString preview;
    bool isField = false; ///< it is a data point already

    bool operator==(const AnswerRow &) const = default;
};

/// What a test call came to, as it is shown.
struct TestAnswer {
    QString line; ///< above the rows, or why there are none
    bool isError = false;
    std::vector<AnswerRow> rows;

    bool operator==(const TestAnswer &) const = default;
};

/// A custom endpoint while it is edited. Nothing reaches the store before `save`.
struct CustomAPIDraft {
    CustomAPIConfig config;

    /// An endpoint that is not there yet.
    static CustomAPIDraft fresh();

    bool isNew(const IntegrationsStore &store) const;

    /// "Add Custom API", or the name of the endpoint.
    QString title(const IntegrationsStore &store) const;

    /// "Add integration", or "Save changes".
    QString saveTitle(const IntegrationsStore &store) const;

    /// "Last fetch: {error}" where the last one failed.
    std::optional<QString> lastFetch(const AppState &state) const;

    /// The endpoint as it is called and stored: without outer blanks and without empty headers.
    CustomAPIConfig prepared() const;

    bool canCall() const; ///< the address has a host
    bool canSave() const; ///< and there is a name

    /// Takes the address and, where there are some, the headers of a cURL command. Returns what to
    /// tell when it holds no address, and then nothing has changed.
    std::optional<QString> importCurl(const QString &command);

    /// Whether the value at that path is a data point already.
    bool hasField(const QString &path) const;

    /// Adds a data point, named after its path, unless the path is one already.
    void addField(const QString &path);

    /// What a test call came to, with what is a data point by now.
    TestAnswer answer(const EndpointListing &listing) const;

    /// Stores the endpoint, and switches its widget on the first time. False when the list can't
    /// be changed before it is read out of the keyring; `done` is told the rest in a later turn.
    bool save(IntegrationsStore &store, PreferencesStore &preferences, SecretDone done) const;

    /// The name of a data point: the last word of its path, with blanks and capitals.
    static QString fieldLabel(const QString &path);

    /// "(response)" for the answer itself.
    static QString shownPath(const QString &path);

    bool operator==(const CustomAPIDraft &) const = default;
};

} // namespace zeph
