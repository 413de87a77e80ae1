// SPDX-License-Identifier: MIT
#pragma once

#include <QTimer>

#include <chrono>
#include <functional>

namespace zeph {

/// Bounds how often something is asked for anew while another program insists on the opposite,
/// which would otherwise keep both busy for ever.
class InsistenceLimit {
public:
    /// `lookAgain` is called at the end of a burst that was cut off, as no notice comes any more
    /// when both sides rest. With a program that goes on and on that happens ever more seldom.
    explicit InsistenceLimit(std::function<void()> lookAgain,
                             std::chrono::milliseconds burst = std::chrono::seconds(2));

    /// Whether it may be asked for once more, `most` times within a burst. Counts the question.
    bool allows(int most);

private:
    void endBurst();

    std::function<void()> m_lookAgain;
    std::chrono::milliseconds m_shortest;
    QTimer m_burst; // runs from the first question to the end of the burst
    int m_asked = 0;
    bool m_wasCutOff = false;
};

} // namespace zeph
