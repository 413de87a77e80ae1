// SPDX-License-Identifier: MIT
#include "integrations/accounts/PendingSecrets.h"

#include "support/FakeUserDefaults.h"
#include "support/QtPrinters.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::IsEmpty;

namespace zeph {

namespace {

const auto pendingSecretsKey = u"zeph.integrations.pendingSecrets"_s;

class PendingSecretsTest : public testing::Test {
protected:
    FakeUserDefaults defaults;
    PendingSecrets pending{defaults};
    const QUuid one = QUuid::createUuid();
    const QUuid two = QUuid::createUuid();
};

TEST_F(PendingSecretsTest, outlivesTheProcess) {
    pending.add({u"stripe"_s, one});
    pending.addErasure(two);
    const PendingSecrets later(defaults);
    EXPECT_THAT(later.moves(), ElementsAre(SecretMove{u"stripe"_s, one}));
    EXPECT_THAT(later.erasures(), ElementsAre(two));
}

TEST_F(PendingSecretsTest, leavesNothingBehindWhenAllIsDone) {
    pending.add({u"stripe"_s, one});
    pending.addErasure(two);
    pending.done({u"stripe"_s, one});
    EXPECT_THAT(pending.moves(), IsEmpty());
    pending.erased(two);
    EXPECT_EQ(defaults.value(pendingSecretsKey), std::nullopt);
}

TEST_F(PendingSecretsTest, notesAnErasureOnce) {
    pending.addErasure(one);
    pending.addErasure(one);
    EXPECT_THAT(pending.erasures(), ElementsAre(one));
}

TEST_F(PendingSecretsTest, writesNothingWhereNothingChanges) {
    pending.erased(one);
    pending.done({u"stripe"_s, one});
    EXPECT_EQ(defaults.writes, 0);
}

TEST_F(PendingSecretsTest, readsNothingOutOfDamagedSettings) {
    for (const DefaultsValue &damaged : std::vector<DefaultsValue>{
             QByteArray("{"), QByteArray("[]"), u"text"_s, true,
             QByteArray(R"({"erase":"x","move":[]})"),
             QByteArray(R"({"erase":["no id",7],"move":{"stripe":"no id","dodo":1}})")}) {
        defaults.set(pendingSecretsKey, damaged);
        EXPECT_THAT(pending.moves(), IsEmpty());
        EXPECT_THAT(pending.erasures(), IsEmpty());
        pending.addErasure(one);
        EXPECT_THAT(pending.erasures(), ElementsAre(one));
    }
}

} // namespace

} // namespace zeph
