// SPDX-License-Identifier: MIT
#pragma once

#include "golden/GoldenImage.h"
#include "ui/SettingsPages.h"

#include <QImage>

class QScrollArea;

namespace zeph {

/// The settings on the sample day, on a display with room for all of a page.
class EveryPageFixture : public SettingsFixture {
protected:
    EveryPageFixture();
    ~EveryPageFixture() override;

    /// The text size of the whole program, 10 by design.
    static void setTextSize(double points);

    /// Opens the window, at the size that it has with this size of text.
    void open();
    void settle();

    /// The scroll area of the tab that is shown.
    QScrollArea &shownPane() const;

    /// Compares the picture of each page with "pages/<page>-<variant>" of the golden images.
    /// With `only`, of those pages alone.
    void expectPictures(const QString &variant, const QStringList &only = {});

    /// The same of the forms of all services that have no page yet. Their accounts are there from
    /// here on.
    void expectFurtherForms(const QString &variant);

    /// The same of each step of the first start: "pages/step-<number>-<variant>".
    void expectSteps(const QString &variant);

    ui::SettingsContext parts = context();
    SettingsPages pages{parts, background};
    std::unique_ptr<ui::SettingsWindow> window;

private:
    void expectPicture(const SettingsPages::Page &page, const QString &variant);
    QImage picture();
};

} // namespace zeph
