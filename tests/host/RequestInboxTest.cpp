// SPDX-License-Identifier: MIT
#include "app/RequestInbox.h"

#include "adapters/bus/ApplicationRequest.h"

#include <QFile>
#include <QRegularExpression>

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

using Kind = ApplicationRequest::Kind;
using testing::ElementsAre;
using testing::IsEmpty;

class RequestInboxTest : public testing::Test {
protected:
    static ApplicationRequest action(const QString &name) {
        return {.kind = Kind::action, .action = name};
    }

    void deliver(RequestInbox &inbox) {
        inbox.deliverTo([this](UserRequest request) { delivered.push_back(request); });
    }

    std::vector<UserRequest> delivered;
};

TEST_F(RequestInboxTest, keepsWhatComesBeforeThereIsSomebodyToDoIt) {
    RequestInbox inbox(RequestInbox::Start::byUser);
    inbox.take({});
    inbox.take(action(u"quit"_s));
    EXPECT_THAT(delivered, IsEmpty());
    deliver(inbox);
    EXPECT_THAT(delivered, ElementsAre(UserRequest::reopen, UserRequest::quit));
    inbox.take(action(u"settings"_s));
    EXPECT_EQ(delivered.size(), 3U);
}

TEST_F(RequestInboxTest, knowsTheActionsOfTheDesktopEntry) {
    RequestInbox inbox(RequestInbox::Start::byUser);
    deliver(inbox);
    inbox.take(action(u"settings"_s));
    inbox.take(action(u"check-updates"_s));
    inbox.take(action(u"quit"_s));
    EXPECT_THAT(delivered, ElementsAre(UserRequest::openSettings, UserRequest::checkForUpdates,
                                       UserRequest::quit));
}

TEST_F(RequestInboxTest, thereIsNoActionInTheDesktopEntryThatIsNotDone) {
    QFile entry(QStringLiteral(ZEPH_RESOURCES "/com.tavi.Tavi.desktop"));
    ASSERT_TRUE(entry.open(QIODevice::ReadOnly));
    static const QRegularExpression actionsLine(u"\nActions=(.*);\n"_s);
    const auto match = actionsLine.match(QString::fromUtf8(entry.readAll()));
    ASSERT_TRUE(match.hasMatch());
    for (const QString &name : match.captured(1).split(u';')) {
        EXPECT_TRUE(userRequestOf(action(name))) << name.toStdString();
    }
}

TEST_F(RequestInboxTest, ignoresActionsThatThereAreNot) {
    RequestInbox inbox(RequestInbox::Start::byUser);
    deliver(inbox);
    inbox.take(action(u"Settings"_s));
    inbox.take(action({}));
    EXPECT_THAT(delivered, IsEmpty());
}

TEST_F(RequestInboxTest, takesFilesToOpenForAStart) {
    RequestInbox inbox(RequestInbox::Start::byUser);
    deliver(inbox);
    inbox.take({.kind = Kind::open, .uris = {u"file:///a"_s}});
    EXPECT_THAT(delivered, ElementsAre(UserRequest::reopen));
}

TEST_F(RequestInboxTest, aStartByTheBusAsksForNoWindow) {
    RequestInbox inbox(RequestInbox::Start::byRequest);
    inbox.take({});
    deliver(inbox);
    EXPECT_THAT(delivered, IsEmpty());
    inbox.take({});
    EXPECT_THAT(delivered, ElementsAre(UserRequest::reopen)) << "the next one does";
}

TEST_F(RequestInboxTest, ofAStartByTheBusOnlyTheFirstRequestIsTheStart) {
    RequestInbox inbox(RequestInbox::Start::byRequest);
    inbox.take({});
    inbox.take({});
    deliver(inbox);
    EXPECT_THAT(delivered, ElementsAre(UserRequest::reopen));
}

TEST_F(RequestInboxTest, aRequestThatComesLongAfterTheStartIsOne) {
    RequestInbox inbox(RequestInbox::Start::byRequest);
    deliver(inbox);
    inbox.take({});
    EXPECT_THAT(delivered, ElementsAre(UserRequest::reopen));
}

TEST_F(RequestInboxTest, knowsAStartThatIsForNothingButTheEnd) {
    RequestInbox inbox(RequestInbox::Start::byRequest);
    EXPECT_FALSE(inbox.isStartKnown());
    EXPECT_FALSE(inbox.isStartedToQuit());
    inbox.take(action(u"quit"_s));
    EXPECT_TRUE(inbox.isStartKnown());
    EXPECT_TRUE(inbox.isStartedToQuit());
    inbox.take({});
    EXPECT_TRUE(inbox.isStartedToQuit()) << "whatever comes after it";
}

TEST_F(RequestInboxTest, anEndThatIsAskedOfAStartedProgramIsNotItsStart) {
    RequestInbox byUser(RequestInbox::Start::byUser);
    EXPECT_TRUE(byUser.isStartKnown());
    byUser.take(action(u"quit"_s));
    EXPECT_FALSE(byUser.isStartedToQuit());
    RequestInbox byRequest(RequestInbox::Start::byRequest);
    byRequest.take({});
    byRequest.take(action(u"quit"_s));
    EXPECT_TRUE(byRequest.isStartKnown());
    EXPECT_FALSE(byRequest.isStartedToQuit());
}

TEST_F(RequestInboxTest, anActionThatStartsTheProgramIsDone) {
    RequestInbox inbox(RequestInbox::Start::byRequest);
    inbox.take(action(u"settings"_s));
    inbox.take({});
    deliver(inbox);
    EXPECT_THAT(delivered, ElementsAre(UserRequest::openSettings, UserRequest::reopen));
}

} // namespace

} // namespace zeph
