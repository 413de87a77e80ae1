// SPDX-License-Identifier: MIT
#include "adapters/bus/ObjectMirror.h"

#include "adapters/bus/FakeObjects.h"
#include "support/QtPrinters.h"

#include <QElapsedTimer>

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

const QString lamp = u"/lamp"_s;
const QString stove = u"/stove"_s;

class MirrorOnABus : public testing::Test {
protected:
    MirrorOnABus() {
        service.objects[lamp] = {{u"Watts"_s, 40}, {u"Colour"_s, u"red"_s}, {u"Unread"_s, 1}};
        service.objects[stove] = {{u"Watts"_s, 2000}};
    }

    ObjectMirror &mirrorOf(BusConnection &listener, std::size_t limit = 10) {
        mirror = std::make_unique<ObjectMirror>(
            listener.bus(), FakeObjects::name(),
            std::vector<MirroredInterface>{{FakeObjects::interface(), {u"Watts"_s, u"Colour"_s}}},
            limit, [this] {
                ++appearances;
                for (const QString &path : toRead) {
                    mirror->read(path, FakeObjects::interface());
                }
            });
        changes = mirror->onChange([this] { ++news; });
        return *mirror;
    }
    ObjectMirror &listen() { return mirrorOf(client); }
    bool settles() {
        return eventually([&] { return mirror->isSettled(); });
    }
    std::optional<QVariantMap> known(const QString &path) const {
        const QVariantMap *const properties = mirror->properties(path, FakeObjects::interface());
        return properties == nullptr ? std::nullopt : std::optional(*properties);
    }
    bool hasWatts(const QString &path, int watts) {
        return eventually([&] {
            const auto properties = known(path);
            return properties && properties->value(u"Watts"_s) == watts;
        });
    }

    PrivateBus bus;
    FakeObjects service{bus.address()};
    BusConnection client{bus.address()};
    QStringList toRead{lamp, stove};
    int appearances = 0;
    int news = 0;
    std::unique_ptr<ObjectMirror> mirror;
    Subscription changes;
};

TEST_F(MirrorOnABus, isEmptyWithoutTheService) {
    listen();
    EXPECT_FALSE(mirror->isSettled());
    EXPECT_TRUE(settles());
    EXPECT_EQ(known(lamp), std::nullopt);
    EXPECT_FALSE(mirror->contains(lamp, FakeObjects::interface()));
    EXPECT_EQ(appearances, 0);
    EXPECT_EQ(news, 1) << "that it is not there";
}

TEST_F(MirrorOnABus, isEmptyWithoutABus) {
    bus.stop();
    BusConnection nowhere(bus.address());
    mirrorOf(nowhere);
    EXPECT_TRUE(mirror->isSettled());
    mirror->read(lamp, FakeObjects::interface());
    EXPECT_TRUE(mirror->isSettled());
    EXPECT_EQ(known(lamp), std::nullopt);
}

TEST_F(MirrorOnABus, asksEachObjectOnceAndKeepsWhatIsOfInterest) {
    service.appear();
    listen();
    EXPECT_TRUE(eventually([&] { return known(lamp) && known(stove); }));
    EXPECT_TRUE(settles());
    EXPECT_EQ(known(lamp), (QVariantMap{{u"Watts"_s, 40}, {u"Colour"_s, u"red"_s}}));
    EXPECT_EQ(known(stove), (QVariantMap{{u"Watts"_s, 2000}}));
    EXPECT_EQ(mirror->paths(FakeObjects::interface()), (QStringList{lamp, stove}));
    EXPECT_EQ(service.questions, 2);
}

TEST_F(MirrorOnABus, findsAServiceThatComesLater) {
    listen();
    ASSERT_TRUE(settles());
    service.appear();
    EXPECT_TRUE(hasWatts(lamp, 40));
    EXPECT_EQ(appearances, 1);
}

TEST_F(MirrorOnABus, followsTheSignalsWithoutAsking) {
    service.appear();
    listen();
    ASSERT_TRUE(hasWatts(stove, 2000));
    const int before = news;
    service.change(lamp, {{u"Unread"_s, 2}});
    service.change(u"/elsewhere"_s, {{u"Watts"_s, 1}});
    service.change(lamp, {{u"Watts"_s, 60}});
    EXPECT_TRUE(hasWatts(lamp, 60));
    EXPECT_EQ(known(lamp)->value(u"Colour"_s), u"red"_s);
    EXPECT_EQ(news, before + 1) << "the others are of no interest";
    EXPECT_EQ(service.questions, 2);
}

