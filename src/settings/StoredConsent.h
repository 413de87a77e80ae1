// SPDX-License-Identifier: MIT
#pragma once

#include "ports/Consent.h"

#include <QString>

namespace zeph {

class UserDefaults;

/// One consent under its key of the settings: a number from 0 to 3. Anything else that is stored
/// there counts as not determined.
class StoredConsent : public Consent {
public:
    StoredConsent(UserDefaults &defaults, QString key);

    ConsentState state() const override;
    void set(ConsentState state) override;
    [[nodiscard]] Subscription subscribe(std::function<void()> handler) override;

private:
    UserDefaults &m_defaults;
    QString m_key;
    ChangePublisher m_changes;
};

} // namespace zeph
