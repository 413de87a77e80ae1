// SPDX-License-Identifier: MIT
#pragma once

#include "platform/LocationClient.h"

#include <QString>

#include <functional>
#include <memory>
#include <optional>

namespace zeph {

class Geocoder;

/// Where the machine roughly is, and the name of that spot. Asks for a fix only when permission
/// comes or when told to; the last fix is kept for good. Main thread only.
class LocationManager : public LocationClientDelegate {
public:
    /// Becomes the client's delegate and asks for nothing. Null stands for a source that the
    /// machine does not have: no fix, or no names. Both outlive this object.
    LocationManager(LocationClient *client, Geocoder *geocoder);
    ~LocationManager() override;

    /// The latest fix, absent until one has come.
    const std::optional<Coordinate> &coordinate() const { return m_coordinate; }

    /// The name found for the latest fix; absent until then and after a lookup that found none.
    const std::optional<QString> &placeName() const { return m_placeName; }

    /// Called with each fix, before its name is looked up. An empty function ends that.
    void setOnUpdate(std::function<void(Coordinate)> onUpdate);

    /// `denied` on a machine without a location client.
    LocationAuthorization authorizationStatus() const;
    /// Asks the client for one fix, whatever the permission.
    void requestLocation();

    void authorizationChanged(LocationAuthorization status) override;
    /// The last of `fixes` counts; none changes nothing.
    void locationsUpdated(const std::vector<Coordinate> &fixes) override;
    /// Does nothing: the last fix stays and the next change of permission tries again.
    void locationFailed() override;

private:
    void lookUpName(const Coordinate &position);

    LocationClient *m_client;
    Geocoder *m_geocoder;
    std::optional<Coordinate> m_coordinate;
    std::optional<QString> m_placeName;
    std::function<void(Coordinate)> m_onUpdate;
    std::shared_ptr<LocationManager *> m_self; // ends with this object; late answers look for it
};

} // namespace zeph
