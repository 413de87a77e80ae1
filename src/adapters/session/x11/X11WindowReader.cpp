// SPDX-License-Identifier: MIT
#include "adapters/session/x11/X11WindowReader.h"

#include "adapters/apps/OwnApplication.h"
#include "adapters/apps/RunningProgram.h"
#include "adapters/session/x11/X11Properties.h"

#include <unistd.h>

#include <algorithm>
#include <array>

namespace zeph {

namespace {

// The order of the requests, and so of the replies.
enum Reply : std::size_t { type, windowClass, process, machine, gtkId, desktopFile };

constexpr std::uint32_t kLongestText = 256; // in 4-byte units

QString textIn(const X11AnyReply &reply) {
    QByteArray bytes = bytesIn(propertyIn(reply));
    bytes.truncate(bytes.indexOf('\0') < 0 ? bytes.size() : bytes.indexOf('\0'));
    return QString::fromUtf8(bytes).simplified();
}

// A process number means nothing when the window comes from another machine.
bool isFromHere(const QString &machine) {
    std::array<char, 256> host{};
    return machine.isEmpty() || (gethostname(host.data(), host.size() - 1) == 0 &&
                                 machine == QString::fromLocal8Bit(host.data()));
}

} // namespace

std::vector<unsigned> requestWindowFacts(X11Connection &connection, xcb_window_t window) {
    const auto request = [&](xcb_atom_t property, xcb_atom_t kind) {
        return requestProperty(connection, window, property, kind, kLongestText);
    };
    return {
        request(connection.atom(X11Atom::netWmWindowType), XCB_ATOM_ATOM),
        request(XCB_ATOM_WM_CLASS, XCB_ATOM_STRING),
        request(connection.atom(X11Atom::netWmPid), XCB_ATOM_CARDINAL),
        request(connection.atom(X11Atom::wmClientMachine), XCB_ATOM_ANY),
        request(connection.atom(X11Atom::gtkApplicationId), XCB_ATOM_ANY),
        request(connection.atom(X11Atom::kdeDesktopFile), XCB_ATOM_ANY),
    };
}

WindowFacts windowFacts(const X11Connection &connection, const X11Connection::Replies &replies) {
    WindowFacts facts;
    const auto types = atomsIn(propertyIn(replies[Reply::type]));
    facts.isDesktop = std::find(types.begin(), types.end(),
                                connection.atom(X11Atom::netWmWindowTypeDesktop)) != types.end();

    // The instance, a zero, the class, a zero.
    const QByteArrayList names = bytesIn(propertyIn(replies[Reply::windowClass])).split('\0');
    facts.hints.windowInstance = QString::fromLatin1(names.value(0));
    facts.hints.windowClass = QString::fromLatin1(names.value(1));

    const auto processes = windowsIn(propertyIn(replies[Reply::process]));
    if (!processes.empty() && isFromHere(textIn(replies[Reply::machine]))) {
        facts.hints.program = programOfProcess(processes.front());
    }
    facts.hints.gtkApplicationId = textIn(replies[Reply::gtkId]);
    facts.hints.desktopFile = textIn(replies[Reply::desktopFile]);
    facts.isOurs = isOwnApplication(facts.hints);
    return facts;
}

} // namespace zeph
