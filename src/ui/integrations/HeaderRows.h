// SPDX-License-Identifier: MIT
#pragma once

#include "services/accounts/CustomAPIConfig.h"

#include <QWidget>

#include <functional>
#include <vector>

class QVBoxLayout;

namespace zeph::ui {

class PillButton;

/// The headers of an endpoint, a row each. Their values may be keys and are hidden like keys.
class HeaderRows : public QWidget {
public:
    /// Tab leads here from `before`.
    explicit HeaderRows(QWidget &before, QWidget *parent = nullptr);

    /// Shows `headers` in place of those before; without one, a row to begin with.
    void setHeaders(const std::vector<HTTPHeaderEntry> &headers);
    /// Those that were typed, but for rows that are empty.
    std::vector<HTTPHeaderEntry> headers() const;

    /// Called when one was edited, added or removed.
    std::function<void()> onEdited;
    /// Called on Enter in a field.
    std::function<void()> onEntered;

private:
    struct Row;

    Row &addRow(const HTTPHeaderEntry &header);
    void remove(const QUuid &id);
    void orderRows();
    void edited() const;

    QWidget &m_before;
    std::vector<Row> m_rows;
    QVBoxLayout *m_column;
    PillButton *m_add;
};

} // namespace zeph::ui
