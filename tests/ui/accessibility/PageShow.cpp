// SPDX-License-Identifier: MIT
#include "ui/accessibility/PageShow.h"

#include "app/SettingsTabs.h"
#include "services/accounts/IntegrationsStore.h"
#include "services/catalogue/ServiceCatalogue.h"
#include "ui/integrations/IntegrationsPane.h"

#include <QAction>

namespace zeph {

using namespace Qt::StringLiterals;
using FormPage = ui::IntegrationsSelection::Page;

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

PageShow::PageShow(const ui::SettingsContext &parts, const Background &background)
    : m_parts(parts), m_background(background) {}

PageShow::~PageShow() = default;

std::unique_ptr<QWidget> PageShow::open(bool ofAccounts) {
    std::vector<ui::SettingsWindow::Tab> tabs = settingsTabs(m_parts, u"~/Desktop"_s, m_background);
    tabs[integrationsTab].make = [this] {
        auto pane = std::make_unique<ui::IntegrationsPane>(ui::IntegrationsContext::of(m_parts));
        m_integrations = pane.get();
        return pane;
    };
    auto window =
        std::make_unique<ui::SettingsWindow>(std::move(tabs), m_parts.appearance, m_parts.runLoop);
    m_window = window.get();
    ofAccounts ? addForms() : addTabs();
    auto *onward = new QAction(m_window);
    onward->setShortcut(Qt::Key_F12);
    QObject::connect(onward, &QAction::triggered, m_window, [this] { next(); });
    m_window->addAction(onward);
    next();
    m_window->show();
    return window;
}

void PageShow::addTabs() {
    const CustomAPIConfig endpoint = sampleEndpoint();
    m_parts.integrations.addConnection(u"stripe"_s, u"Main store"_s, std::nullopt);
    m_parts.integrations.addConnection(u"stripe"_s, u"Second store"_s, std::nullopt);
    m_parts.integrations.upsertCustomAPI(endpoint);
    const QStringList names{u"general"_s, u"integrations"_s, u"widgets"_s,
                            u"layout"_s,  u"permissions"_s,  u"about"_s};
    for (int tab = 0; tab < names.size(); ++tab) {
        m_pages.push_back({names[tab], [this, tab] { m_window->showTab(tab); }});
    }
    addForm(u"accounts"_s, {.page = FormPage::accounts, .provider = u"stripe"_s});
    addForm(u"no accounts"_s, {.page = FormPage::accounts, .provider = u"polar"_s});
    addForm(u"endpoint"_s, {.page = FormPage::endpoint, .id = endpoint.id});
    addForm(u"new endpoint"_s, {.page = FormPage::endpoint});
    addForm(u"quote"_s, {.page = FormPage::quote});
}

void PageShow::addForms() {
    for (const ServiceRow &service : serviceCatalogue()) {
        if (service.words) {
            const QString key = service.key;
            const auto account =
                m_parts.integrations.addConnection(key, std::nullopt, std::nullopt);
            addForm(key, {.page = FormPage::account, .provider = key, .id = account.id});
        }
    }
}

void PageShow::addForm(const QString &name, const ui::IntegrationsSelection &selection) {
    m_pages.push_back({name, [this, selection] {
                           m_window->showTab(integrationsTab);
                           m_integrations->select(selection);
                       }});
}

void PageShow::next() {
    if (m_shown < m_pages.size()) {
        const Page &page = m_pages[m_shown++];
        page.show();
        m_window->setWindowTitle(page.name);
    } else {
        m_window->setWindowTitle(u"end"_s);
    }
}

} // namespace zeph
