// SPDX-License-Identifier: MIT
#include "services/transfer/SettingsFile.h"

#include "services/accounts/StoreFixture.h"
#include "settings/PreferencesStore.h"
#include "support/FakeFormatters.h"

using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

namespace zeph {

namespace {

/// One computer with its settings and its keyring.
class Computer : public StoreFixture {
public:
    Computer() { launchAndSettle(); }
    void TestBody() override {}

    QByteArray exported() const { return SettingsFile::exported(preferences, *store); }

    SettingsFile::Imported import(const QByteArray &bytes) {
        const auto read = SettingsFile::read(bytes);
        const auto *const settings = std::get_if<TransferredSettings>(&read);
        EXPECT_TRUE(settings);
        const auto imported =
            SettingsFile::take(settings ? *settings : TransferredSettings(), preferences, *store);
        settle();
        return imported;
    }

    IntegrationConnection addKept(const QString &provider, const QString &extra = {}) {
        const auto account = add(provider, extra);
        store->setSecret(u"sk_secret"_s, account.id);
        settle();
        return account;
    }

    CustomAPIConfig addEndpoint() {
        const CustomAPIConfig config{QUuid::createUuid(),
                                     u"Signups"_s,
                                     u"https://a.org/x?token=sk_secret"_s,
                                     {{QUuid::createUuid(), u"X-Key"_s, u"sk_secret"_s}},
                                     {{QUuid::createUuid(), u"Count"_s, u"count"_s}}};
        store->upsertCustomAPI(config);
        settle();
        return config;
    }

    /// Sets every preference to something else than it is at first.
    void choose() {
        preferences.set(WidgetPlacement::off, WidgetKind::clock);
        preferences.setSize(WidgetSizeOption::large, WidgetKind::weather);
        preferences.setLayoutMode(WidgetLayoutMode::manual);
        preferences.setCustomOrder({u"weather"_s, u"meeting"_s});
        preferences.setBackgroundMode(BackgroundMode::transparent);
        preferences.setBackgroundHex(u"#102030"_s);
        preferences.setTransparentDim(0.75);
        preferences.setUseSystemNumberFormat(true);
        preferences.setUnitSystem(UnitSystem::imperial);
        preferences.setUse24HourClock(true);
        preferences.setDisplaySelection(OneScreen{u"ACM P27 1"_s});
        preferences.setDesktopSelection(SomeDesktops{{1, 3}});
        preferences.setCountdowns(
            {{QUuid::createUuid(), u"Trip"_s, Date{1.5e9}, CountdownRecurrence::yearly}});
        store->setQuoteEnabled(false);
    }

