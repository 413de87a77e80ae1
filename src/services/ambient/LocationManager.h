// SPDX-License-Identifier: MIT
#pragma once

#include "base/ChangePublisher.h"
#include "base/WorkOwner.h"
#include "ports/LocationClient.h"

#include <QString>

#include <functional>
#include <optional>

namespace zeph {

class Geocoder;

/// Where the machine roughly is, and the name of that spot. Asks for a fix only when permission
/// comes or when told to; the last fix is kept until permission goes. Main thread only.
class LocationManager : public LocationClientDelegate {
public:
    /// Becomes a delegate of the client and asks for nothing. Null stands for a source that the
    /// machine does not have: no fix, or no names. Both outlive this object.
    LocationManager(LocationClient *client, Geocoder *geocoder);

    /// The latest fix, absent until one has come.
    const std::optional<Coordinate> &coordinate() const { return m_coordinate; }

    /// The name found for the latest fix; absent until then and after a lookup that found none.
    const std::optional<QString> &placeName() const { return m_placeName; }

    /// Calls `handler` with each fix, before its name is looked up, until the subscription ends.
    [[nodiscard]] Subscription onUpdate(std::function<void(Coordinate)> handler);

    /// Calls `handler` after a fix was forgotten, until the subscription ends.
    [[nodiscard]] Subscription onForgotten(std::function<void()> handler);

    /// `denied` on a machine without a location client.
    LocationAuthorization authorizationStatus() const;
    /// Asks the client for one fix, whatever the permission.
    void requestLocation();

    /// Asks for a fix where there is permission now, and forgets the last one where there is none.
    void authorizationChanged(LocationAuthorization status) override;
    /// The last of `fixes` counts; none changes nothing.
    void locationsUpdated(const std::vector<Coordinate> &fixes) override;
    /// Does nothing: the last fix stays and the next change of permission tries again.
    void locationFailed() override;

private:
    void lookUpName(const Coordinate &position);
    void forget();

    LocationClient *m_client;
    Geocoder *m_geocoder;
    std::optional<Coordinate> m_coordinate;
    std::optional<QString> m_placeName;
    ChangePublisher m_updates;
    ChangePublisher m_forgotten;
    WorkOwner m_lookups;
    int m_lookup = 0; // the latest
    Subscription m_subscription;
};

} // namespace zeph
