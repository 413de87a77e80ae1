// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/session/common/UsableAreas.h"
#include "adapters/session/wayland/OutputOrder.h"
#include "adapters/session/wayland/WaylandConnection.h"
#include "adapters/session/wayland/WaylandOutput.h"
#include "ports/Screens.h"

#include <QMarginsF>

#include <memory>
#include <optional>
#include <utility>
#include <vector>

namespace zeph {

/// The outputs of a compositor as screens. What is told together arrives as one change.
class WaylandOutputs : public Screens {
public:
    /// What an output is to whoever puts something on it.
    struct Place {
        wl_output *output = nullptr;
        std::uint32_t number = 0; ///< another one when the output was gone in between
        QMarginsF panels = {};    ///< what they take of it, in points
        /// The compositor stacks a newer surface beneath the older ones of its layer.
        bool laterLieBelow = false;
    };

    /// Knows the outputs that are there; one round trip. `connection` outlives this. `drmFolder` is
    /// where the kernel keeps what displays tell of themselves.
    WaylandOutputs(WaylandConnection &connection, const ScalingAbilities &abilities,
                   QString drmFolder = QStringLiteral("/sys/class/drm"));

    /// Has the screens' visible frames follow `areas`, which outlives every use of this object, or
    /// null.
    void follow(UsableAreas *areas);

    std::vector<Screen> all() const override;
    std::optional<Screen> main() const override;
    Subscription subscribe(std::function<void()> handler) override;

    /// The output that shows `screen` now, or none.
    std::optional<Place> placeOf(const Screen &screen) const;

    /// `Screen::persistentID` of the output that the compositor calls `name`; empty where none is
    /// shown.
    QString identityOf(const QString &name) const;

    /// Calls `handler` after an output came, went or changed, also where the screens are the same.
    [[nodiscard]] Subscription subscribeToPlaces(std::function<void()> handler);

private:
    void followGlobals();
    void scheduleUpdate();
    void update();
    std::vector<std::size_t> inUsersOrder(const std::vector<std::optional<Screen>> &screens) const;
    QRectF visibleFrame(const Screen &screen, const QString &connector) const;

    WaylandConnection &m_connection;
    ScalingAbilities m_abilities;
    QString m_drmFolder;
    WaylandHandle<zxdg_output_manager_v1> m_exactness;
    std::vector<std::unique_ptr<WaylandOutput>> m_outputs;
    OutputOrder m_order;
    // With the numbers of their outputs, in the user's order; where there is none, the one at the
    // origin first.
    std::vector<std::pair<Screen, std::uint32_t>> m_screens;
    ChangePublisher m_changes;
    ChangePublisher m_placeChanges;
    Subscription m_globals;
    UsableAreas *m_areas = nullptr;
    Subscription m_areaChanges;
    QObject m_context;
    bool m_isUpdateScheduled = false;
};

} // namespace zeph