TEST_F(MirrorOnABus, asksForAValueThatCameByNameOnly) {
    service.appear();
    listen();
    ASSERT_TRUE(hasWatts(stove, 2000));
    service.change(lamp, {}, {u"Unread"_s});
    service.objects[lamp][u"Watts"_s] = 75;
    service.change(lamp, {}, {u"Watts"_s});
    EXPECT_TRUE(hasWatts(lamp, 75));
    EXPECT_EQ(service.questions, 3);
}

TEST_F(MirrorOnABus, tellsEveryListener) {
    service.appear();
    listen();
    ASSERT_TRUE(hasWatts(stove, 2000));
    int others = 0;
    const auto other = mirror->onChange([&] { ++others; });
    service.change(lamp, {{u"Watts"_s, 60}});
    EXPECT_TRUE(hasWatts(lamp, 60));
    EXPECT_EQ(others, 1);
}

TEST_F(MirrorOnABus, forgetsAServiceThatGoesAndReadsTheNextOneAfresh) {
    service.appear();
    listen();
    ASSERT_TRUE(hasWatts(lamp, 40));
    service.vanish();
    EXPECT_TRUE(eventually([&] { return !known(lamp) && !known(stove); }));
    EXPECT_TRUE(mirror->isSettled());
    service.objects[lamp] = {{u"Watts"_s, 11}};
    service.appear();
    EXPECT_TRUE(hasWatts(lamp, 11));
    EXPECT_FALSE(known(lamp)->contains(u"Colour"_s));
    EXPECT_EQ(appearances, 2);
}

TEST_F(MirrorOnABus, believesOnlyTheOwnerOfTheName) {
    service.appear();
    listen();
    ASSERT_TRUE(hasWatts(lamp, 40));
    BusConnection stranger(bus.address());
    QDBusMessage lie = QDBusMessage::createSignal(lamp, u"org.freedesktop.DBus.Properties"_s,
                                                  u"PropertiesChanged"_s);
    lie << FakeObjects::interface() << QVariantMap{{u"Watts"_s, 1}} << QStringList();
    stranger.bus().send(lie);
    // Its answer comes after its signal, and the signal below after that.
    stranger.bus().call(QDBusMessage::createMethodCall(u"org.freedesktop.DBus"_s, u"/"_s,
                                                       u"org.freedesktop.DBus"_s, u"GetId"_s));
    service.change(stove, {{u"Watts"_s, 5}});
    EXPECT_TRUE(hasWatts(stove, 5));
    EXPECT_TRUE(hasWatts(lamp, 40));
}

TEST_F(MirrorOnABus, knowsNothingOfAnObjectThatRefuses) {
    service.objects.erase(stove);
    service.appear();
    listen();
    EXPECT_TRUE(eventually([&] { return service.questions == 2; }));
    EXPECT_TRUE(settles());
    EXPECT_EQ(known(stove), std::nullopt);
    EXPECT_TRUE(mirror->contains(stove, FakeObjects::interface())) << "it was asked";
    EXPECT_FALSE(mirror->isAwaited(stove, FakeObjects::interface()));
    EXPECT_TRUE(known(lamp));
}

TEST_F(MirrorOnABus, asksAnObjectThatRefusedOnceMoreWhenItTellsAChange) {
    service.objects.erase(stove);
    service.appear();
    listen();
    EXPECT_TRUE(eventually([&] { return service.questions == 2; }));
    EXPECT_TRUE(settles());
    service.objects[stove] = {{u"Watts"_s, 1500}, {u"Colour"_s, u"white"_s}};
    service.change(stove, {{u"Unread"_s, 2}});
    service.change(stove, {{u"Watts"_s, 1800}});
    EXPECT_TRUE(hasWatts(stove, 1800));
    EXPECT_EQ(known(stove)->value(u"Colour"_s), u"white"_s);
    EXPECT_EQ(service.questions, 3);
}

