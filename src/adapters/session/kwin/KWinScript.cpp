// SPDX-License-Identifier: MIT
#include "adapters/session/kwin/KWinScript.h"

#include "adapters/bus/DBusCalls.h"
#include "base/Log.h"

#include <QDBusVirtualObject>
#include <QFileInfo>

#include <utility>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

const QString kKWinName = u"org.kde.KWin"_s;
const QString kScriptingPath = u"/Scripting"_s;
const QString kScriptingInterface = u"org.kde.kwin.Scripting"_s;
const QString kScriptInterface = u"org.kde.kwin.Script"_s;

const QString kScriptName = u"com.tavi.Tavi.windows"_s;
const QString kOurPath = u"/com/tavi/Tavi/windows"_s;
const QString kOurInterface = u"com.tavi.Tavi.Windows"_s;
const QString kFrontMember = u"Front"_s;
const QString kPanelsMember = u"Panels"_s;

// KWin 6 calls clients windows. The desktop and its panels are no applications. %1 is our name on
// the bus, so that what a crash leaves behind speaks to nobody.
const QString kText = uR"(
const call = (member, ...rest) => callDBus("%1", "%2", "%3", member, ...rest);
function tellFront(window) {
    const isOne = window && !window.desktopWindow && !window.dock;
    call("Front", isOne ? String(window.resourceClass) : "",
         isOne ? String(window.desktopFileName) : "", isOne ? window.pid : 0);
}
function tellPanels() { call("Panels"); }
function follow(window) {
    if (window && window.dock) {
        window.frameGeometryChanged.connect(tellPanels);
        tellPanels();
    }
}
function forget(window) {
    if (window && window.dock) {
        tellPanels();
    }
}
const isOld = workspace.clientList !== undefined;
(isOld ? workspace.clientActivated : workspace.windowActivated).connect(tellFront);
(isOld ? workspace.clientAdded : workspace.windowAdded).connect(follow);
(isOld ? workspace.clientRemoved : workspace.windowRemoved).connect(forget);
(isOld ? workspace.clientList() : workspace.windowList()).forEach(follow);
tellFront(isOld ? workspace.activeClient : workspace.activeWindow);
)"_s;

} // namespace

QString kwinScriptFolder(const QString &runtimeFolder, const QString &flatpak) {
    if (runtimeFolder.isEmpty() || flatpak.isEmpty()) {
        return runtimeFolder;
    }
    const QString shared = runtimeFolder + u"/app/"_s + flatpak;
    // What was started from a sandbox's terminal has its id, and perhaps not its folder.
    return QFileInfo(shared).isDir() ? shared : runtimeFolder;
}

/// What the script calls.
class KWinScript::Callee : public QDBusVirtualObject {
public:
    explicit Callee(KWinScript &owner) : m_owner(owner) {}

    QString introspect(const QString & /*path*/) const override {
        return uR"(  <interface name="%1">
    <method name="Front">
      <arg type="s" name="window_class" direction="in"/>
      <arg type="s" name="desktop_file" direction="in"/>
      <arg type="i" name="process" direction="in"/>
    </method>
    <method name="Panels"/>
  </interface>
)"_s.arg(kOurInterface);
    }

    bool handleMessage(const QDBusMessage &message, const QDBusConnection &connection) override {
        if (!m_owner.take(message)) {
            return false; // the bus library answers that there is no such method
        }
        if (message.isReplyRequired()) {
            QDBusConnection(connection).send(message.createReply());
        }
        return true;
    }

private:
    KWinScript &m_owner;
};

KWinScript::KWinScript(QDBusConnection bus, const QString &folder)
    : m_bus(std::move(bus)),
      m_callee(std::make_unique<Callee>(*this)),
      m_service(m_bus, kKWinName, [this] { ownerChanged(); }) {
    if (!m_bus.isConnected()) {
        return;
    }
    if (!write(folder) || !m_bus.registerVirtualObject(kOurPath, m_callee.get())) {
        qCWarning(logSession, "KWin can't be told what to tell");
    }
}

KWinScript::~KWinScript() {
    m_bus.unregisterObject(kOurPath);
    m_service.send(kScriptingPath, kScriptingInterface, u"unloadScript"_s, {kScriptName});
}

bool KWinScript::write(const QString &folder) {
    m_file.setFileTemplate(folder + u"/tavi-XXXXXX.js"_s);
    const QByteArray text = kText.arg(m_bus.baseService(), kOurPath, kOurInterface).toUtf8();
    return m_file.open() && m_file.write(text) == text.size() && m_file.flush();
}

void KWinScript::ownerChanged() {
    m_front.reset();
    m_fronts.send();
    if (m_service.isThere()) {
        load();
    }
}

void KWinScript::load() {
    // A second script of the same name is not loaded.
    m_service.ask(kScriptingPath, kScriptingInterface, u"unloadScript"_s, {kScriptName},
                  busDefaultTimeout, [this](const QDBusMessage & /*answer*/) {
                      m_service.ask(kScriptingPath, kScriptingInterface, u"loadScript"_s,
                                    {m_file.fileName(), kScriptName}, busDefaultTimeout,
                                    [this](const QDBusMessage &answer) {
                                        const bool isLoaded =
                                            answer.signature() == u"i"_s &&
                                            answer.arguments().constFirst().toInt() >= 0;
                                        if (isLoaded) {
                                            const QString number =
                                                answer.arguments().constFirst().toString();
                                            start(u"/"_s + number, u"/Scripting/Script"_s + number);
                                        }
                                    });
                  });
}

/// KWin 6 has its scripts in another place.
void KWinScript::start(const QString &path, const QString &otherPath) {
    m_service.ask(path, kScriptInterface, u"run"_s, {}, busDefaultTimeout,
                  [this, otherPath](const QDBusMessage &answer) {
                      if (answer.type() != QDBusMessage::ErrorMessage) {
                          return;
                      }
                      if (otherPath.isEmpty()) {
                          qCWarning(logSession, "KWin does not run what it was told to");
                      } else {
                          start(otherPath, {});
                      }
                  });
}

bool KWinScript::take(const QDBusMessage &call) {
    // Whoever is on the bus can call.
    if (!m_service.hasSent(call)) {
        return false;
    }
    if (call.member() == kPanelsMember) {
        m_panels.send();
        return true;
    }
    if (call.member() != kFrontMember || call.signature() != u"ssi"_s) {
        return false;
    }
    const QVariantList arguments = call.arguments();
    const KWinWindow window{arguments.at(0).toString(), arguments.at(1).toString(),
                            arguments.at(2).toLongLong()};
    m_front = window == KWinWindow() ? std::nullopt : std::optional(window);
    m_fronts.send();
    return true;
}

Subscription KWinScript::subscribeToFront(FrontHandler handler) {
    return m_fronts.subscribe([this, handler = std::move(handler)] { handler(m_front); });
}

Subscription KWinScript::subscribeToPanels(std::function<void()> handler) {
    return m_panels.subscribe(std::move(handler));
}

} // namespace zeph
