// SPDX-License-Identifier: MIT
#include "adapters/session/identity/ScreenIdentity.h"

#include <QStringList>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

QString ownWords(const ScreenFacts &screen) {
    const QString model = screen.model.simplified();
    const QString serial = screen.serialNumber.simplified();
    if (model.isEmpty() && serial.isEmpty()) {
        return screen.connector;
    }
    QStringList words{screen.manufacturer.simplified(), model, serial};
    words.removeAll(QString());
    return words.join(u" "_s);
}

QString ownName(const ScreenFacts &screen) {
    QString model = screen.model.simplified();
    if (!model.isEmpty()) {
        return model;
    }
    const QString maker = screen.manufacturer.simplified();
    return maker.isEmpty() ? screen.connector : maker + u' ' + screen.connector;
}

} // namespace

std::vector<QString> screenIdentities(const std::vector<ScreenFacts> &screens) {
    std::vector<QString> plain;
    plain.reserve(screens.size());
    std::transform(screens.begin(), screens.end(), std::back_inserter(plain), ownWords);

    std::vector<QString> unique = plain;
    for (std::size_t i = 0; i < screens.size(); ++i) {
        // Its words alone would name another panel of the same make that is plugged later.
        const bool hasSerial = !screens[i].serialNumber.simplified().isEmpty();
        const bool isShared = std::count(plain.begin(), plain.end(), plain[i]) > 1;
        if ((!hasSerial || isShared) && plain[i] != screens[i].connector) {
            unique[i] += u" @"_s + screens[i].connector;
        }
    }
    return unique;
}

std::vector<QString> screenNames(const std::vector<ScreenFacts> &screens) {
    std::vector<QString> plain;
    plain.reserve(screens.size());
    std::transform(screens.begin(), screens.end(), std::back_inserter(plain), ownName);

    std::vector<QString> unique = plain;
    for (std::size_t i = 0; i < screens.size(); ++i) {
        const bool isShared = std::count(plain.begin(), plain.end(), plain[i]) > 1;
        if (isShared && plain[i] != screens[i].connector) {
            unique[i] += u" (%1)"_s.arg(screens[i].connector);
        }
    }
    return unique;
}

quint32 connectorNumber(const QString &connector) {
    // FNV-1a: Qt's own hash is seeded anew in every process.
    quint32 hash = 2166136261U;
    const QByteArray bytes = connector.toUtf8();
    for (const char byte : bytes) {
        hash = (hash ^ static_cast<unsigned char>(byte)) * 16777619U;
    }
    return hash == 0 ? 1 : hash;
}

} // namespace zeph
