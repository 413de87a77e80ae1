// SPDX-License-Identifier: MIT
#include "host/UpdateWords.h"

#include "ports/UpdateFramework.h"

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

const QString checkButton = u"Check for updates"_s;

/// `what`, and how far it is where that is known.
QString progressLine(const QString &what, int progress) {
    return progress < 0 ? what + u"…"_s : u"%1 · %2%"_s.arg(what).arg(qMin(progress, 100));
}

} // namespace

UpdateWords updateWords(const UpdateStatus &status) {
    using Action = UpdateWords::Action;
    using Phase = UpdateStatus::Phase;
    switch (status.phase) {
    case Phase::idle:
        break;
    case Phase::checking:
        return {progressLine(u"Looking for a newer version"_s, status.progress), u"Cancel"_s,
                Action::cancel};
    case Phase::upToDate:
        return {u"Tavi is up to date."_s, checkButton, Action::check};
    case Phase::available:
        return {u"Version %1 is ready to install."_s.arg(status.version), u"Install"_s,
                Action::install};
    case Phase::installing:
        return {progressLine(u"Installing version %1"_s.arg(status.version), status.progress),
                u"Cancel"_s, Action::cancel};
    case Phase::installed:
        return {u"Version %1 is installed. You will see it from the next start on."_s.arg(
                    status.version),
                checkButton, Action::none};
    case Phase::notPackaged:
        return {u"This Tavi was started from a build, so no package can replace it. "
                u"Build it anew to update it."_s,
                checkButton, Action::none};
    case Phase::sandboxed:
        return {
            u"Tavi runs in a sandbox here. The store that it came from brings newer versions."_s,
            checkButton, Action::none};
    case Phase::noService:
        return {u"There is no PackageKit on this computer to ask. "
                u"Tavi is updated together with your other software."_s,
                checkButton, Action::check};
    case Phase::failed:
        return {status.problem, u"Try again"_s, Action::check};
    case Phase::refused:
        return {u"Version %1 was not allowed to be installed. Nothing has changed."_s.arg(
                    status.version),
                u"Install"_s, Action::install};
    }
    return {u"Check for a newer version and install it in place — no reinstall."_s, checkButton,
            Action::check};
}

} // namespace zeph
