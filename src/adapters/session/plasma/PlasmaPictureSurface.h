// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/session/plasma/PatchBudget.h"
#include "base/WorkOwner.h"
#include "ports/DesktopSurface.h"

#include <functional>
#include <memory>
#include <vector>

namespace zeph {

class Background;
class PictureFolder;
class PictureFolders;
class RunLoop;

/// A surface that has no window: what is painted goes as pictures to our wallpaper in Plasma, which
/// shows them beneath the icons. The last one stays there when the surface ends.
class PlasmaPictureSurface : public DesktopSurface {
public:
    /// What it works with; all outlive it. `refused` is called when pictures can't be written.
    struct Tools {
        PictureFolders &folders;
        const Background &background;
        RunLoop &runLoop;
        std::function<void()> refused;
    };

    PlasmaPictureSurface(Tools tools, const Screen &screen);

    void setScreen(const Screen &screen) override;
    bool isTransparent() const override { return false; }
    QRegion show(FramePainter paint) override;
    void orderFront() override;

    /// Where it stays so beyond this turn of the loop, nothing of it is seen.
    void orderOut() override;

private:
    using Frame = std::shared_ptr<QImage>; // shared with the writing, during which nobody paints

    void makeFrame(QSize size);
    void takeFolder(const QString &connector);
    void showAll();
    void goOn();
    void start(std::function<bool()> write, Frame read);
    void written(bool isDone);

    Tools m_tools;
    QString m_connector;
    std::shared_ptr<PictureFolder> m_folder; // shared with the writing
    quint64 m_writer = 0;
    Frame m_frame;
    PatchBudget m_budget;
    QRegion m_changed;      // and not yet written
    FramePainter m_waiting; // until the frame was read
    Frame m_read;           // what the writing under way reads
    bool m_isWriting = false;
    bool m_isShown = false;
    bool m_isHidingDue = false;
    WorkOwner m_work;
};

} // namespace zeph
