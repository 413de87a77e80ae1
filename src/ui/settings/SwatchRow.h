// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

#include <functional>

class QButtonGroup;
class QGridLayout;

namespace zeph::ui {

/// The backgrounds to choose from: in one row, or in two where that is too long.
class SwatchRow : public QWidget {
public:
    explicit SwatchRow(QWidget *parent = nullptr);

    /// Shows the preset of that colour as chosen and answers its name; without such a preset none
    /// is chosen, and the answer is empty.
    QString choose(const QString &hex);

    /// Called with the colour of the preset that the user chose.
    std::function<void(const QString &hex)> onChosen;

    QSize minimumSizeHint() const override;

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    int widthOf(int columns) const;
    void arrange(int columns);

    QButtonGroup *m_swatches; ///< in the order of the presets
    QGridLayout *m_grid;
    int m_columns = 0;
};

} // namespace zeph::ui
