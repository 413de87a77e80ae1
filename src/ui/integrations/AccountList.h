// SPDX-License-Identifier: MIT
#pragma once

#include "ui/integrations/RowList.h"

#include <vector>

namespace zeph::ui {

/// The accounts of one service: name, how its last fetch went, and whether it is in use.
class AccountList : public RowList {
public:
    struct Row {
        QString name;
        QString status = {}; ///< empty for none
        bool isError = false;
        QString state; ///< a word at the end
        bool operator==(const Row &) const = default;
    };

    explicit AccountList(const QString &name, QWidget *parent = nullptr);

    void setRows(std::vector<Row> rows);

    int rowHeight(int row, int width) const override;
    void paintRow(QPainter &painter, const QRect &area, int row) const override;

private:
    struct Places;

    Places places(const Row &row, const QRect &area) const;

    std::vector<Row> m_rows;
};

} // namespace zeph::ui
