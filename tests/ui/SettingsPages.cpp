// SPDX-License-Identifier: MIT
#include "ui/SettingsPages.h"

#include "app/SettingsTabs.h"
#include "services/accounts/IntegrationsStore.h"
#include "services/catalogue/ServiceCatalogue.h"
#include "ui/integrations/IntegrationsPane.h"

namespace zeph {

using namespace Qt::StringLiterals;
using PageKind = ui::IntegrationsSelection::Page;

namespace {

constexpr int integrationsTab = 1;

CustomAPIConfig sampleEndpoint() {
    return {QUuid::createUuid(),
            u"Signups"_s,
            u"https://api.example.org/v2/signups"_s,
            {{QUuid::createUuid(), u"X-Team"_s, u"northwind"_s}},
            {{QUuid::createUuid(), u"Signups today"_s, u"data.today"_s},
             {QUuid::createUuid(), u"Total"_s, u"data.total"_s}}};
}

} // namespace

SettingsPages::SettingsPages(const ui::SettingsContext &parts, const Background &background)
    : m_parts(parts), m_background(background) {}

SettingsPages::~SettingsPages() = default;

std::unique_ptr<ui::SettingsWindow> SettingsPages::open() {
    std::vector<ui::SettingsWindow::Tab> tabs = settingsTabs(m_parts, u"~/Desktop"_s, m_background);
    tabs[integrationsTab].make = [this] {
        auto pane = std::make_unique<ui::IntegrationsPane>(ui::IntegrationsContext::of(m_parts));
        m_integrations = pane.get();
        return pane;
    };
    auto window =
        std::make_unique<ui::SettingsWindow>(std::move(tabs), m_parts.appearance, m_parts.runLoop);
    m_window = window.get();
    return window;
}

void SettingsPages::addPanes() {
    const CustomAPIConfig endpoint = sampleEndpoint();
    m_parts.integrations.addConnection(u"stripe"_s, u"Main store"_s, std::nullopt);
    m_parts.integrations.addConnection(u"stripe"_s, u"Second store"_s, std::nullopt);
    m_parts.integrations.upsertCustomAPI(endpoint);
    const QStringList names{u"general"_s, u"integrations"_s, u"widgets"_s,
                            u"layout"_s,  u"permissions"_s,  u"about"_s};
    for (int tab = 0; tab < names.size(); ++tab) {
        m_pages.push_back({names[tab], [this, tab] {
                               m_window->showTab(tab);
                               if (tab == integrationsTab) {
                                   m_integrations->select({});
                               }
                           }});
    }
    addPage(u"accounts"_s, {.page = PageKind::accounts, .provider = u"stripe"_s});
    addPage(u"no accounts"_s, {.page = PageKind::accounts, .provider = u"polar"_s});
    addEndpoint(u"endpoint"_s, endpoint.id);
    addPage(u"new endpoint"_s, {.page = PageKind::endpoint});
    addPage(u"quote"_s, {.page = PageKind::quote});
}

void SettingsPages::addForms(const QStringList &services) {
    for (const ServiceRow &service : serviceCatalogue()) {
        const QString key = service.key;
        if (service.words && (services.isEmpty() || services.contains(key))) {
            const auto account =
                m_parts.integrations.addConnection(key, std::nullopt, std::nullopt);
            addAccount(key, account);
        }
    }
}

void SettingsPages::addAccount(const QString &name, const IntegrationConnection &account) {
    addPage(name, {.page = PageKind::account, .provider = account.provider, .id = account.id});
}

void SettingsPages::addEndpoint(const QString &name, const QUuid &id) {
    addPage(name, {.page = PageKind::endpoint, .id = id});
}

void SettingsPages::addPage(const QString &name, const ui::IntegrationsSelection &selection) {
    m_pages.push_back({name, [this, selection] {
                           m_window->showTab(integrationsTab);
                           m_integrations->select(selection);
                       }});
}

} // namespace zeph
