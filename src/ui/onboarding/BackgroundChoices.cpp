// SPDX-License-Identifier: MIT
#include "ui/onboarding/BackgroundChoices.h"

#include "ports/RunLoop.h"
#include "settings/PreferencesStore.h"
#include "ui/controls/Look.h"
#include "ui/onboarding/BackgroundChoice.h"
#include "ui/onboarding/OnboardingWords.h"

#include <QHBoxLayout>

#include <utility>

namespace zeph::ui {

using namespace Qt::StringLiterals;

namespace {

constexpr double betweenPictures = 14;

} // namespace

BackgroundChoices::BackgroundChoices(const SettingsContext &context, QWidget *parent)
    : QWidget(parent),
      m_context(context),
      m_subscription(context.preferences.objectWillChange.subscribe([this] { refreshSoon(); })) {
    setAccessibleName(OnboardingWords::background());
    auto *row = new QHBoxLayout(this);
    // The rings reach out of the pictures, which stand in line with the sentences above.
    const int reach = scaled(BackgroundChoice::reach);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(scaled(betweenPictures) - 2 * reach);
    row->setAlignment(Qt::AlignLeading);
    add(BackgroundMode::solid, u"Solid"_s);
    add(BackgroundMode::automatic, u"Time of day"_s);
    add(BackgroundMode::transparent, u"Transparent"_s);
    refresh();
}

void BackgroundChoices::add(BackgroundMode mode, const QString &name) {
    auto *choice = new BackgroundChoice(m_context, mode, name, this);
    layout()->addWidget(choice);
    m_choices.push_back(choice);
    connect(choice, &QRadioButton::toggled, this, [this, mode](bool isChosen) {
        if (isChosen && !m_isShowing) {
            m_context.preferences.setBackgroundMode(mode);
        }
    });
}

void BackgroundChoices::refreshSoon() {
    if (!std::exchange(m_refreshes, true)) {
        m_context.runLoop.post(m_refreshing.whileAlive([this] { refresh(); }));
    }
}

void BackgroundChoices::refresh() {
    m_refreshes = false;
    m_isShowing = true;
    for (BackgroundChoice *choice : m_choices) {
        if (choice->mode() == m_context.preferences.backgroundMode()) {
            choice->setChecked(true);
        }
    }
    m_isShowing = false;
}

} // namespace zeph::ui
