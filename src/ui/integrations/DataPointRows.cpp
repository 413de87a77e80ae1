// SPDX-License-Identifier: MIT
#include "ui/integrations/DataPointRows.h"

#include "services/forms/CustomAPIDraft.h"
#include "ui/controls/ElidedLabel.h"
#include "ui/controls/IconButton.h"
#include "ui/controls/Look.h"
#include "ui/controls/TextField.h"
#include "ui/integrations/FormCard.h"
#include "ui/integrations/IntegrationsWords.h"
#include "ui/integrations/StopOrder.h"

#include <QHBoxLayout>

#include <algorithm>

namespace zeph::ui {

using namespace Qt::StringLiterals;

namespace {

constexpr double pointRowGap = 8;
constexpr double pointFieldGap = 14;
constexpr double pointLabelWidth = 205;
constexpr double pointsGap = 8;
constexpr double pointsCardGap = 14; // goes along when there is no card

void tell(const std::function<void()> &listener) {
    if (listener) {
        listener();
    }
}

} // namespace

/// One row: the data point without its name, which stands in the field.
struct DataPointRows::Row {
    QUuid id;
    QString path;
    QWidget *line;
    TextField *label;
    IconButton *remove;
};

DataPointRows::DataPointRows(QWidget &before, QWidget *parent)
    : QWidget(parent), m_before(before), m_column(new QVBoxLayout) {
    auto *card = new FormCard(this);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, scaled(pointsCardGap), 0, 0);
    column->addWidget(card);
    card->addLabel(words::dataPoints);
    auto *rows = new QWidget(card);
    rows->setLayout(m_column);
    m_column->setContentsMargins(0, 0, 0, 0);
    m_column->setSpacing(scaled(pointRowGap));
    card->addRows(rows, pointsGap);
    hide();
}

void DataPointRows::setFields(const std::vector<CustomAPIField> &fields) {
    for (const CustomAPIField &field : fields) {
        const bool isThere = std::any_of(m_rows.begin(), m_rows.end(),
                                         [&field](const Row &row) { return row.id == field.id; });
        if (!isThere) {
            addRow(field);
        }
    }
    setVisible(!m_rows.empty());
    std::vector<QWidget *> stops{&m_before};
    for (const Row &row : m_rows) {
        stops.insert(stops.end(), {row.label, row.remove});
    }
    orderStops(stops);
}

std::vector<CustomAPIField> DataPointRows::fields() const {
    std::vector<CustomAPIField> fields;
    for (const Row &row : m_rows) {
        fields.push_back({row.id, row.label->text(), row.path});
    }
    return fields;
}

void DataPointRows::addRow(const CustomAPIField &field) {
    const QString path = CustomAPIDraft::shownPath(field.jsonPath);
    auto *line = new QWidget(this);
    auto *layout = new QHBoxLayout(line);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(scaled(pointFieldGap));
    auto *label = new TextField(words::nameLabel, line);
    label->setText(field.label);
    label->setAccessibleName(words::nameLabel + u", "_s + path);
    label->setFixedWidth(scaled(pointLabelWidth));
    auto *place = new ElidedLabel(path, TypeRole::fixed, TextLabel::Ink::second, line);
    place->setLayoutDirection(Qt::LeftToRight);
    auto *remove = new IconButton(u"minus.circle.fill"_s, words::removeDataPoint, line);
    remove->setAccessibleDescription(path);
    layout->addWidget(label);
    layout->addWidget(place, 1);
    layout->addWidget(remove);
    connect(label, &QLineEdit::textEdited, this, [this] { tell(onEdited); });
    connect(label, &QLineEdit::returnPressed, this, [this] { tell(onEntered); });
    connect(remove, &QPushButton::clicked, this, [this, id = field.id] { this->remove(id); });
    m_column->addWidget(line);
    line->show();
    m_rows.push_back({field.id, field.jsonPath, line, label, remove});
}

void DataPointRows::remove(const QUuid &id) {
    const auto place =
        std::find_if(m_rows.begin(), m_rows.end(), [&id](const Row &row) { return row.id == id; });
    if (place == m_rows.end()) {
        return;
    }
    QWidget *const line = place->line;
    const auto next = m_rows.erase(place);
    if (next != m_rows.end()) {
        next->label->setFocus(Qt::TabFocusReason);
    } else if (!m_rows.empty()) {
        m_rows.back().label->setFocus(Qt::TabFocusReason);
    } else {
        tell(onEmptied);
    }
    line->hide();
    line->deleteLater();
    setVisible(!m_rows.empty());
    tell(onEdited);
}

} // namespace zeph::ui
