// SPDX-License-Identifier: MIT
#include "adapters/session/nemo/NemoSession.h"

#include "adapters/session/nemo/NemoTool.h"
#include "ports/RunLoop.h"

#include <utility>

namespace zeph {

namespace {

// People wait for the end. What is not given back by then the next start gives back.
constexpr std::chrono::milliseconds kPatienceForTask{150};
constexpr std::chrono::milliseconds kPatienceAtEnd{300};

} // namespace

NemoSession::NemoSession(std::unique_ptr<X11Session> x11, const Surroundings &surroundings)
    : m_x11(std::move(x11)),
      m_defaults(surroundings.defaults),
      m_background(Background::over(m_executor, surroundings.runLoop)) {
    X11IconCover &cover = m_x11->windowServer().iconCover();
    const bool isHere = surroundings.isCinnamon || !cover.facts().icons.empty();
    m_nemo.emplace(isHere, NemoDesktop::Surroundings{m_background, surroundings.runLoop,
                                                     nemoSettings(m_defaults)});
    m_news = cover.subscribe([this, &cover] { m_nemo->follow(cover.facts()); });
    m_nemo->follow(cover.facts());
}

NemoSession::~NemoSession() {
    m_news = {};
    m_nemo.reset();
    const bool isIdle = m_executor.finish(kPatienceForTask);
    m_x11.reset(); // our windows first: without them Nemo has nobody to get along with
    if (isIdle) {
        giveNemoBack(m_defaults, kPatienceAtEnd);
    }
}

} // namespace zeph
