// SPDX-License-Identifier: MIT
#include "adapters/bus/PrivateBus.h"

#include <QDBusMessage>
#include <QDBusVirtualObject>

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

class CountingObject : public QDBusVirtualObject {
public:
    QString introspect(const QString &) const override { return {}; }
    bool handleMessage(const QDBusMessage &, const QDBusConnection &) override {
        ++calls;
        return true;
    }

    int calls = 0;
};

TEST(PrivateBus, connectionsCloseWhileCallsComeIn) {
    const PrivateBus bus;
    BusConnection caller(bus.address());
    CountingObject object;
    for (int round = 0; round < 2000; ++round) {
        BusConnection called(bus.address());
        ASSERT_TRUE(called.bus().registerVirtualObject(u"/"_s, &object, QDBusConnection::SubPath));
        QDBusMessage call = QDBusMessage::createMethodCall(called.bus().baseService(), u"/x"_s,
                                                           u"com.tavi.Test"_s, u"Call"_s);
        for (int count = 0; count < 20; ++count) {
            caller.bus().send(call);
        }
        for (int turn = 0; turn < round % 7; ++turn) {
            QCoreApplication::processEvents();
        }
        called.close();
        QCoreApplication::processEvents();
    }
    EXPECT_GT(object.calls, 0);
}

} // namespace

} // namespace zeph
