// SPDX-License-Identifier: MIT
#include "adapters/session/nemo/NemoSession.h"

#include "adapters/session/nemo/NemoTool.h"
#include "ports/RunLoop.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

// Of each call of the tool, which takes a fiftieth of a second.
constexpr std::chrono::milliseconds kToolPatience{2000};
constexpr std::chrono::milliseconds kPatienceAtEnd{150};

bool isCinnamon(const QString &currentDesktop) {
    const QStringList names = currentDesktop.split(u':');
    return names.contains(u"X-Cinnamon"_s, Qt::CaseInsensitive) ||
           names.contains(u"Cinnamon"_s, Qt::CaseInsensitive);
}

} // namespace

NemoSession::NemoSession(std::unique_ptr<X11Session> x11, const Surroundings &surroundings)
    : m_x11(std::move(x11)),
      m_defaults(surroundings.defaults),
      m_background(Background::over(m_executor, surroundings.runLoop)) {
    X11IconCover &cover = m_x11->windowServer().iconCover();
    const bool isHere = isCinnamon(surroundings.currentDesktop) || !cover.facts().icons.empty();
    m_nemo.emplace(isHere, NemoDesktop::Surroundings{m_background, surroundings.runLoop,
                                                     nemoSettings(m_defaults, kToolPatience)});
    m_news = cover.subscribe([this, &cover] { m_nemo->follow(cover.facts()); });
    m_nemo->follow(cover.facts());
}

NemoSession::~NemoSession() {
    m_news = {};
    m_nemo.reset();
    m_executor.finish(kPatienceAtEnd);
    m_x11.reset(); // our windows first: without them Nemo has nobody to get along with
    const NemoSettings settings = nemoSettings(m_defaults, kPatienceAtEnd);
    if (settings.keepsAnything()) {
        settings.giveBack();
    }
}

} // namespace zeph
