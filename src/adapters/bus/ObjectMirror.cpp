// SPDX-License-Identifier: MIT
#include "adapters/bus/ObjectMirror.h"

#include "adapters/bus/DBusCalls.h"

#include <QDBusArgument>

#include <algorithm>

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

const QString propertiesInterface = u"org.freedesktop.DBus.Properties"_s;

/// Takes over what is of interest; tells whether there was anything of it.
bool merge(const MirroredInterface &interface, const QVariantMap &from, QVariantMap &into) {
    bool isTouched = false;
    for (const QString &name : interface.properties) {
        const auto found = from.find(name);
        if (found != from.end()) {
            into[name] = *found;
            isTouched = true;
        }
    }
    return isTouched;
}

} // namespace

ObjectMirror::ObjectMirror(const QDBusConnection &bus, const QString &service,
                           std::vector<MirroredInterface> interfaces, std::size_t limit,
                           std::function<void()> appeared)
    : m_interfaces(std::move(interfaces)),
      m_limit(limit),
      m_appeared(std::move(appeared)),
      m_service(bus, service, [this] { ownerChanged(); }) {
    for (const MirroredInterface &interface : m_interfaces) {
        if (interface.isFollowed) {
            m_service.follow({{},
                              {},
                              propertiesInterface,
                              u"PropertiesChanged"_s,
                              {interface.name},
                              u"sa{sv}as"_s},
                             [this, &interface](const QDBusMessage &signal) {
                                 propertiesChanged(interface, signal);
                             });
        }
    }
}

void ObjectMirror::ownerChanged() {
    m_questions = 0; // the answers to those of an earlier owner are dropped
    m_objects.clear();
    if (m_service.isThere()) {
        m_appeared();
    }
    m_changed.send();
}

void ObjectMirror::ask(const QString &path, const QString &interface, const QString &method,
                       const QString &signature,
                       std::function<void(const std::optional<QVariant> &)> done) {
    if (!m_service.isThere()) {
        return;
    }
    ++m_questions;
    m_service.ask(path, interface, method, {}, busDefaultTimeout,
                  [this, signature, done = std::move(done)](const QDBusMessage &answer) {
                      --m_questions;
                      const bool isAnswer = answer.type() == QDBusMessage::ReplyMessage &&
                                            answer.signature() == signature;
                      done(isAnswer ? std::optional(answer.arguments().constFirst())
                                    : std::nullopt);
                      m_changed.send();
                  });
}

void ObjectMirror::read(const QString &path, const QString &interface) {
    const Key key{path, interface};
    Object *const object = m_service.isThere() ? make(key) : nullptr;
    if (object == nullptr) {
        return;
    }
    if (object->isAsked) {
        object->isStale = true;
        return;
    }
    object->isAsked = true;
    object->isStale = false;
    ++m_questions;
    m_service.ask(path, propertiesInterface, u"GetAll"_s, {interface}, busDefaultTimeout,
                  [this, key](const QDBusMessage &answer) { answered(key, answer); });
}

void ObjectMirror::answered(const Key &key, const QDBusMessage &answer) {
    --m_questions;
    const auto found = m_objects.find(key);
    if (found != m_objects.end()) { // otherwise it is gone
        Object &object = found->second;
        object.isAsked = false;
        object.properties.reset();
        if (const auto properties = propertiesIn(answer)) {
            merge(*interfaceNamed(key.second), *properties, object.properties.emplace());
        }
        if (object.isStale) {
            read(key.first, key.second);
        }
    }
    m_changed.send();
}

void ObjectMirror::put(const QString &path, const QString &interface,
                       const QVariantMap &properties) {
    if (Object *const object = make({path, interface})) {
        merge(*interfaceNamed(interface), properties, object->properties.emplace());
    }
}

void ObjectMirror::drop(const QString &path) {
    std::size_t dropped = 0;
    for (const MirroredInterface &interface : m_interfaces) {
        dropped += m_objects.erase({path, interface.name});
    }
    if (dropped > 0) {
        m_changed.send();
    }
}

void ObjectMirror::propertiesChanged(const MirroredInterface &interface,
                                     const QDBusMessage &signal) {
    const auto found = m_objects.find({signal.path(), interface.name});
    if (found == m_objects.end()) {
        return;
    }
    const QVariantList arguments = signal.arguments();
    const auto values = qdbus_cast<QVariantMap>(arguments.at(1));
    std::optional<QVariantMap> &properties = found->second.properties;
    QVariantMap unknown;
    const bool isTouched = merge(interface, values, properties ? *properties : unknown);
    const QStringList invalidated = arguments.at(2).toStringList();
    // One that did not answer when it was asked is known by what it says all the same.
    const bool isToBeRead = isTouched && !properties;
    if (isToBeRead ||
        std::any_of(interface.properties.begin(), interface.properties.end(),
                    [&](const QString &name) { return invalidated.contains(name); })) {
        read(signal.path(), interface.name);
    }
    if (isTouched && !isToBeRead) {
        m_changed.send();
    }
}

const ObjectMirror::Object *ObjectMirror::find(const QString &path,
                                               const QString &interface) const {
    const auto found = m_objects.find({path, interface});
    return found == m_objects.end() ? nullptr : &found->second;
}

/// Null for one more than are kept.
ObjectMirror::Object *ObjectMirror::make(const Key &key) {
    const bool isFull = m_objects.size() >= m_limit && m_objects.count(key) == 0;
    return isFull ? nullptr : &m_objects[key];
}

const MirroredInterface *ObjectMirror::interfaceNamed(const QString &name) const {
    return &*std::find_if(m_interfaces.begin(), m_interfaces.end(),
                          [&](const MirroredInterface &one) { return one.name == name; });
}

const QVariantMap *ObjectMirror::properties(const QString &path, const QString &interface) const {
    const Object *const object = find(path, interface);
    return object != nullptr && object->properties ? &*object->properties : nullptr;
}

bool ObjectMirror::isAwaited(const QString &path, const QString &interface) const {
    const Object *const object = find(path, interface);
    return object != nullptr && object->isAsked && !object->properties;
}

bool ObjectMirror::contains(const QString &path, const QString &interface) const {
    return find(path, interface) != nullptr;
}

QStringList ObjectMirror::paths(const QString &interface) const {
    QStringList paths;
    for (const auto &[key, object] : m_objects) {
        if (key.second == interface && object.properties) {
            paths << key.first;
        }
    }
    return paths;
}

} // namespace zeph
