// SPDX-License-Identifier: MIT
#include "services/accounts/PendingSecrets.h"

#include "support/FakeUserDefaults.h"
#include "support/QtPrinters.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

namespace zeph {

namespace {

const auto pendingSecretsKey = u"zeph.integrations.pendingSecrets"_s;

class PendingSecretsTest : public testing::Test {
protected:
    FakeUserDefaults defaults;
    const QUuid one = QUuid::fromString(u"11111111-AAAA-4AAA-8AAA-AAAAAAAAAAAA"_s);
    const QUuid two = QUuid::fromString(u"22222222-AAAA-4AAA-8AAA-AAAAAAAAAAAA"_s);
};

TEST_F(PendingSecretsTest, areStoredAsNames) {
    PendingSecrets{{{u"stripe"_s, one}}, {two}, {one}}.save(defaults);
    EXPECT_EQ(defaults.get<QByteArray>(pendingSecretsKey),
              R"({"erase":["22222222-AAAA-4AAA-8AAA-AAAAAAAAAAAA"],)"
              R"("eraseEndpoints":["11111111-AAAA-4AAA-8AAA-AAAAAAAAAAAA"],)"
              R"("move":{"stripe":"11111111-AAAA-4AAA-8AAA-AAAAAAAAAAAA"}})");
    const auto later = PendingSecrets::read(defaults);
    EXPECT_THAT(later.moves, ElementsAre(Pair(u"stripe"_s, one)));
    EXPECT_THAT(later.erasures, ElementsAre(two));
    EXPECT_THAT(later.endpoints, ElementsAre(one));
}

TEST_F(PendingSecretsTest, leaveNothingBehindWhenAllIsDone) {
    PendingSecrets{{}, {two}}.save(defaults);
    PendingSecrets{}.save(defaults);
    EXPECT_EQ(defaults.value(pendingSecretsKey), std::nullopt);
}

TEST_F(PendingSecretsTest, writeNothingWhereNothingChanges) {
    PendingSecrets{}.save(defaults);
    EXPECT_EQ(defaults.writes, 0);
    PendingSecrets{{}, {two}}.save(defaults);
    PendingSecrets::read(defaults).save(defaults);
    EXPECT_EQ(defaults.writes, 1);
}

TEST_F(PendingSecretsTest, readNothingOutOfDamagedSettings) {
    for (const DefaultsValue &damaged : std::vector<DefaultsValue>{
             QByteArray("{"), QByteArray("[]"), u"text"_s, true,
             QByteArray(R"({"erase":"x","move":[]})"),
             QByteArray(R"({"erase":["no id",7],"move":{"stripe":"no id","dodo":1}})")}) {
        defaults.set(pendingSecretsKey, damaged);
        auto pending = PendingSecrets::read(defaults);
        EXPECT_THAT(pending.moves, IsEmpty());
        EXPECT_THAT(pending.erasures, IsEmpty());
        pending.erasures.insert(one);
        pending.save(defaults);
        EXPECT_THAT(PendingSecrets::read(defaults).erasures, ElementsAre(one));
    }
}

} // namespace

} // namespace zeph
