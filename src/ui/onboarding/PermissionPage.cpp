// SPDX-License-Identifier: MIT
#include "ui/onboarding/PermissionPage.h"

#include "host/OnboardingFlow.h"
#include "ui/controls/Look.h"
#include "ui/controls/PillButton.h"
#include "ui/controls/SymbolView.h"
#include "ui/controls/TextLabel.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

namespace zeph::ui {

using namespace Qt::StringLiterals;

namespace {

constexpr double symbolSize = 56;
constexpr double belowTitle = 12;
constexpr double belowReason = 12;
constexpr double belowNote = 16;
constexpr double belowAllow = 13;
constexpr double answerHeight = 40; // that of the button, so that nothing moves without it
constexpr double optionalWidth = 340;
constexpr double optionalAbove = 36;         // above the footer's room
constexpr double optionalAboveWithNote = 24; // which takes some of it

QWidget *allowedLabel(QWidget *parent) {
    auto *label = new QWidget(parent);
    auto *row = new QHBoxLayout(label);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(scaled(11));
    row->addWidget(new SymbolView(u"checkmark.circle.fill"_s, 20, SymbolView::Ink::ok, label));
    auto *text =
        new TextLabel(OnboardingWords::allowed(), TypeRole::strong, TextLabel::Ink::ink, label);
    text->setWordWrap(false);
    row->addWidget(text);
    return label;
}

TextLabel *centered(const QString &text, TypeRole role, TextLabel::Ink ink) {
    auto *label = new TextLabel(text, role, ink);
    label->setAlignment(Qt::AlignHCenter);
    return label;
}

} // namespace

PermissionPage::PermissionPage(const OnboardingWords::Permission &words, QWidget *parent)
    : StepPage(new SymbolView(words.symbol, symbolSize, SymbolView::Ink::accent), words.title,
               usualTop, parent),
      m_reason(words.reason),
      m_allow(new PillButton(OnboardingWords::allow(), PillButton::Kind::primary)),
      m_allowed(allowedLabel(nullptr)),
      m_note(centered({}, TypeRole::detail, TextLabel::Ink::second)),
      m_hindrance(centered({}, TypeRole::detail, TextLabel::Ink::second)),
      m_openSettings(new PillButton(OnboardingWords::openSettings(), PillButton::Kind::plain)),
      m_lowest(new QWidget) {
    m_hindrance->setFixedWidth(scaled(optionalWidth));
    m_allow->setHeight(PillButton::Height::large);
    connect(m_allow, &PillButton::clicked, this, [this] { onAllow(); });
    connect(m_openSettings, &PillButton::clicked, this, [this] { onOpenSettings(); });
    add(centered(words.reason, TypeRole::lead, TextLabel::Ink::second), belowTitle);
    add(m_note, belowReason);
    add(answer(), belowNote);
    auto *optional =
        centered(OnboardingWords::optional(), TypeRole::detail, TextLabel::Ink::second);
    optional->setFixedWidth(scaled(optionalWidth));
    auto *middle = new QHBoxLayout(m_lowest);
    middle->addWidget(optional);
    addLowest(m_lowest, 0);
}

/// The button, or in its place that it isn't needed any more; below it the other way.
QWidget *PermissionPage::answer() {
    auto *answer = new QWidget;
    auto *column = new QVBoxLayout(answer);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    auto *place = new QWidget;
    place->setMinimumHeight(scaled(answerHeight));
    auto *row = new QHBoxLayout(place);
    row->setContentsMargins(0, 0, 0, 0);
    row->addStretch(1);
    row->addWidget(m_allow);
    row->addWidget(m_allowed);
    row->addWidget(m_hindrance);
    row->addStretch(1);
    column->addWidget(place);
    column->addSpacing(scaled(belowAllow));
    column->addWidget(m_openSettings, 0, Qt::AlignHCenter);
    return answer;
}

void PermissionPage::refresh(const OnboardingFlow &flow) {
    const bool isGranted = flow.isGranted();
    const QString note = flow.note();
    const bool explains = flow.asks() && !note.isEmpty();
    m_note->setText(note);
    m_note->setVisible(explains);
    m_lowest->layout()->setContentsMargins(
        0, 0, 0, scaled(explains ? optionalAboveWithNote : optionalAbove));
    m_allow->setAccessibleDescription(note.isEmpty() ? m_reason : m_reason + u' ' + note);
    m_allow->setVisible(!isGranted && flow.asks());
    m_hindrance->setText(note);
    m_hindrance->setVisible(!isGranted && !flow.asks());
    m_allowed->setVisible(isGranted);
    m_openSettings->setVisible(!isGranted && flow.offersSettings());
}

} // namespace zeph::ui
