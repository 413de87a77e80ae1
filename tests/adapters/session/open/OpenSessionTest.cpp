// SPDX-License-Identifier: MIT
#include "adapters/session/open/OpenSession.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <vector>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

/// A session that is only told apart.
struct NamedSession : DisplaySession {
    explicit NamedSession(QByteArray display) : name(std::move(display)) {}
    Screens &screens() override { throw std::logic_error("not asked for"); }
    WindowServer &windowServer() override { throw std::logic_error("not asked for"); }
    Workspace &workspace() override { throw std::logic_error("not asked for"); }
    InputEvents &inputEvents() override { throw std::logic_error("not asked for"); }
    VirtualDesktops &virtualDesktops() override { throw std::logic_error("not asked for"); }

    QByteArray name;
};

struct OpenSessionTest : testing::Test {
    OpenedSession open(const QByteArray &compositor) {
        return openSession(compositor, {[this](const QByteArray &display) {
                                            tried.push_back("wayland");
                                            return answer(hasLayers, display, u"no layers"_s);
                                        },
                                        [this] {
                                            tried.push_back("x11");
                                            return answer(hasX11, "x11", u"no X"_s);
                                        }});
    }
    static OpenedSession answer(bool isThere, const QByteArray &name, const QString &refusal) {
        return isThere ? OpenedSession{std::make_unique<NamedSession>(name), {}}
                       : OpenedSession{nullptr, refusal};
    }
    static QByteArray nameOf(const OpenedSession &opened) {
        return opened.session ? dynamic_cast<NamedSession &>(*opened.session).name : QByteArray();
    }

    bool hasLayers = true;
    bool hasX11 = true;
    std::vector<std::string> tried;
};

} // namespace

TEST_F(OpenSessionTest, isOfWaylandWhereTheCompositorHasLayers) {
    const OpenedSession opened = open("wayland-7");
    EXPECT_EQ(nameOf(opened), "wayland-7");
    EXPECT_EQ(tried, std::vector<std::string>{"wayland"});
}

TEST_F(OpenSessionTest, isOfXWhereTheCompositorHasNoLayers) {
    hasLayers = false;
    EXPECT_EQ(nameOf(open("wayland-7")), "x11");
}

TEST_F(OpenSessionTest, triesNothingOfWaylandWhereThereIsNoCompositor) {
    EXPECT_EQ(nameOf(open({})), "x11");
    EXPECT_EQ(tried, std::vector<std::string>{"x11"});
}

TEST_F(OpenSessionTest, saysOfBothWhyNot) {
    hasLayers = hasX11 = false;
    EXPECT_EQ(open("wayland-7").refusal, u"no layers, and no X"_s);
    EXPECT_EQ(open({}).refusal, u"no X"_s);
}

TEST(ToolkitPlatform, isXWhereThereIsAnyAndElseWayland) {
    EXPECT_EQ(toolkitPlatform(true, true), "xcb");
    EXPECT_EQ(toolkitPlatform(true, false), "xcb");
    EXPECT_EQ(toolkitPlatform(false, true), "wayland");
    EXPECT_EQ(toolkitPlatform(false, false), "");
}

} // namespace zeph
