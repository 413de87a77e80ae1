// SPDX-License-Identifier: MIT
#include "adapters/session/sway/SwayAnswers.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <array>
#include <cmath>
#include <initializer_list>
#include <utility>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

constexpr double kLargestId = 9007199254740991; // the largest whole number that JSON carries
constexpr double kLargestSide = 1 << 20;        // of a layout, in points

// Draws with the scene graph of its library, where the later of two is the upper one.
constexpr std::pair kFirstInOrder{1, 10};

// A title may hold any bytes, which would cost the whole answer.
QJsonDocument documentIn(const QByteArray &payload) {
    const QJsonDocument document = QJsonDocument::fromJson(payload);
    return document.isNull() ? QJsonDocument::fromJson(QString::fromUtf8(payload).toUtf8())
                             : document;
}

std::optional<quint64> idIn(const QJsonObject &node) {
    const double id = node[u"id"].toDouble(-1);
    return id >= 0 && id <= kLargestId ? std::optional(static_cast<quint64>(id)) : std::nullopt;
}

std::optional<int> lengthIn(const QJsonObject &rectangle, const QString &key) {
    const double number = rectangle[key].toDouble(std::nan(""));
    return std::abs(number) <= kLargestSide ? std::optional(static_cast<int>(number))
                                            : std::nullopt;
}

QRect rectangleIn(const QJsonObject &rectangle) {
    const auto x = lengthIn(rectangle, u"x"_s);
    const auto y = lengthIn(rectangle, u"y"_s);
    const auto width = lengthIn(rectangle, u"width"_s);
    const auto height = lengthIn(rectangle, u"height"_s);
    const bool isWhole = x && y && width && height && *width > 0 && *height > 0;
    return isWhole ? QRect(*x, *y, *width, *height) : QRect();
}

std::optional<SwayWindowFacts> windowIn(const QJsonObject &node) {
    const auto id = idIn(node);
    if (!id) {
        return std::nullopt;
    }
    const QJsonObject properties = node[u"window_properties"].toObject();
    return SwayWindowFacts{.id = *id,
                           .applicationId = node[u"app_id"].toString(),
                           .windowClass = properties[u"class"].toString(),
                           .windowInstance = properties[u"instance"].toString(),
                           .process = node[u"pid"].toInteger()};
}

bool isWindow(const QJsonObject &node) {
    const QString type = node[u"type"].toString();
    // A container of windows has the focus while it is chosen as a whole; it has no program.
    return (type == u"con" || type == u"floating_con") && node[u"pid"].toInteger() > 0;
}

} // namespace

std::optional<std::vector<SwayWorkspaceFacts>> swayWorkspacesIn(const QByteArray &payload) {
    const QJsonDocument document = documentIn(payload);
    if (!document.isArray()) {
        return std::nullopt;
    }
    std::vector<SwayWorkspaceFacts> workspaces;
    const QJsonArray list = document.array();
    for (const auto &value : list) {
        const QJsonObject node = value.toObject();
        if (const auto id = idIn(node)) {
            workspaces.push_back({.id = *id,
                                  .name = node[u"name"].toString(),
                                  .output = node[u"output"].toString(),
                                  .area = rectangleIn(node[u"rect"].toObject()),
                                  .isVisible = node[u"visible"].toBool()});
        }
    }
    return workspaces;
}

std::optional<SwayWindowFacts> swayFocusedWindowIn(const QByteArray &payload) {
    std::vector<QJsonObject> open{documentIn(payload).object()};
    while (!open.empty()) {
        const QJsonObject node = open.back();
        open.pop_back();
        if (node[u"focused"].toBool() && isWindow(node)) {
            return windowIn(node);
        }
        for (const QString &key : {u"nodes"_s, u"floating_nodes"_s}) {
            const QJsonArray children = node[key].toArray();
            for (const auto &child : children) {
                open.push_back(child.toObject());
            }
        }
    }
    return std::nullopt;
}

bool swayTellsOfTitle(QByteArrayView payload) {
    constexpr std::array<QByteArrayView, 4> beginning{"{", R"("change")", ":", R"("title")"};
    for (const QByteArrayView piece : beginning) {
        payload = payload.trimmed();
        if (!payload.startsWith(piece)) {
            return false;
        }
        payload = payload.sliced(piece.size());
    }
    return true;
}

std::optional<SwayWindowChange> swayWindowChangeIn(const QByteArray &payload) {
    const QJsonObject event = documentIn(payload).object();
    const auto window = windowIn(event[u"container"].toObject());
    return window ? std::optional(SwayWindowChange{event[u"change"].toString(), *window})
                  : std::nullopt;
}

std::optional<SwayWorkspaceChange> swayWorkspaceChangeIn(const QByteArray &payload) {
    const QJsonObject event = documentIn(payload).object();
    if (!event[u"change"].isString()) {
        return std::nullopt;
    }
    const QJsonObject current = event[u"current"].toObject();
    return SwayWorkspaceChange{event[u"change"].toString(),
                               current[u"nodes"].toArray().isEmpty() &&
                                   current[u"floating_nodes"].toArray().isEmpty()};
}

std::optional<bool> swayLaterLieBelowIn(const QByteArray &payload) {
    const QJsonObject version = documentIn(payload).object();
    const int major = version[u"major"].toInt(-1);
    const int minor = version[u"minor"].toInt(-1);
    if (major < 0 || minor < 0) {
        return std::nullopt;
    }
    return std::pair(major, minor) < kFirstInOrder;
}

bool swaySuccessIn(const QByteArray &payload) {
    return documentIn(payload).object()[u"success"].toBool();
}

} // namespace zeph
