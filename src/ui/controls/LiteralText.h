// SPDX-License-Identifier: MIT
#pragma once

class QAbstractButton;
class QString;

namespace zeph::ui {

/// Gives a button a text in which an ampersand is a letter. The toolkit would take it for the mark
/// of a key, which then presses the button, and leave it out of what screen readers say. An
/// accessible name that says something else than the text before stays.
void setLiteralText(QAbstractButton &button, const QString &text);

} // namespace zeph::ui
