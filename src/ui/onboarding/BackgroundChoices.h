// SPDX-License-Identifier: MIT
#pragma once

#include "base/ChangePublisher.h"
#include "base/WorkOwner.h"
#include "settings/PreferenceChoices.h"
#include "ui/settings/SettingsContext.h"

#include <QWidget>

#include <vector>

namespace zeph::ui {

class BackgroundChoice;

/// The wallpaper as it is now on each kind of background, to choose one by its picture. What is
/// chosen is on the desktop at once.
class BackgroundChoices : public QWidget {
public:
    explicit BackgroundChoices(const SettingsContext &context, QWidget *parent = nullptr);

private:
    void add(BackgroundMode mode, const QString &name);
    void refreshSoon();
    void refresh();

    SettingsContext m_context;
    std::vector<BackgroundChoice *> m_choices;
    bool m_refreshes = false; // a refresh is pending
    bool m_isShowing = false; // what is stored, which must not be stored again
    WorkOwner m_refreshing;
    Subscription m_subscription;
};

} // namespace zeph::ui
