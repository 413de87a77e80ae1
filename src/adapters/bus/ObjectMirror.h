// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/bus/BusService.h"
#include "base/ChangePublisher.h"

#include <QVariantMap>

#include <map>
#include <optional>
#include <utility>

namespace zeph {

/// An interface of a service's objects.
struct MirroredInterface {
    QString name;
    QStringList properties; ///< that are of interest; the others are not kept
    bool isFollowed = true; ///< whether changes are heard, of every object
};

/// A copy of what a service tells of its objects: each is asked once for its properties and then
/// followed by its signals, from one owner of the service's name to the next. Never waits. Main
/// thread only.
class ObjectMirror {
public:
    /// At most `limit` pairs of an object and an interface are kept: a service that claims more is
    /// not believed. `appeared` runs for each new owner of the name, about which nothing is known
    /// yet; it says what to read.
    ObjectMirror(const QDBusConnection &bus, const QString &service,
                 std::vector<MirroredInterface> interfaces, std::size_t limit,
                 std::function<void()> appeared);

    /// Asks the object for the properties of an interface of the mirrored ones, once for all the
    /// times that this is called while the answer is under way.
    void read(const QString &path, const QString &interface);

    /// Takes over what a listing told of an object.
    void put(const QString &path, const QString &interface, const QVariantMap &properties);

    /// The object is gone.
    void drop(const QString &path);

    /// Asks for something else; `done` gets absent for an error and for an answer that does not
    /// have the signature. The mirror is not settled before.
    void ask(const QString &path, const QString &interface, const QString &method,
             const QString &signature, std::function<void(const std::optional<QVariant> &)> done);

    BusService &service() { return m_service; }

    /// Null while they are not known, and when the object refused to tell them.
    const QVariantMap *properties(const QString &path, const QString &interface) const;

    /// Whether the object was read and has not answered for the first time.
    bool isAwaited(const QString &path, const QString &interface) const;

    /// Whether the object was read at all.
    bool contains(const QString &path, const QString &interface) const;

    /// The objects whose properties of the interface are known, in the order of their paths.
    QStringList paths(const QString &interface) const;

    /// False until it is known whether the service is there, and while an answer is awaited.
    bool isSettled() const { return m_service.isSettled() && m_questions == 0; }

    /// `handler` runs after a change of what is told here; it must not end this.
    [[nodiscard]] Subscription onChange(std::function<void()> handler) {
        return m_changed.subscribe(std::move(handler));
    }

private:
    using Key = std::pair<QString, QString>; // path and interface
    struct Object {
        std::optional<QVariantMap> properties;
        bool isAsked = false;
        bool isStale = false; // to be asked again once the answer under way has come
    };

    void ownerChanged();
    void answered(const Key &key, const QDBusMessage &answer);
    void propertiesChanged(const MirroredInterface &interface, const QDBusMessage &signal);
    const Object *find(const QString &path, const QString &interface) const;
    Object *make(const Key &key);
    const MirroredInterface *interfaceNamed(const QString &name) const;

    const std::vector<MirroredInterface> m_interfaces;
    std::size_t m_limit;
    std::function<void()> m_appeared;
    int m_questions = 0;
    std::map<Key, Object> m_objects;
    ChangePublisher m_changed;
    BusService m_service; // last, since it calls back
};

} // namespace zeph
