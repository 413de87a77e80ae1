// SPDX-License-Identifier: MIT
#include "platform/linux/places/OfflineGeocoder.h"

#include "platform/RunLoop.h"
#include "platform/TaskExecutor.h"
#include "platform/linux/places/CityLister.h"
#include "platform/linux/places/CityTable.h"
#include "platform/linux/places/PlaceNames.h"

#include <atomic>
#include <mutex>
#include <utility>

namespace zeph {

namespace {

// A lister that failed as often will not succeed, and each time can take seconds.
constexpr int attemptLimit = 3;

} // namespace

/// What the main thread and the tasks share.
class OfflineGeocoder::Names : public std::enable_shared_from_this<Names> {
public:
    Names(RunLoop &runLoop, QString cityLister)
        : m_runLoop(&runLoop), m_cityLister(std::move(cityLister)) {}

    std::vector<Placemark> lookUp(const Coordinate &position) {
        return placesAt(position, *cities());
    }

    void post(std::function<void()> deliver) {
        const std::lock_guard lock(m_postMutex);
        if (m_isClosed) {
            return;
        }
        m_runLoop->post([names = shared_from_this(), deliver = std::move(deliver)] {
            if (!names->m_isClosed) { // closed on this same thread only
                deliver();
            }
        });
    }

    void close() {
        m_isClosed = true; // ends a listing, which may hold the other mutex
        const std::lock_guard lock(m_postMutex);
    }

private:
    std::shared_ptr<const CityTable> cities() {
        const std::lock_guard lock(m_tableMutex);
        if (m_cities->isEmpty() && m_attempts < attemptLimit && !m_isClosed) {
            ++m_attempts;
            m_cities = std::make_shared<const CityTable>(listCities(m_cityLister, m_isClosed));
        }
        return m_cities;
    }

    std::atomic<bool> m_isClosed = false;
    std::mutex m_postMutex; // nothing is posted once `close` has returned
    RunLoop *m_runLoop;
    std::mutex m_tableMutex; // those who ask meanwhile wait for the one listing
    QString m_cityLister;
    int m_attempts = 0;
    std::shared_ptr<const CityTable> m_cities = std::make_shared<const CityTable>();
};

OfflineGeocoder::OfflineGeocoder(TaskExecutor &executor, RunLoop &runLoop,
                                 const QString &cityLister)
    : m_executor(executor), m_names(std::make_shared<Names>(runLoop, cityLister)) {}

OfflineGeocoder::~OfflineGeocoder() {
    m_names->close();
}

void OfflineGeocoder::reverseGeocode(const Coordinate &position,
                                     std::function<void(const std::vector<Placemark> &)> answer) {
    m_executor.run([names = m_names, position, answer = std::move(answer)] {
        names->post([answer, places = names->lookUp(position)] { answer(places); });
    });
}

} // namespace zeph
