// SPDX-License-Identifier: MIT
#pragma once

#include <QRegion>
#include <QSize>

#include <vector>

namespace zeph {

/// How many parts may be laid over a whole picture before the next whole one is due: each costs
/// whoever shows it a picture of its own.
class PatchBudget {
public:
    static constexpr int mostPatches = 24;

    /// Spent at first, since there is nothing that a part could be laid over.
    explicit PatchBudget(QSize whole) : m_whole(whole) {}

    /// The rectangles to lay over it for what changed. Empty when a whole picture is due instead:
    /// all parts together would be too many, or more than half of it. The budget is new then.
    std::vector<QRect> spend(const QRegion &changed);

    /// Has the next picture be a whole one.
    void exhaust() { m_isSpent = true; }

private:
    QSize m_whole;
    bool m_isSpent = true;
    int m_patches = 0;
    qint64 m_pixels = 0;
};

} // namespace zeph
