// SPDX-License-Identifier: MIT
#pragma once

#include "ports/Geocoder.h"

#include <memory>

namespace zeph {

class RunLoop;
class TaskExecutor;

/// Place names without any request: the cities of the weather library, and outlines of our own of
/// lands and waters. The library can't be unloaded once it is in a process, and both take memory,
/// so another program of ours is asked, which ends after its answer.
class OfflineGeocoder : public Geocoder {
public:
    /// `cityLister` is the path of that program; without it, nothing has a name. It is waited for
    /// on `executor`, and its word comes through `runLoop`; both outlive this.
    OfflineGeocoder(TaskExecutor &executor, RunLoop &runLoop, const QString &cityLister);

    /// Cuts a lookup short; no answer comes from now on.
    ~OfflineGeocoder() override;

    void reverseGeocode(const Coordinate &position,
                        std::function<void(const std::vector<Placemark> &)> answer) override;

private:
    class Names;

    TaskExecutor &m_executor;
    std::shared_ptr<Names> m_names; // shared with the tasks, which may end later
};

} // namespace zeph
