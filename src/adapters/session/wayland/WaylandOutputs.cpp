// SPDX-License-Identifier: MIT
#include "adapters/session/wayland/WaylandOutputs.h"

#include <algorithm>
#include <iterator>
#include <map>
#include <numeric>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

constexpr std::uint32_t kNewestOutput = 4;
constexpr std::uint32_t kNewestExactness = 3;

/// What is not the screen's to use, at each of its edges.
QMarginsF panelsOn(const Screen &screen) {
    const QRectF &all = screen.frame;
    const QRectF &visible = screen.visibleFrame;
    return {visible.left() - all.left(), visible.top() - all.top(), all.right() - visible.right(),
            all.bottom() - visible.bottom()};
}

} // namespace

WaylandOutputs::WaylandOutputs(WaylandConnection &connection, const ScalingAbilities &abilities,
                               QString drmFolder)
    : m_connection(connection),
      m_abilities(abilities),
      m_drmFolder(std::move(drmFolder)),
      m_order([this] { scheduleUpdate(); }),
      m_globals(connection.subscribeToGlobals([this] { followGlobals(); })) {
    followGlobals();
    m_connection.waitForAnswers();
    update();
}

void WaylandOutputs::follow(UsableAreas *areas) {
    m_areas = areas;
    m_areaChanges = areas ? areas->subscribe([this] { scheduleUpdate(); }) : Subscription();
    update();
}

QRectF WaylandOutputs::visibleFrame(const Screen &screen, const QString &connector) const {
    const auto usable = m_areas ? m_areas->usableArea(connector, screen.frame) : std::nullopt;
    const QRectF visible = usable.value_or(screen.frame) & screen.frame;
    return visible.isEmpty() ? screen.frame : visible; // of a moment before this one
}

std::vector<Screen> WaylandOutputs::all() const {
    std::vector<Screen> screens;
    std::transform(m_screens.begin(), m_screens.end(), std::back_inserter(screens),
                   [](const auto &shown) { return shown.first; });
    return screens;
}

std::optional<Screen> WaylandOutputs::main() const {
    return m_screens.empty() ? std::nullopt : std::optional(m_screens.front().first);
}

Subscription WaylandOutputs::subscribe(std::function<void()> handler) {
    return m_changes.subscribe(std::move(handler));
}

Subscription WaylandOutputs::subscribeToPlaces(std::function<void()> handler) {
    return m_placeChanges.subscribe(std::move(handler));
}

std::optional<WaylandOutputs::Place> WaylandOutputs::placeOf(const Screen &screen) const {
    const auto found =
        std::find_if(m_screens.begin(), m_screens.end(), [&screen](const auto &shown) {
            return shown.first.persistentID == screen.persistentID &&
                   shown.first.displayID == screen.displayID;
        });
    if (found == m_screens.end()) {
        return std::nullopt;
    }
    // An output that has just gone is still among the screens.
    const auto output =
        std::find_if(m_outputs.begin(), m_outputs.end(), [&found](const auto &followed) {
            return followed->number() == found->second;
        });
    if (output == m_outputs.end()) {
        return std::nullopt;
    }
    return Place{(*output)->handle(), found->second, panelsOn(found->first),
                 m_areas != nullptr && m_areas->laterLieBelow()};
}

QString WaylandOutputs::identityOf(const QString &name) const {
    for (const auto &output : m_outputs) {
        const auto shown =
            std::find_if(m_screens.begin(), m_screens.end(), [&output](const auto &candidate) {
                return candidate.second == output->number();
            });
        if (output->facts().words.connector == name && shown != m_screens.end()) {
            return shown->first.persistentID.value_or(QString());
        }
    }
    return {};
}

void WaylandOutputs::followGlobals() {
    const auto &globals = m_connection.globals();
    const auto isGone = [&globals](const auto &output) {
        return std::none_of(globals.begin(), globals.end(), [&output](const WaylandGlobal &global) {
            return global.number == output->number();
        });
    };
    if (std::erase_if(m_outputs, isGone) > 0) {
        scheduleUpdate();
    }
    m_order.follow(m_connection);
    if (!m_exactness) {
        m_exactness = m_connection.bindFirst<zxdg_output_manager_v1>(
            zxdg_output_manager_v1_interface, kNewestExactness);
    }
    for (const WaylandGlobal &global : globals) {
        const bool isKnown =
            std::any_of(m_outputs.begin(), m_outputs.end(), [&global](const auto &output) {
                return output->number() == global.number;
            });
        if (global.interface == wl_output_interface.name && !isKnown) {
            m_outputs.push_back(std::make_unique<WaylandOutput>(
                global.number,
                m_connection.bind<wl_output>(global, wl_output_interface, kNewestOutput),
                m_drmFolder, [this] { scheduleUpdate(); }));
        }
    }
    for (const auto &output : m_outputs) {
        if (m_exactness && !output->isFollowedExactly()) {
            output->follow(*m_exactness);
        }
    }
}

/// Numbers of `screens`. Of mirrors the place of the first one counts, whichever is kept.
std::vector<std::size_t>
WaylandOutputs::inUsersOrder(const std::vector<std::optional<Screen>> &screens) const {
    std::map<std::pair<qreal, qreal>, qsizetype> ranks; // by what the screens begin with
    const auto beginOf = [](const Screen &screen) {
        return std::pair(screen.frame.x(), screen.frame.y());
    };
    for (const auto &screen : screens) {
        if (screen) {
            const qsizetype rank = m_order.rankOf(screen->connector);
            const auto known = ranks.try_emplace(beginOf(*screen), rank).first;
            known->second = std::min(known->second, rank);
        }
    }
    const auto keyOf = [&](std::size_t i) {
        return screens[i] ? std::pair(ranks.at(beginOf(*screens[i])),
                                      !screens[i]->frame.topLeft().isNull())
                          : std::pair(m_order.count(), true);
    };
    std::vector<std::size_t> order(screens.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::stable_sort(order.begin(), order.end(),
                     [&keyOf](std::size_t a, std::size_t b) { return keyOf(a) < keyOf(b); });
    return order;
}

/// One turn of the loop later: what changes at several outputs is mostly told at once.
void WaylandOutputs::scheduleUpdate() {
    if (!std::exchange(m_isUpdateScheduled, true)) {
        QMetaObject::invokeMethod(
            &m_context, [this] { update(); }, Qt::QueuedConnection);
    }
}

void WaylandOutputs::update() {
    m_isUpdateScheduled = false;
    std::vector<OutputFacts> facts;
    std::transform(m_outputs.begin(), m_outputs.end(), std::back_inserter(facts),
                   [](const auto &output) { return output->facts(); });
    for (std::size_t i = 0; i < facts.size(); ++i) {
        if (facts[i].words.connector.isEmpty()) { // old compositors don't tell it
            facts[i].words.connector = u"output-%1"_s.arg(i + 1);
        }
    }
    auto described = screensOf(facts, m_abilities);
    const std::vector<std::size_t> order = inUsersOrder(described);
    if (m_areas != nullptr && m_areas->mirrorsShareSurfaces()) {
        leaveOutMirrors(described);
    }
    const std::vector<Screen> before = all();
    m_screens.clear();
    for (const std::size_t i : order) {
        if (described[i]) {
            m_screens.emplace_back(*described[i], m_outputs[i]->number());
            Screen &screen = m_screens.back().first;
            screen.visibleFrame = visibleFrame(screen, facts[i].words.connector);
        }
    }
    m_placeChanges.send();
    if (all() != before) {
        m_changes.send();
    }
}

} // namespace zeph
