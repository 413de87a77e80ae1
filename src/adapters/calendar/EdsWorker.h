// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/calendar/EdsSession.h"

#include <chrono>
#include <functional>
#include <memory>

namespace zeph {

class PluginFile;
class RunLoop;

/// Called on the main thread with what the plug-in read.
struct EdsHandlers {
    std::function<void(EdsEvents)> eventsRead;
    std::function<void(std::vector<EdsTask>)> tasksRead;
};

/// A thread that loads the plug-in and runs its session; loading alone takes longer than the
/// main thread may be held. A plug-in that is not there or can't be loaded never answers.
class EdsWorker {
public:
    EdsWorker(RunLoop &runLoop, std::shared_ptr<PluginFile> plugin, const EdsPacing &pacing,
              EdsHandlers handlers);

    /// Ends the reading and returns at once; from then on no handler is called. The thread ends
    /// by itself, which takes as long as the server makes it wait.
    ~EdsWorker();
    EdsWorker(const EdsWorker &) = delete;
    EdsWorker &operator=(const EdsWorker &) = delete;

    void ask(const EdsQuery &query);

    /// Ends the reading and waits for the thread's end; false when it takes longer.
    bool finish(std::chrono::milliseconds patience);

private:
    class Link;
    std::shared_ptr<Link> m_link; // shared with the thread, which may end later
};

} // namespace zeph
