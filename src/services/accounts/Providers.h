// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

/// The web services by their keys.
namespace zeph::providers {

/// The name of an account that was given none. An unknown key is capitalised.
QString defaultName(const QString &provider);

/// The services whose single accounts of early versions are carried over, in that order. Some of
/// them took a key then and take none now.
QStringList keyed();

/// True for the services that are asked without a key.
bool isKeyless(const QString &provider);

/// True for the services that are not asked without a key, one that is not known among them.
bool needsKey(const QString &provider);

/// True for the services that need something beside the key, such as a user name.
bool needsValue(const QString &provider);

} // namespace zeph::providers
