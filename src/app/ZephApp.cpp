// SPDX-License-Identifier: MIT
#include "app/ZephApp.h"

#include <utility>

namespace zeph {

ZephApp::ZephApp(AppServices services) : m_delegate(std::move(services)) {}

void ZephApp::launch() {
    m_delegate.applicationDidFinishLaunching();
}

void ZephApp::terminate() {
    if (!m_terminated) {
        m_terminated = true;
        m_delegate.applicationWillTerminate();
    }
}

void ZephApp::takeDownWallpaper() {
    m_delegate.takeDownWallpaper();
}

} // namespace zeph
