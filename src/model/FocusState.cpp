// SPDX-License-Identifier: MIT
#include "model/FocusState.h"

using namespace Qt::StringLiterals;

namespace zeph {

QString rawValue(FocusState state) {
    switch (state) {
    case FocusState::off:
        return u"off"_s;
    case FocusState::on:
        return u"on"_s;
    case FocusState::unknown:
        break;
    }
    return u"unknown"_s;
}

std::optional<FocusState> focusStateFromRaw(const QString &raw) {
    for (const FocusState state : {FocusState::off, FocusState::on, FocusState::unknown}) {
        if (rawValue(state) == raw) {
            return state;
        }
    }
    return std::nullopt;
}

} // namespace zeph
