// SPDX-License-Identifier: MIT
#pragma once

#include "ports/DesktopWallpaper.h"

namespace zeph {

/// A desktop that shows our wallpaper, or tells why not.
class FakeDesktopWallpaper : public DesktopWallpaper {
public:
    bool isChosen() const override { return chosen; }
    void choose(bool isOurs) override {
        chosen = isOurs;
        m_changes.send();
    }
    QString problem() const override { return m_problem; }
    bool isReplaced() const override { return m_isReplaced; }
    void look() override { ++looks; }
    Subscription subscribe(std::function<void()> handler) override {
        return m_changes.subscribe(std::move(handler));
    }

    void setProblem(const QString &problem) {
        m_problem = problem;
        m_changes.send();
    }

    void replace() {
        m_isReplaced = true;
        m_changes.send();
    }

    bool chosen = false;
    int looks = 0;

private:
    QString m_problem;
    bool m_isReplaced = false;
    ChangePublisher m_changes;
};

} // namespace zeph
