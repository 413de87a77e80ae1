// SPDX-License-Identifier: MIT
#pragma once

#include <QRadioButton>

namespace zeph::ui {

/// A background to choose, painted as the wallpaper would be. Its text is the colour's name, which
/// is not drawn.
class Swatch : public QRadioButton {
public:
    Swatch(const QString &name, const QString &hex, QWidget *parent = nullptr);

    const QString &hex() const { return m_hex; }

private:
    QString m_hex;
};

} // namespace zeph::ui
