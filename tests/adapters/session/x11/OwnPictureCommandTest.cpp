// SPDX-License-Identifier: MIT
#include "adapters/session/x11/OwnPictureCommand.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace zeph {

TEST(OwnPictureCommandTest, isKnownOfXfdesktopAlone) {
    EXPECT_EQ(ownPictureCommand(DesktopProgram::xfdesktop),
              (QStringList{u"xfdesktop"_s, u"--reload"_s}));
    for (const auto program :
         {DesktopProgram::caja, DesktopProgram::pcmanfm, DesktopProgram::pcmanfmQt,
          DesktopProgram::nemoDesktop, DesktopProgram::ding, DesktopProgram::plasmashell}) {
        EXPECT_TRUE(ownPictureCommand(program).isEmpty());
    }
}

} // namespace zeph
