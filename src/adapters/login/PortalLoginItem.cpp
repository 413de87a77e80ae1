// SPDX-License-Identifier: MIT
#include "adapters/login/PortalLoginItem.h"

#include "adapters/login/BackgroundRequest.h"
#include "ports/UserDefaults.h"

#include <QFile>

#include <utility>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

const QString answerKey = u"zeph.launchAtLogin.portal"_s;

} // namespace

PortalLoginItem::PortalLoginItem(QDBusConnection sessionBus, UserDefaults &defaults)
    : m_bus(std::move(sessionBus)), m_defaults(defaults) {}

PortalLoginItem::~PortalLoginItem() = default;

bool PortalLoginItem::isEnabled() const {
    return m_defaults.boolean(answerKey);
}

void PortalLoginItem::setEnabled(bool enabled,
                                 std::function<void(const std::optional<QString> &)> done) {
    std::erase_if(m_requests, [](const auto &request) { return request->isDone(); });
    m_requests.push_back(std::make_unique<BackgroundRequest>(
        m_bus, enabled,
        [this, enabled, done = std::move(done)](const std::optional<QString> &error) {
            if (!error) {
                m_defaults.set(answerKey, enabled);
            }
            done(error);
        }));
}

void PortalLoginItem::renew(std::function<void(const std::optional<QString> &)> done) {
    done(std::nullopt);
}

// The variable alone tells nothing: whatever is started from a terminal in a sandbox has it too.
bool runsInSandbox(const QString &executable, const QString &root) {
    const QString snap = qEnvironmentVariable("SNAP");
    return QFile::exists(root + u"/.flatpak-info"_s) ||
           (!snap.isEmpty() && executable.startsWith(snap + u'/'));
}

} // namespace zeph
