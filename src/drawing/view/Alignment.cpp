// SPDX-License-Identifier: MIT
#include "drawing/view/Alignment.h"

namespace zeph {

double alignedOffset(HorizontalAlignment alignment, double room) {
    switch (alignment) {
    case HorizontalAlignment::leading:
        return 0;
    case HorizontalAlignment::center:
        return room / 2;
    case HorizontalAlignment::trailing:
        break;
    }
    return room;
}

double alignedOffset(VerticalAlignment alignment, double room) {
    switch (alignment) {
    case VerticalAlignment::top:
        return 0;
    case VerticalAlignment::center:
        return room / 2;
    case VerticalAlignment::bottom:
        break;
    }
    return room;
}

} // namespace zeph
