// SPDX-License-Identifier: MIT
#include "ui/integrations/HeaderRows.h"

#include "ui/controls/IconButton.h"
#include "ui/controls/Look.h"
#include "ui/controls/PillButton.h"
#include "ui/controls/SecretField.h"
#include "ui/integrations/IntegrationsWords.h"
#include "ui/integrations/StopOrder.h"

#include <QHBoxLayout>

#include <algorithm>

namespace zeph::ui {

using namespace Qt::StringLiterals;

namespace {

constexpr double headerRowGap = 8;
constexpr double headerFieldGap = 10;
constexpr double headerNameWidth = 208;
constexpr double addHeaderGap = 10;

} // namespace

/// One row: the identity of its header and its fields.
struct HeaderRows::Row {
    QUuid id;
    QWidget *line;
    TextField *name;
    SecretField *value;
    IconButton *remove;
};

HeaderRows::HeaderRows(QWidget &before, QWidget *parent)
    : QWidget(parent),
      m_before(before),
      m_column(new QVBoxLayout),
      m_add(new PillButton(words::addHeader, PillButton::Kind::secondary, this)) {
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(scaled(addHeaderGap));
    m_column->setSpacing(scaled(headerRowGap));
    column->addLayout(m_column);
    column->addWidget(m_add, 0, Qt::AlignLeading);
    m_add->setSymbol(u"plus.circle"_s);
    m_add->setHeight(PillButton::Height::small);
    connect(m_add, &QPushButton::clicked, this, [this] {
        const Row &added = addRow({QUuid::createUuid(), {}, {}});
        orderRows();
        added.name->setFocus(Qt::TabFocusReason);
        edited();
    });
}

void HeaderRows::setHeaders(const std::vector<HTTPHeaderEntry> &headers) {
    for (const Row &row : m_rows) {
        row.line->hide();
        row.line->deleteLater();
    }
    m_rows.clear();
    for (const HTTPHeaderEntry &header : headers) {
        addRow(header);
    }
    if (headers.empty()) {
        addRow({QUuid::createUuid(), {}, {}});
    }
    orderRows();
}

std::vector<HTTPHeaderEntry> HeaderRows::headers() const {
    std::vector<HTTPHeaderEntry> headers;
    for (const Row &row : m_rows) {
        if (!row.name->text().isEmpty() || !row.value->text().isEmpty()) {
            headers.push_back({row.id, row.name->text(), row.value->text()});
        }
    }
    return headers;
}

HeaderRows::Row &HeaderRows::addRow(const HTTPHeaderEntry &header) {
    auto *line = new QWidget(this);
    auto *layout = new QHBoxLayout(line);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(scaled(headerFieldGap));
    auto *name = new TextField(words::headerName, line);
    name->setText(header.name);
    name->setAccessibleName(u"Header name"_s);
    name->setFixedWidth(scaled(headerNameWidth));
    auto *value = new SecretField(words::headerValue, line);
    value->setText(header.value);
    value->setAccessibleName(u"Header value"_s);
    auto *remove = new IconButton(u"minus.circle.fill"_s, words::removeHeader, line);
    layout->addWidget(name);
    layout->addWidget(value, 1);
    layout->addWidget(remove);
    for (TextField *field : {name, static_cast<TextField *>(value)}) {
        connect(field, &QLineEdit::textEdited, this, [this] { edited(); });
        connect(field, &QLineEdit::returnPressed, this, [this] {
            if (onEntered) {
                onEntered();
            }
        });
    }
    connect(remove, &QPushButton::clicked, this, [this, id = header.id] { this->remove(id); });
    m_column->addWidget(line);
    line->show();
    m_rows.push_back({header.id, line, name, value, remove});
    return m_rows.back();
}

/// The focus goes on to the next row, or to where one can be added.
void HeaderRows::remove(const QUuid &id) {
    const auto place =
        std::find_if(m_rows.begin(), m_rows.end(), [&id](const Row &row) { return row.id == id; });
    if (place == m_rows.end()) {
        return;
    }
    QWidget *const line = place->line;
    const auto next = m_rows.erase(place);
    QWidget *const stop = next == m_rows.end() ? static_cast<QWidget *>(m_add) : next->name;
    stop->setFocus(Qt::TabFocusReason);
    line->hide();
    line->deleteLater();
    edited();
}

/// Rows come and go, and a new one would be the last stop of the window.
void HeaderRows::orderRows() {
    std::vector<QWidget *> stops{&m_before};
    for (const Row &row : m_rows) {
        stops.insert(stops.end(), {row.name, row.value, row.remove});
    }
    stops.push_back(m_add);
    orderStops(stops);
}

void HeaderRows::edited() const {
    if (onEdited) {
        onEdited();
    }
}

} // namespace zeph::ui
