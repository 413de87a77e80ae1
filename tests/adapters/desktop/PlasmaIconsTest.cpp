// SPDX-License-Identifier: MIT
#include "adapters/desktop/PlasmaIcons.h"

#include "adapters/bus/PrivateBus.h"
#include "adapters/desktop/ProgramFolder.h"

#include <QDBusMessage>
#include <QDBusVirtualObject>

#include <future>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

/// Plasma's shell, which answers scripts as the test likes.
class PlayedPlasma : public QDBusVirtualObject {
public:
    explicit PlayedPlasma(const QString &address)
        : m_connection(std::make_unique<BusConnection>(address)) {
        EXPECT_TRUE(m_connection->bus().registerVirtualObject(u"/PlasmaShell"_s, this));
        EXPECT_TRUE(m_connection->bus().registerService(u"org.kde.plasmashell"_s));
    }

    QString introspect(const QString &) const override { return {}; }

    bool handleMessage(const QDBusMessage &message, const QDBusConnection &) override {
        EXPECT_EQ(message.interface(), u"org.kde.PlasmaShell"_s);
        EXPECT_EQ(message.member(), u"evaluateScript"_s);
        scripts.append(message.arguments().value(0).toString());
        const QDBusMessage answer =
            refuses ? message.createErrorReply(QDBusError::AccessDenied, u"widgets are locked"_s)
                    : message.createReply(printed);
        return m_connection->bus().send(answer);
    }

    QVariant printed = QString();
    bool refuses = false;
    QStringList scripts;

private:
    std::unique_ptr<BusConnection> m_connection;
};

struct PlasmaPrograms : ProgramFolder {
    PlasmaPrograms() { install(u"plasmashell"_s, {}); }
};

class PlasmaIconsTest : public testing::Test {
protected:
    /// What `ask` answers, which waits for the bus on a thread of its own.
    template <typename Ask>
    auto answered(Ask ask) {
        auto future = std::async(std::launch::async, ask);
        EXPECT_TRUE(eventually(
            [&] { return future.wait_for(std::chrono::seconds(0)) == std::future_status::ready; }));
        return future.get();
    }
    std::optional<IconSetting> setting() {
        return answered([this] { return icons.iconSetting(); });
    }

    static QString desktop(int id, int mode, const QString &pattern) {
        return uR"({"filterMimeTypes":"all/all","filterMode":%1,"filterPattern":"%2","id":%3})"_s
            .arg(mode)
            .arg(pattern)
            .arg(id);
    }

    PrivateBus bus;
    PlasmaPrograms folder;
    BusConnection client{bus.address()};
    PlasmaIcons icons{client.bus()};
};

} // namespace

TEST_F(PlasmaIconsTest, areHiddenWhereEveryDesktopHasOurFilter) {
    PlayedPlasma plasma(bus.address());
    plasma.printed = u"[%1,%2]\n"_s.arg(desktop(1, 1, u"__none__"_s), desktop(7, 0, u"*"_s));
    EXPECT_EQ(setting(), (IconSetting{true, u'[' + desktop(7, 0, u"*"_s) + u']'}));
    plasma.printed = u"[%1]"_s.arg(desktop(1, 1, u"__none__"_s));
    EXPECT_EQ(setting(), (IconSetting{false, u"[]"_s}));
    plasma.printed = u"[%1]"_s.arg(desktop(1, 2, u"__none__"_s));
    EXPECT_TRUE(setting()->areShown) << "a filter that takes such files away is the user's own";
    plasma.printed = u"[]"_s;
    EXPECT_EQ(setting(), (IconSetting{false, {}, IconDrawer::none})) << "no desktop shows a folder";
}

TEST_F(PlasmaIconsTest, keepTheFiltersOfAllDesktopsWhenOneIsNew) {
    const QString first = desktop(7, 2, u"*.tmp"_s);
    const QString second = desktop(12, 0, u"*"_s);
    const QString changed = desktop(7, 1, u"*.txt"_s);
    EXPECT_EQ(icons.mergedValue(u'[' + first + u']', u'[' + second + u']'),
              u"[%1,%2]"_s.arg(first, second));
    EXPECT_EQ(icons.mergedValue(u"[%1,%2]"_s.arg(first, second), u'[' + changed + u']'),
              u"[%1,%2]"_s.arg(changed, second));
    for (const auto &odd : {QString(), u"absent"_s, u"{}"_s}) {
        EXPECT_EQ(icons.mergedValue(odd, u'[' + second + u']'), u'[' + second + u']');
    }
}