TEST_F(MirrorOnABus, survivesAnswersOfOtherTypes) {
    for (const QVariant &answer :
         {QVariant(u"text"_s), QVariant(5), QVariant(QStringList{u"a"_s})}) {
        service.instead = answer;
        service.questions = 0;
        service.appear();
        listen();
        EXPECT_TRUE(eventually([&] { return service.questions == 2; }));
        EXPECT_TRUE(settles());
        EXPECT_EQ(known(lamp), std::nullopt);
        std::optional<QVariant> told;
        bool isTold = false;
        mirror->ask(lamp, FakeObjects::interface(), u"Anything"_s, u"ao"_s,
                    [&](const std::optional<QVariant> &result) {
                        told = result;
                        isTold = true;
                    });
        EXPECT_TRUE(eventually([&] { return isTold; }));
        EXPECT_EQ(told, std::nullopt);
        service.vanish();
    }
}

TEST_F(MirrorOnABus, neverWaitsForAServiceThatDoesNotAnswer) {
    service.isMute = true;
    service.appear();
    QElapsedTimer taken;
    taken.start();
    listen();
    EXPECT_LT(taken.elapsed(), 2'000) << "a waiting call would take 25 s";
    EXPECT_TRUE(eventually([&] { return service.questions == 2; }));
    EXPECT_FALSE(mirror->isSettled());
    EXPECT_TRUE(mirror->isAwaited(lamp, FakeObjects::interface()));
    for (int times = 0; times < 100; ++times) {
        mirror->read(lamp, FakeObjects::interface());
    }
    service.answerLate();
    EXPECT_TRUE(hasWatts(lamp, 40));
    EXPECT_TRUE(settles());
    EXPECT_EQ(service.questions, 3) << "asked once more for all the times";
}

TEST_F(MirrorOnABus, neverWaitsForABusThatDoesNotAnswer) {
    service.appear();
    bus.freeze();
    QElapsedTimer taken;
    taken.start();
    listen();
    EXPECT_LT(taken.elapsed(), 2'000);
    taken.start();
    changes = {};
    mirror.reset();
    EXPECT_LT(taken.elapsed(), 2'000);
    listen();
    bus.thaw();
    EXPECT_TRUE(hasWatts(lamp, 40));
}

TEST_F(MirrorOnABus, dropsTheAnswersOfAnEarlierOwner) {
    service.isMute = true;
    service.appear();
    listen();
    ASSERT_TRUE(eventually([&] { return service.questions == 2; }));
    service.vanish();
    ASSERT_TRUE(settles());
    service.isMute = false;
    service.appear();
    EXPECT_TRUE(hasWatts(lamp, 40));
    EXPECT_EQ(service.questions, 4);
}

TEST_F(MirrorOnABus, dropsAnObjectThatVanishesWhileItIsRead) {
    service.isMute = true;
    service.appear();
    listen();
    ASSERT_TRUE(eventually([&] { return service.questions == 2; }));
    mirror->drop(lamp);
    service.answerLate();
    EXPECT_TRUE(hasWatts(stove, 2000));
    EXPECT_TRUE(settles());
    EXPECT_EQ(known(lamp), std::nullopt);
    EXPECT_EQ(mirror->paths(FakeObjects::interface()), QStringList{stove});
}

TEST_F(MirrorOnABus, keepsNoMoreObjectsThanItsLimit) {
    toRead.clear();
    for (int index = 0; index < 50; ++index) {
        toRead << u"/many/"_s + QString::number(index);
        service.objects[toRead.last()] = {{u"Watts"_s, index}};
    }
    service.appear();
    mirrorOf(client, 7);
    EXPECT_TRUE(eventually([&] { return service.questions == 7; }));
    EXPECT_TRUE(settles());
    EXPECT_EQ(mirror->paths(FakeObjects::interface()).size(), 7);
}

TEST_F(MirrorOnABus, isEmptyAfterTheBusHasGone) {
    service.appear();
    listen();
    ASSERT_TRUE(hasWatts(lamp, 40));
    bus.stop();
    ASSERT_TRUE(eventually([&] { return !client.bus().isConnected(); }));
    mirror->read(lamp, FakeObjects::interface());
    EXPECT_TRUE(settles());
    EXPECT_EQ(known(lamp), std::nullopt);
}

} // namespace

} // namespace zeph
