// SPDX-License-Identifier: MIT
#include "ui/integrations/IntegrationsFixture.h"

#include <QAbstractButton>

using namespace Qt::StringLiterals;
using testing::IsEmpty;
using testing::SizeIs;

namespace zeph::ui {

namespace {

class AccountRemovalTest : public IntegrationsFixture {};

TEST_F(AccountRemovalTest, aRemovedAccountCanBeBroughtBackWithItsKey) {
    const auto id = connect(u"stripe"_s, u"sk"_s).id;
    open();
    showAccount(stored(id));
    press(u"Remove"_s);
    EXPECT_THAT(store->connections(), IsEmpty());
    EXPECT_EQ(pane->selection().page, IntegrationsSelection::Page::accounts);
    EXPECT_TRUE(shows(u"Removed My stripe."_s));
    EXPECT_TRUE(button(u"Undo"_s)->hasFocus());
    loop.advance(7.9);
    turn();
    press(u"Undo"_s);
    settle();
    EXPECT_TRUE(store->isReady(stored(id)));
    EXPECT_THAT(secrets.entries(), SizeIs(1));
    EXPECT_EQ(button(u"Undo"_s), nullptr);
}

TEST_F(AccountRemovalTest, theKeyOfARemovedAccountIsErasedAfterEightSeconds) {
    const auto id = connect(u"stripe"_s, u"sk"_s).id;
    open();
    showAccount(stored(id));
    press(u"Remove"_s);
    loop.advance(7.9);
    settle();
    EXPECT_THAT(secrets.entries(), SizeIs(1));
    loop.advance(0.2);
    settle();
    EXPECT_THAT(secrets.entries(), IsEmpty());
    EXPECT_EQ(button(u"Undo"_s), nullptr);
}

TEST_F(AccountRemovalTest, aKeyThatCouldNotBeErasedIsTold) {
    const auto id = connect(u"stripe"_s, u"sk"_s).id;
    open();
    showAccount(stored(id));
    press(u"Remove"_s);
    secrets.answer(SecretOutcome::refused);
    loop.advance(8.1);
    settle();
    EXPECT_TRUE(shows(u"It is removed here. The keyring could not be opened, so its key is erased "
                      "when Tavi starts again."_s));
}

TEST_F(AccountRemovalTest, anAccountThatNeverHadAKeyGoesWithoutAWordOfOne) {
    open();
    const auto tells = [this] {
        return shows(u"It is removed here. The keyring could not be opened, so its key is erased "
                     "when Tavi starts again."_s);
    };
    addAccount(u"reddit"_s);
    type(u"Username"_s, u"brindle"_s);
    press(u"Save & connect"_s);
    settle();
    secrets.answer(SecretOutcome::unavailable);
    press(u"Remove"_s);
    loop.advance(8.1);
    settle();
    EXPECT_FALSE(tells());
    addAccount(u"stripe"_s); // and is not saved
    press(u"Remove"_s);
    loop.advance(8.1);
    settle();
    EXPECT_FALSE(tells());
    EXPECT_THAT(store->connections(), IsEmpty());
}

TEST_F(AccountRemovalTest, aKeyThatWasToBeErasedBeforeIsTold) {
    const auto id = connect(u"github"_s, u"gho"_s).id;
    open();
    secrets.answer(SecretOutcome::refused);
    store->setSecret(std::nullopt, id);
    settle();
    store->markReady(id);
    showAccount(stored(id));
    press(u"Remove"_s);
    loop.advance(8.1);
    settle();
    EXPECT_TRUE(shows(u"It is removed here. The keyring could not be opened, so its key is erased "
                      "when Tavi starts again."_s));
}

TEST_F(AccountRemovalTest, tellsThatTheAccountIsGoneAndComesBackWithIt) {
    const auto id = connect(u"stripe"_s, u"sk"_s).id;
    open();
    showAccount(stored(id));
    type(u"Display name"_s, u"Typed"_s);
    ASSERT_TRUE(store->removeForNow(id));
    turn();
    EXPECT_TRUE(shows(u"This account was removed."_s));
    EXPECT_EQ(field(u"Display name"_s), nullptr);
    ASSERT_TRUE(store->restore(id));
    turn();
    EXPECT_EQ(field(u"Display name"_s)->text(), u"Typed"_s);
}

} // namespace

} // namespace zeph::ui