TEST_F(PlasmaIconsTest, cannotBeReadFromAnythingElse) {
    PlayedPlasma plasma(bus.address());
    for (const QVariant &odd :
         {QVariant(u"Error: x"_s), QVariant(u"{}"_s), QVariant(QString()), QVariant(7)}) {
        plasma.printed = odd;
        EXPECT_EQ(setting(), std::nullopt) << odd.toString().toStdString();
    }
    plasma.refuses = true;
    EXPECT_EQ(setting(), std::nullopt);
}

TEST_F(PlasmaIconsTest, areHiddenByAFilterThatNothingPasses) {
    PlayedPlasma plasma(bus.address());
    EXPECT_EQ(answered([this] { return icons.hideIcons(); }), ShellOutcome::done);
    ASSERT_EQ(plasma.scripts.size(), 1);
    EXPECT_TRUE(plasma.scripts[0].contains(
        uR"({"other":{"filterMimeTypes":"__none__/__none__","filterMode":1,"filterPattern":"__none__"}})"_s))
        << plasma.scripts[0].toStdString();
    EXPECT_EQ(icons.relaunch(), ShellOutcome::done);
}

TEST_F(PlasmaIconsTest, comeBackWithTheFiltersOfTheUser) {
    PlayedPlasma plasma(bus.address());
    const QString earlier = u"[%1]"_s.arg(desktop(7, 2, u"*.tmp"_s));
    EXPECT_EQ(answered([&] { return icons.showIcons(earlier); }), ShellOutcome::done);
    ASSERT_EQ(plasma.scripts.size(), 1);
    EXPECT_TRUE(plasma.scripts[0].contains(
        uR"("7":{"filterMimeTypes":"all/all","filterMode":2,"filterPattern":"*.tmp"})"_s));
    EXPECT_TRUE(plasma.scripts[0].contains(
        uR"("other":{"filterMimeTypes":"all/all","filterMode":0,"filterPattern":"*"})"_s));
}

TEST_F(PlasmaIconsTest, takeNoScriptFromWhatWasKept) {
    PlayedPlasma plasma(bus.address());
    const QString evil = uR"([{"id":"1}; evil(); {","filterPattern":"'; evil(); '"}]; evil();)"_s;
    EXPECT_EQ(answered([&] { return icons.showIcons(evil); }), ShellOutcome::done);
    ASSERT_EQ(plasma.scripts.size(), 1);
    EXPECT_FALSE(plasma.scripts[0].contains(u"evil"_s)) << "it is no JSON";
    EXPECT_EQ(answered([&] {
                  return icons.showIcons(uR"([{"id":"1}; evil(); {","filterPattern":"\"; e"}])"_s);
              }),
              ShellOutcome::done);
    ASSERT_EQ(plasma.scripts.size(), 2);
    EXPECT_FALSE(plasma.scripts[1].contains(u"evil"_s));
    EXPECT_TRUE(plasma.scripts[1].contains(uR"("\"; e")"_s)) << "a quote stays within its text";
}

TEST_F(PlasmaIconsTest, tellARefusalFromAnAbsentShell) {
    EXPECT_EQ(answered([this] { return icons.hideIcons(); }), ShellOutcome::unavailable);
    EXPECT_EQ(setting(), std::nullopt);
    PlayedPlasma plasma(bus.address());
    plasma.refuses = true;
    EXPECT_EQ(answered([this] { return icons.hideIcons(); }), ShellOutcome::refused);
    EXPECT_EQ(answered([this] { return icons.showIcons({}); }), ShellOutcome::refused);
}

TEST_F(PlasmaIconsTest, needPlasma) {
    QFile::remove(folder.path(u"bin/plasmashell"_s));
    PlayedPlasma plasma(bus.address());
    PlasmaIcons none(client.bus());
    EXPECT_FALSE(none.canHideIcons());
    EXPECT_EQ(none.hideIcons(), ShellOutcome::unavailable);
    EXPECT_EQ(none.relaunch(), ShellOutcome::unavailable);
    EXPECT_TRUE(plasma.scripts.isEmpty());
}

} // namespace zeph
