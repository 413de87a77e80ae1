// SPDX-License-Identifier: MIT
#include "ui/pages/EveryPageFixture.h"

#include "services/accounts/IntegrationsStore.h"
#include "services/catalogue/ServiceCatalogue.h"

#include <QApplication>
#include <QLayout>
#include <QScrollArea>

#include <array>

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

constexpr int manyAccounts = 200;
constexpr int manyEndpoints = 40;

/// Names that people and services give.
QString oddName(int number) {
    static const std::array<QString, 6> names{
        u"Very long name of a shop "_s.repeated(20), // 500 letters
        QString(500, u'W'),                          // and not one place to break it
        u"👩‍👩‍👧‍👦🏳️‍🌈🇨🇭🎉"_s.repeated(
            20),                                              // several code points a sign
        u"متجر النجارة في المدينة القديمة "_s.repeated(8),    // from right to left
        u"旅行の計画と東京の天気について"_s.repeated(12),     // no spaces
        u"<b>R&D</b>\n\t\u202E\u0301\u0301\u0301 50 % %1"_s}; // what could be taken for something
    return names[static_cast<std::size_t>(number) % names.size()];
}

} // namespace

/// The settings of someone with more of everything, and longer, than anyone has.
class HostileTest : public EveryPageFixture {
protected:
    HostileTest() {
        addAccounts();
        addEndpoints();
        addNames();
    }

    void addAccounts() {
        const auto services = serviceCatalogue();
        std::vector<StripeStats> told;
        for (int number = 0; number < manyAccounts; ++number) {
            const auto &service = services[static_cast<std::size_t>(number) % services.size()];
            const auto account =
                integrations.addConnection(service.key, oddName(number), oddName(number + 1));
            StripeStats failed;
            failed.connectionId = account.id;
            failed.error = oddName(number + 2);
            told.push_back(failed);
        }
        state.stripeStats = told;
    }

    void addEndpoints() {
        for (int number = 0; number < manyEndpoints; ++number) {
            CustomAPIConfig endpoint;
            endpoint.id = QUuid::createUuid();
            endpoint.name = oddName(number);
            endpoint.urlString = u"https://example.org/"_s + QString(480, u'a');
            for (int part = 0; part < 6; ++part) {
                endpoint.headers.push_back({QUuid::createUuid(), oddName(part), oddName(part + 1)});
                endpoint.fields.push_back(
                    {QUuid::createUuid(), oddName(part), u"data.%1"_s.arg(QString(200, u'x'))});
            }
            integrations.upsertCustomAPI(endpoint);
            last = endpoint.id;
        }
    }

    void addNames() {
        std::vector<CountdownEvent> events;
        std::vector<Screen> displays;
        for (int number = 0; number < 6; ++number) {
            events.push_back({QUuid::createUuid(), oddName(number), at(9, 0, 0, 6, number + 1)});
            Screen display = screen(QString::number(number), number + 1, 1920, 1080);
            display.name = oddName(number);
            displays.push_back(display);
        }
        preferences.setCountdowns(events);
        screens.change(displays);
    }

    /// Everything in the pane stands beside everything else, and within what is around it.
    void expectOrder(const QString &page) {
        const QWidget &all = *shownPane().widget();
        EXPECT_LE(all.width(), all.parentWidget()->width()) << page.toStdString();
        for (const QWidget *widget : all.findChildren<QWidget *>()) {
            const QWidget &parent = *widget->parentWidget();
            if (!widget->isVisible() || !parent.layout()) {
                continue;
            }
            EXPECT_TRUE(parent.rect().contains(widget->geometry())) << told(page, *widget);
            for (const QWidget *other :
                 parent.findChildren<QWidget *>(Qt::FindDirectChildrenOnly)) {
                const bool isLaidOut = parent.layout()->indexOf(other) >= 0;
                if (other > widget && other->isVisible() && isLaidOut &&
                    parent.layout()->indexOf(widget) >= 0) {
                    EXPECT_FALSE(widget->geometry().intersects(other->geometry()))
                        << told(page, *widget) << " and " << told(page, *other);
                }
            }
        }
    }

    static std::string told(const QString &page, const QWidget &widget) {
        const QRect place = widget.geometry();
        return u"%1: %2 “%3” at %4, %5, %6 × %7"_s
            .arg(page, QString::fromLatin1(widget.metaObject()->className()),
                 widget.accessibleName().left(20))
            .arg(place.x())
            .arg(place.y())
            .arg(place.width())
            .arg(place.height())
            .toStdString();
    }

    void expectOrderOnEachPage() {
        open();
        const QSize size = window->size();
        pages.addAccount(u"account"_s, integrations.connections().front());
        pages.addEndpoint(u"long endpoint"_s, last);
        for (const SettingsPages::Page &page : pages.pages()) {
            page.show();
            settle();
            expectOrder(page.name);
            EXPECT_EQ(window->size(), size) << page.name.toStdString();
        }
    }

    QUuid last;
};

TEST_F(HostileTest, nothingOverlapsOrGrowsTheWindow) {
    expectOrderOnEachPage();
    expectPictures(u"hostile"_s, {u"general"_s, u"integrations"_s, u"accounts"_s, u"account"_s,
                                  u"long endpoint"_s});
}

TEST_F(HostileTest, norFromRightToLeft) {
    QApplication::setLayoutDirection(Qt::RightToLeft);
    expectOrderOnEachPage();
}

TEST_F(HostileTest, norWithTwiceTheText) {
    setTextSize(20);
    expectOrderOnEachPage();
}

} // namespace zeph
