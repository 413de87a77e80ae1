// SPDX-License-Identifier: MIT
#include "adapters/tray/LinuxStatusBar.h"

#include "FakeTrayHost.h"

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

class LinuxStatusBarTest : public testing::Test {
protected:
    class Docked : public StatusItem {
    public:
        explicit Docked(int &count) : m_count(count) { ++m_count; }
        ~Docked() override { --m_count; }

    private:
        int &m_count;
    };

    LinuxStatusBar::MakeDocked makeDocked() {
        return [this](const TrayFacts &facts, const TrayTools &) {
            EXPECT_EQ(facts.description, u"Tavi"_s);
            return std::make_unique<Docked>(docked);
        };
    }

    std::unique_ptr<StatusItem> makeItem(LinuxStatusBar &bar) {
        return bar.makeItem(u"some.symbol"_s, u"Tavi"_s, example.facts.menu);
    }

    PrivateBus bus;
    BusConnection program{bus.address()};
    FakeTrayHost host{bus.address()};
    TrayExample example;
    int docked = 0; ///< windows in a tray of the X server
};

TEST_F(LinuxStatusBarTest, anItemIsDockedOnlyWhileNoHostIsOnTheBus) {
    LinuxStatusBar bar(program.bus(), example.tools, makeDocked());
    const auto item = makeItem(bar);
    EXPECT_EQ(docked, 0) << "as long as the bus has not said";
    EXPECT_TRUE(eventually([this] { return docked == 1; }));
    host.appear();
    EXPECT_TRUE(eventually([this] { return docked == 0; }));
    EXPECT_EQ(host.registered().size(), 1);
    host.disappear();
    EXPECT_TRUE(eventually([this] { return docked == 1; }));
}

TEST_F(LinuxStatusBarTest, anItemWithAHostIsNeverDocked) {
    host.appear();
    LinuxStatusBar bar(program.bus(), example.tools, [](const auto &, const auto &) {
        ADD_FAILURE() << "docked";
        return nullptr;
    });
    const auto item = makeItem(bar);
    EXPECT_TRUE(eventually([this] { return host.registered().size() == 1; }));
}

TEST_F(LinuxStatusBarTest, anItemIsDockedAtOnceWithoutABus) {
    bus.stop();
    BusConnection nowhere(bus.address());
    LinuxStatusBar bar(nowhere.bus(), example.tools, makeDocked());
    auto item = makeItem(bar);
    EXPECT_EQ(docked, 1);
    item.reset();
    EXPECT_EQ(docked, 0);
}

TEST_F(LinuxStatusBarTest, anItemIsNowhereWhereThereIsNoTrayAtAll) {
    bus.stop();
    BusConnection nowhere(bus.address());
    LinuxStatusBar bar(nowhere.bus(), example.tools,
                       [](const auto &, const auto &) { return nullptr; });
    EXPECT_TRUE(makeItem(bar));
}

TEST_F(LinuxStatusBarTest, takesNoNoticeOfABusThatHangs) {
    bus.freeze();
    {
        LinuxStatusBar bar(program.bus(), example.tools, makeDocked());
        const auto item = makeItem(bar);
        EXPECT_EQ(docked, 0);
    }
    bus.thaw();
}

} // namespace

} // namespace zeph
