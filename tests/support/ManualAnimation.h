// SPDX-License-Identifier: MIT
#pragma once

#include <QAnimationDriver>
#include <QCoreApplication>

#include <chrono>

namespace zeph {

/// Drives every animation of the thread by hand while it lives.
class ManualAnimation : public QAnimationDriver {
public:
    ManualAnimation() { install(); }
    ~ManualAnimation() override { uninstall(); }
    ManualAnimation(const ManualAnimation &) = delete;
    ManualAnimation &operator=(const ManualAnimation &) = delete;

    void passes(std::chrono::milliseconds time) {
        QCoreApplication::processEvents(); // an animation begins in a later turn
        m_elapsed += time.count();
        advanceAnimation();
    }

    qint64 elapsed() const override { return m_elapsed; }

private:
    qint64 m_elapsed = 0;
};

} // namespace zeph
