// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace zeph {

struct UpdateStatus;

/// What the card of the updates says and offers.
struct UpdateWords {
    enum class Action {
        none, ///< the button can't be pressed
        check,
        install,
        cancel,
    };

    QString detail; ///< one or two sentences
    QString button;
    Action action = Action::none;

    bool operator==(const UpdateWords &) const = default;
};

UpdateWords updateWords(const UpdateStatus &status);

} // namespace zeph
