// SPDX-License-Identifier: MIT
#include "adapters/desktop/DesktopShells.h"

#include "adapters/desktop/ExtensionIcons.h"
#include "adapters/desktop/NoDesktopShell.h"
#include "adapters/desktop/PlasmaIcons.h"
#include "adapters/desktop/SettingIcons.h"
#include "adapters/desktop/X11DesktopLook.h"

#include <functional>
#include <vector>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

// How long a file manager may take to draw the desktop, or to stop drawing it.
constexpr std::chrono::seconds programPatience{3};

struct KnownDesktop {
    QString name; ///< in small letters
    std::function<std::unique_ptr<DesktopShell>()> make;
};

std::vector<KnownDesktop> knownDesktops(const QStringList &dataFolders, const QDBusConnection &bus,
                                        const ProgramIcons::Notices &notices) {
    const auto setting = [](IconTool (*tool)()) {
        return [tool] { return std::make_unique<SettingIcons>(tool()); };
    };
    const auto program = [&notices](DesktopProgram (*desktop)()) {
        return [&notices, desktop] {
            return std::make_unique<ProgramIcons>(desktop(), &lookForDesktop, programPatience,
                                                  notices);
        };
    };
    const auto extension = [&dataFolders] { return std::make_unique<ExtensionIcons>(dataFolders); };
    return {{u"gnome"_s, extension},
            {u"unity"_s, extension},
            {u"kde"_s, [&bus] { return std::make_unique<PlasmaIcons>(bus); }},
            {u"xfce"_s, setting(&xfceIcons)},
            {u"x-cinnamon"_s, setting(&cinnamonIcons)},
            {u"cinnamon"_s, setting(&cinnamonIcons)},
            {u"mate"_s, setting(&mateIcons)},
            {u"lxde"_s, program(&lxdeDesktop)},
            {u"lxqt"_s, program(&lxqtDesktop)}};
}

} // namespace

std::unique_ptr<DesktopShell> makeDesktopShell(const QString &currentDesktop,
                                               const QStringList &dataFolders,
                                               const QDBusConnection &bus,
                                               const ProgramIcons::Notices &notices) {
    for (const QString &entry : currentDesktop.split(u':')) {
        const QString name = entry.trimmed().toLower();
        for (const KnownDesktop &known : knownDesktops(dataFolders, bus, notices)) {
            if (known.name == name) {
                return known.make();
            }
        }
    }
    return std::make_unique<NoDesktopShell>();
}

} // namespace zeph
