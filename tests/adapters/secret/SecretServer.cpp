// SPDX-License-Identifier: MIT
#include "adapters/secret/SecretServer.h"

#include <QDBusConnectionInterface>
#include <QDir>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

const auto serviceName = u"org.freedesktop.secrets"_s;
const QByteArray password = "the password of the session";

} // namespace

SecretServer::SecretServer() {
    const QDir home(m_home.path());
    const auto place = [&](const char *variable, const QString &name) {
        home.mkpath(name);
        m_variables.push_back(
            std::make_unique<ScopedVariable>(variable, QFile::encodeName(home.filePath(name))));
    };
    place("HOME", u"home"_s);
    place("XDG_CONFIG_HOME", u"config"_s);
    place("XDG_DATA_HOME", u"data"_s);
    place("XDG_CACHE_HOME", u"cache"_s);
    place("XDG_RUNTIME_DIR", u"runtime"_s);
    QFile::setPermissions(home.filePath(u"runtime"_s),
                          QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    m_variables.push_back(
        std::make_unique<ScopedVariable>("DBUS_SESSION_BUS_ADDRESS", m_bus.address().toUtf8()));
    m_variables.push_back(std::make_unique<ScopedVariable>("GSETTINGS_BACKEND", "memory"));
}

SecretServer::~SecretServer() {
    if (m_daemon) {
        m_daemon->kill();
        m_daemon->waitForFinished(10'000);
    }
}

void SecretServer::start() {
    launch({u"--unlock"_s}, password);
}

void SecretServer::startLocked() {
    launch({}, {});
}

void SecretServer::launch(const QStringList &arguments, const QByteArray &input) {
    m_daemon = std::make_unique<QProcess>();
    endWithThisProcess(*m_daemon);
    m_daemon->setStandardErrorFile(QProcess::nullDevice());
    m_daemon->setStandardOutputFile(QProcess::nullDevice());
    m_daemon->start(u"gnome-keyring-daemon"_s,
                    QStringList{u"--foreground"_s, u"--components=secrets"_s} + arguments);
    ASSERT_TRUE(m_daemon->waitForStarted(10'000)) << "gnome-keyring-daemon did not start";
    m_daemon->write(input);
    m_daemon->closeWriteChannel();
    ASSERT_TRUE(eventually([this] { return isOnBus(); })) << "it did not come to the bus";
}

void SecretServer::kill() {
    m_daemon->kill();
    ASSERT_TRUE(m_daemon->waitForFinished(10'000));
    ASSERT_TRUE(eventually([this] { return !isOnBus(); }));
}

bool SecretServer::isOnBus() const {
    auto bus = const_cast<BusConnection &>(m_connection).bus();
    return bus.interface()->isServiceRegistered(serviceName);
}

} // namespace zeph
