// SPDX-License-Identifier: MIT
#include "host/OnboardingFlow.h"

#include "host/PermissionWords.h"
#include "host/PermissionsManager.h"
#include "ports/SystemSettings.h"

#include <QUrl>

#include <utility>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

PermissionState inputOffer(const PermissionsManager &permissions) {
    return inputState(*permissions.accessibilityGranted, permissions.canCountKeys(),
                      permissions.inputConsentTellsFront());
}

} // namespace

OnboardingFlow::OnboardingFlow(std::shared_ptr<PermissionsManager> permissions,
                               SystemSettings &settings, std::function<void()> onDone)
    : m_permissions(std::move(permissions)), m_settings(settings), m_onDone(std::move(onDone)) {}

void OnboardingFlow::goBack() {
    if (hasBack()) {
        m_step = static_cast<OnboardingStep>(number() - 1);
    }
}

QString OnboardingFlow::mainTitle() const {
    return isLast() ? u"Start using Tavi"_s : u"Continue"_s;
}

void OnboardingFlow::goOn() {
    if (isLast()) {
        const auto done = m_onDone; // which may end this flow
        done();
    } else {
        m_step = static_cast<OnboardingStep>(number() + 1);
    }
}

bool OnboardingFlow::asks() const {
    return m_step == OnboardingStep::location ||
           (m_step == OnboardingStep::input && inputOffer(*m_permissions).isOffered);
}

QString OnboardingFlow::note() const {
    return m_step == OnboardingStep::input ? inputOffer(*m_permissions).note : QString();
}

bool OnboardingFlow::isGranted() const {
    switch (m_step) {
    case OnboardingStep::input:
        return *m_permissions->accessibilityGranted;
    case OnboardingStep::location:
        return *m_permissions->locationGranted;
    default:
        return false;
    }
}

bool OnboardingFlow::offersSettings() const {
    // Where there is a page for the location, asking for it opens that page as well.
    return m_step == OnboardingStep::input && asks() &&
           hasPage(PermissionsManager::accessibilityLink());
}

void OnboardingFlow::refresh() {
    m_permissions->refresh();
}

void OnboardingFlow::allow() {
    if (m_step == OnboardingStep::input) {
        m_permissions->requestAccessibility();
    } else if (m_step == OnboardingStep::location) {
        m_permissions->requestLocation();
        openPage(PermissionsManager::locationLink());
    }
}

void OnboardingFlow::openSettings() {
    if (offersSettings()) {
        openPage(PermissionsManager::accessibilityLink());
    }
}

bool OnboardingFlow::hasPage(const QString &link) const {
    return m_settings.canOpen(QUrl(link));
}

void OnboardingFlow::openPage(const QString &link) {
    if (hasPage(link)) {
        m_settings.open(QUrl(link));
    }
}

} // namespace zeph
