// SPDX-License-Identifier: MIT
#include "ui/pages/EveryPageFixture.h"

#include <QApplication>

namespace zeph {

using namespace Qt::StringLiterals;

/// Every page in the window, as those see it whose desktop is not the usual one.
using EveryPageGolden = EveryPageFixture;

TEST_F(EveryPageGolden, inTheLight) {
    appearance.wantedScheme = DesktopAppearance::Scheme::light;
    open();
    expectPictures(u"light"_s);
    expectFurtherForms(u"light"_s);
}

TEST_F(EveryPageGolden, fromRightToLeft) {
    QApplication::setLayoutDirection(Qt::RightToLeft);
    open();
    expectPictures(u"mirrored"_s);
    expectFurtherForms(u"mirrored"_s);
    expectSteps(u"mirrored"_s);
}

TEST_F(EveryPageGolden, withHalfAsLargeATextAgain) {
    setTextSize(15);
    open();
    expectPictures(u"font-150"_s);
    expectFurtherForms(u"font-150"_s);
    expectSteps(u"font-150"_s);
}

} // namespace zeph
