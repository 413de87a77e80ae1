// SPDX-License-Identifier: MIT
#include "ui/pages/EveryPageFixture.h"

namespace zeph {

using namespace Qt::StringLiterals;

/// Every page with two device pixels in a logical one.
using EveryPageDense = EveryPageFixture;

TEST_F(EveryPageDense, inTheDark) {
    open();
    ASSERT_EQ(window->devicePixelRatioF(), 2);
    expectPictures(u"dark@2x"_s);
    expectFurtherForms(u"dark@2x"_s);
    expectSteps(u"dark@2x"_s);
}

} // namespace zeph
