// SPDX-License-Identifier: MIT
#include "ui/settings/DrawingWayCard.h"

#include "ports/WindowServer.h"
#include "ui/controls/SettingRow.h"
#include "ui/settings/LiveRefresh.h"

namespace zeph::ui {

using namespace Qt::StringLiterals;

DrawingWayCard::DrawingWayCard(const SettingsContext &context, QWidget *parent)
    : Card(parent),
      m_server(context.windowServer),
      m_row(new SettingRow(
          {u"squares.below.rectangle"_s, u"How Tavi draws here"_s, m_server.drawingWay().reason},
          nullptr)) {
    addRow(m_row);
    auto *live = new LiveRefresh(*this, context.runLoop, [this] { refresh(); });
    live->follow(m_server.subscribeToDrawingWay(live->handler()));
}

std::vector<SearchEntry> DrawingWayCard::searchEntries() const {
    return {{m_row->title(), m_server.drawingWay().reason, m_row}};
}

void DrawingWayCard::refresh() {
    m_row->setDetail(m_server.drawingWay().reason);
}

} // namespace zeph::ui
