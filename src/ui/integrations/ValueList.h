// SPDX-License-Identifier: MIT
#pragma once

#include "ui/integrations/RowList.h"

#include <vector>

namespace zeph::ui {

/// What an endpoint answered with: path, value, and whether the value is shown already.
class ValueList : public RowList {
public:
    struct Row {
        QString path; ///< as it is shown
        QString preview;
        bool isChosen = false;
        bool operator==(const Row &) const = default;
    };

    explicit ValueList(const QString &name, QWidget *parent = nullptr);

    void setRows(std::vector<Row> rows);
    const std::vector<Row> &rows() const { return m_rows; }

    int rowHeight(int row, int width) const override;
    void paintRow(QPainter &painter, const QRect &area, int row) const override;

private:
    std::vector<Row> m_rows;
};

} // namespace zeph::ui