    using StoreFixture::add;
    using StoreFixture::defaults;
    using StoreFixture::launchAfterEnd;
    using StoreFixture::launchAndSettle;
    using StoreFixture::secrets;
    using StoreFixture::settle;
    using StoreFixture::store;
    FakeFormatters formatters;
    PreferencesStore preferences{defaults, notifications, formatters};
};

class SettingsFileTest : public testing::Test {
protected:
    Computer here;
    Computer there;
};

TEST_F(SettingsFileTest, carriesEveryPreferenceOver) {
    here.choose();
    there.import(here.exported());
    EXPECT_EQ(there.exported(), here.exported());
    for (const auto &key :
         {u"zeph.widgets.placements"_s, u"zeph.widgets.sizes"_s, u"zeph.widgets.layoutMode"_s,
          u"zeph.widgets.customOrder"_s, u"zeph.background.mode"_s, u"zeph.background.hex"_s,
          u"zeph.background.transparentDim"_s, u"zeph.numbers.system"_s, u"zeph.units"_s,
          u"zeph.clock.24h"_s, u"zeph.display.selection"_s, u"zeph.desktop.selection"_s,
          u"zeph.countdowns"_s, u"zeph.integrations.quote.enabled"_s}) {
        EXPECT_TRUE(there.defaults.value(key)) << key.toStdString();
        EXPECT_EQ(there.defaults.value(key), here.defaults.value(key)) << key.toStdString();
    }
}

TEST_F(SettingsFileTest, importedWhereItCameFromChangesNothing) {
    here.choose();
    here.addKept(u"stripe"_s);
    here.addEndpoint();
    const auto connections = here.store->connections();
    const auto endpoints = here.store->customAPIs();
    const auto entries = here.secrets.entries();
    EXPECT_EQ(here.import(here.exported()), SettingsFile::Imported());
    EXPECT_EQ(here.store->connections(), connections);
    EXPECT_TRUE(here.store->isReady(connections.front()));
    EXPECT_EQ(here.store->customAPIs(), endpoints) << "with the values of their headers";
    EXPECT_EQ(here.secrets.entries(), entries);
}

TEST_F(SettingsFileTest, holdsNoSecret) {
    here.addKept(u"stripe"_s);
    here.addKept(u"github"_s, u"octavia"_s);
    here.addEndpoint();
    const QByteArray file = here.exported();
    EXPECT_FALSE(file.contains("sk_secret")) << file.data();
    EXPECT_TRUE(file.contains("octavia") && file.contains("X-Key"));
}

TEST_F(SettingsFileTest, holdsNoConsentAndNothingOfThisComputer) {
    here.defaults.set(u"zeph.consent.input"_s, 3.0);
    here.defaults.set(u"zeph.calendar.titles"_s, true);
    here.defaults.set(u"zeph.desktop.hideIcons"_s, true);
    const QByteArray file = here.exported();
    EXPECT_FALSE(file.contains("consent") || file.contains("titles") || file.contains("hideIcons"));
    there.import(file);
    EXPECT_EQ(there.defaults.value(u"zeph.consent.input"_s), std::nullopt);
}

TEST_F(SettingsFileTest, accountsWaitForTheirKeysAndThoseWithoutOneAreReady) {
    const auto stripe = here.addKept(u"stripe"_s);
    const auto reddit = here.add(u"reddit"_s, u"brindle"_s);
    here.store->markReady(reddit.id);
    const auto imported = there.import(here.exported());
    EXPECT_THAT(there.store->connections(), ElementsAre(stripe, reddit));
    EXPECT_EQ(imported.accountsWithoutKey, 1U);
    EXPECT_FALSE(there.store->isReady(stripe));
    EXPECT_TRUE(there.store->isReady(reddit));
    EXPECT_THAT(there.secrets.takeCalls(), IsEmpty()) << "nobody is asked for a password";
}

TEST_F(SettingsFileTest, aSecondImportAddsNothing) {
    here.addKept(u"stripe"_s);
    here.addEndpoint();
    there.import(here.exported());
    there.import(here.exported());
    EXPECT_THAT(there.store->connections(), SizeIs(1));
    EXPECT_THAT(there.store->customAPIs(), SizeIs(1));
}

TEST_F(SettingsFileTest, whatIsThereAlreadyStays) {
    here.addKept(u"stripe"_s);
    const auto own = there.addKept(u"polar"_s);
    const auto endpoint = there.addEndpoint();
    there.import(here.exported());
    EXPECT_THAT(there.store->connections(), SizeIs(2));
    EXPECT_TRUE(there.store->isReady(own));
    EXPECT_THAT(there.store->customAPIs(), ElementsAre(endpoint));
}

TEST_F(SettingsFileTest, endpointsComeWithEmptyHeaders) {
    auto endpoint = here.addEndpoint();
    const auto imported = there.import(here.exported());
    endpoint.urlString = u"https://a.org/x?token="_s;
    endpoint.headers.front().value.clear();
    EXPECT_THAT(there.store->customAPIs(), ElementsAre(endpoint));
    EXPECT_EQ(imported.headersWithoutValue, 1U);
    there.launchAndSettle();
    EXPECT_THAT(there.store->customAPIs(), ElementsAre(endpoint)) << "the keyring has them";
}

TEST_F(SettingsFileTest, neverSendsAKeptHeaderToAnotherAddress) {
    const auto own = here.addEndpoint();
    const QByteArray file = here.exported().replace("https://a.org/x", "https://evil.org/x");
    here.import(file);
    ASSERT_THAT(here.store->customAPIs(), SizeIs(2));
    EXPECT_EQ(here.store->customAPIs()[0], own);
    EXPECT_NE(here.store->customAPIs()[1].id, own.id);
    EXPECT_EQ(here.store->customAPIs()[1].urlString, u"https://evil.org/x?token="_s);
    EXPECT_EQ(here.store->customAPIs()[1].headers.front().value, u""_s);
}

TEST_F(SettingsFileTest, leavesEndpointsOutWhileTheKeyringHidesThoseThatAreThere) {
    here.addEndpoint();
    here.addKept(u"stripe"_s);
    const auto own = there.addEndpoint();
    there.secrets.answer(SecretOutcome::refused);
    there.launchAndSettle();
    const auto imported = there.import(here.exported());
    EXPECT_TRUE(imported.areEndpointsLeftOut);
    EXPECT_THAT(there.store->connections(), SizeIs(1));
    there.secrets.answer(SecretOutcome::done);
    there.launchAndSettle();
    EXPECT_THAT(there.store->customAPIs(), ElementsAre(own));
}

TEST_F(SettingsFileTest, anOrderThatWasResetStaysReset) {
    there.preferences.setCustomOrder({u"weather"_s});
    there.import(here.exported());
    EXPECT_EQ(there.defaults.value(u"zeph.widgets.customOrder"_s), std::nullopt);
}

TEST_F(SettingsFileTest, whatAFileLeavesOutStaysAsItIs) {
    there.choose();
    const QByteArray before = there.exported();
    there.import(R"({"format":"tavi-settings","version":1})");
    EXPECT_EQ(there.exported(), before);
}

TEST(SettingsFileSummary, tellsWhatIsLeftToDo) {
    EXPECT_EQ(SettingsFile::summary({}), u"The settings were imported."_s);
    EXPECT_EQ(SettingsFile::summary({1, 0, false}),
              u"The settings were imported. One account waits for its key."_s);
    EXPECT_EQ(SettingsFile::summary({3, 2, false}),
              u"The settings were imported. 3 accounts wait for their keys. The headers of custom "
              "endpoints wait for their values."_s);
    EXPECT_EQ(SettingsFile::summary({0, 0, true}),
              u"The settings were imported. Custom endpoints were left out, since the keyring is "
              "locked."_s);
}

} // namespace

} // namespace zeph
