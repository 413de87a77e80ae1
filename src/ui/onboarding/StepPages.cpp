// SPDX-License-Identifier: MIT
#include "ui/onboarding/StepPages.h"

#include "host/OnboardingFlow.h"
#include "ui/controls/Logo.h"
#include "ui/controls/Look.h"
#include "ui/controls/SymbolView.h"
#include "ui/controls/TextLabel.h"
#include "ui/onboarding/BackgroundChoice.h"
#include "ui/onboarding/BackgroundChoices.h"
#include "ui/onboarding/PermissionPage.h"
#include "ui/onboarding/SourceList.h"
#include "ui/onboarding/TipList.h"

#include <QHBoxLayout>

namespace zeph::ui {

using namespace Qt::StringLiterals;

namespace {

constexpr double pageSymbol = 56;
constexpr double logoSize = 96;

SymbolView *pageHead(const QString &symbol) {
    return new SymbolView(symbol, pageSymbol, SymbolView::Ink::accent);
}

/// A text in the middle of a line of its own, at most `width` designed pixels wide.
QWidget *middle(const QString &text, TypeRole role, double width) {
    auto *row = new QWidget;
    auto *line = new QHBoxLayout(row);
    line->setContentsMargins(0, 0, 0, 0);
    auto *label = new TextLabel(text, role, TextLabel::Ink::second);
    label->setAlignment(Qt::AlignHCenter);
    label->setFixedWidth(scaled(width));
    line->addWidget(label);
    return row;
}

std::unique_ptr<StepPage> welcomePage() {
    auto page = std::make_unique<StepPage>(new Logo(logoSize), OnboardingWords::welcome());
    page->add(middle(OnboardingWords::promise(), TypeRole::lead, 344), 12);
    page->add(middle(OnboardingWords::announcement(), TypeRole::detail, 344), 14);
    return page;
}

std::unique_ptr<StepPage> permissionPage(const OnboardingWords::Permission &words,
                                         const StepActions &actions) {
    auto page = std::make_unique<PermissionPage>(words);
    page->onAllow = actions.allow;
    page->onOpenSettings = actions.openSettings;
    return page;
}

std::unique_ptr<StepPage> integrationsPage() {
    auto page = std::make_unique<StepPage>(pageHead(u"puzzlepiece.extension"_s),
                                           OnboardingWords::integrations());
    // Wider than what is below, so that it stays on one line.
    page->add(middle(OnboardingWords::keys(), TypeRole::body, 430), 9);
    page->add(new SourceList(OnboardingWords::sources()), 13);
    page->add(middle(OnboardingWords::later(), TypeRole::detail, 398), 12);
    return page;
}

std::unique_ptr<StepPage> customizingPage(const SettingsContext &context) {
    constexpr double higher = 26; // so that the pictures have room
    auto page =
        std::make_unique<StepPage>(pageHead(u"slider.horizontal.3"_s),
                                   OnboardingWords::customizing(), StepPage::usualTop - higher);
    auto *tips = new TipList(OnboardingWords::choices(), 12);
    tips->addBody(new BackgroundChoices(context), 12, BackgroundChoice::reach);
    page->add(tips, 18);
    return page;
}

std::unique_ptr<StepPage> finishPage() {
    auto page = std::make_unique<StepPage>(pageHead(u"sparkles"_s), OnboardingWords::finish());
    page->add(new TipList(OnboardingWords::whereThingsAre(), 21), 28);
    return page;
}

} // namespace

std::unique_ptr<StepPage> makeStepPage(OnboardingStep step, const SettingsContext &context,
                                       const StepActions &actions) {
    switch (step) {
    case OnboardingStep::input:
        return permissionPage(OnboardingWords::input(), actions);
    case OnboardingStep::location:
        return permissionPage(OnboardingWords::location(), actions);
    case OnboardingStep::integrations:
        return integrationsPage();
    case OnboardingStep::customizing:
        return customizingPage(context);
    case OnboardingStep::finish:
        return finishPage();
    case OnboardingStep::welcome:
        break;
    }
    return welcomePage();
}

} // namespace zeph::ui
