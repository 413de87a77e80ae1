// SPDX-License-Identifier: MIT
#pragma once

#include "services/accounts/CustomAPIConfig.h"

#include <QWidget>

#include <functional>
#include <vector>

class QVBoxLayout;

namespace zeph::ui {

class TextField;

/// The values of an endpoint that are shown: how each is called, and its path. Hidden without one.
class DataPointRows : public QWidget {
public:
    /// Tab leads here from `before`.
    explicit DataPointRows(QWidget &before, QWidget *parent = nullptr);

    /// Shows `fields`; rows that are there already stay as they are.
    void setFields(const std::vector<CustomAPIField> &fields);
    std::vector<CustomAPIField> fields() const;

    /// Called when one was renamed or removed, and on Enter in a field.
    std::function<void()> onEdited;
    std::function<void()> onEntered;
    /// Called when the last row was removed, for the focus to go elsewhere.
    std::function<void()> onEmptied;

private:
    struct Row;

    void addRow(const CustomAPIField &field);
    void remove(const QUuid &id);

    QWidget &m_before;
    std::vector<Row> m_rows;
    QVBoxLayout *m_column;
};

} // namespace zeph::ui
