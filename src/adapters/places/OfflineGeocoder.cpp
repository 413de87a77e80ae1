// SPDX-License-Identifier: MIT
#include "adapters/places/OfflineGeocoder.h"

#include "adapters/places/CityLister.h"
#include "adapters/places/PlaceLine.h"
#include "ports/RunLoop.h"
#include "ports/TaskExecutor.h"

#include <atomic>
#include <mutex>
#include <utility>

namespace zeph {

namespace {

// A lister that failed as often will not succeed, and each time can take seconds.
constexpr int failureLimit = 3;

} // namespace

/// What the main thread and the tasks share.
class OfflineGeocoder::Names : public std::enable_shared_from_this<Names> {
public:
    Names(RunLoop &runLoop, QString cityLister)
        : m_runLoop(&runLoop), m_cityLister(std::move(cityLister)) {}

    std::vector<Placemark> lookUp(const Coordinate &position) {
        if (m_failures >= failureLimit || m_isClosed) {
            return {};
        }
        const auto answer = askCityLister(m_cityLister, positionLine(position), m_isClosed);
        m_failures = answer ? 0 : m_failures + 1;
        return answer ? placesIn(answer->left(answer->indexOf('\n'))) : std::vector<Placemark>();
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
        m_isClosed = true; // ends the listers under way
        const std::lock_guard lock(m_postMutex);
    }

private:
    std::atomic<bool> m_isClosed = false;
    std::mutex m_postMutex; // nothing is posted once `close` has returned
    RunLoop *m_runLoop;
    QString m_cityLister;
    std::atomic<int> m_failures = 0; // one after the other
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
