// SPDX-License-Identifier: MIT
#include "adapters/session/gnome/MutterIdle.h"

#include "adapters/bus/DBusCalls.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

const QString kIdleName = u"org.gnome.Mutter.IdleMonitor"_s; // its interface has the same name
const QString kIdlePath = u"/org/gnome/Mutter/IdleMonitor/Core"_s;

/// Absent for a refusal and for anything that is no number of a watch.
std::optional<quint32> watchNumberIn(const QDBusMessage &message) {
    const bool isThere =
        message.signature() == u"u"_s && message.type() != QDBusMessage::ErrorMessage;
    return isThere ? std::optional(message.arguments().constFirst().toUInt()) : std::nullopt;
}

} // namespace

class MutterIdle::Watch : public IdleWatch {
public:
    Watch(MutterIdle &owner, quint64 key, std::chrono::milliseconds limit)
        : m_owner(owner), m_key(key), m_limit(limit) {
        m_owner.m_watches.emplace(key, this);
        askForIdle();
    }
    ~Watch() override {
        m_owner.m_watches.erase(m_key);
        for (const auto &number : {m_idle, m_active}) {
            if (number) {
                m_owner.remove(*number);
            }
        }
    }

    bool isQuiet() const override { return m_isQuiet; }

    /// The shell is another one, or gone: it knows nothing of us.
    void startAnew() {
        m_idle.reset();
        m_active.reset();
        m_isQuiet = false;
        askForIdle();
    }

    void fired(quint32 number) {
        if (number == m_idle) {
            m_isQuiet = true;
            askForActive();
        } else if (number == m_active) {
            m_isQuiet = false;
            m_active.reset(); // it tells once
        } else {
            m_unknown = number;
        }
    }

private:
    void askForIdle() {
        m_owner.add(m_key, u"AddIdleWatch"_s, {quint64(m_limit.count())},
                    [this](std::optional<quint32> number) { m_idle = number; });
    }

    void askForActive() {
        m_owner.add(m_key, u"AddUserActiveWatch"_s, {}, [this](std::optional<quint32> number) {
            // Without a watch the end would never be told; and it may have fired already.
            m_isQuiet = number.has_value() && number != m_unknown;
            m_active = m_isQuiet ? number : std::nullopt;
        });
    }

    MutterIdle &m_owner;
    quint64 m_key;
    std::chrono::milliseconds m_limit;
    std::optional<quint32> m_idle;    // tells each time that the limit is reached
    std::optional<quint32> m_active;  // tells of the next input
    std::optional<quint32> m_unknown; // the last one that fired and is neither
    bool m_isQuiet = false;
};

MutterIdle::MutterIdle(const QDBusConnection &bus)
    : m_service(bus, kIdleName, [this] { ownerChanged(); }) {
    m_service.follow({{}, kIdlePath, kIdleName, u"WatchFired"_s, {}, u"u"_s},
                     [this](const QDBusMessage &signal) { fired(signal); });
}

MutterIdle::~MutterIdle() = default;

std::unique_ptr<IdleWatch> MutterIdle::watch(std::chrono::milliseconds limit) {
    return std::make_unique<Watch>(*this, ++m_lastKey, limit);
}

/// Hands the number of a watch that the shell adds to `take`, unless the watch has ended here.
void MutterIdle::add(quint64 key, const QString &method, const QVariantList &arguments,
                     std::function<void(std::optional<quint32>)> take) {
    m_service.ask(kIdlePath, kIdleName, method, arguments, busDefaultTimeout,
                  [this, key, take = std::move(take)](const QDBusMessage &answer) {
                      const auto number = watchNumberIn(answer);
                      if (m_watches.count(key) > 0) {
                          take(number);
                      } else if (number) {
                          remove(*number);
                      }
                  });
}

void MutterIdle::remove(quint32 number) const {
    m_service.send(kIdlePath, kIdleName, u"RemoveWatch"_s, {number});
}

void MutterIdle::ownerChanged() {
    for (const auto &[key, watch] : m_watches) {
        watch->startAnew();
    }
}

void MutterIdle::fired(const QDBusMessage &signal) {
    if (const auto number = watchNumberIn(signal)) {
        for (const auto &[key, watch] : m_watches) {
            watch->fired(*number);
        }
    }
}

} // namespace zeph
