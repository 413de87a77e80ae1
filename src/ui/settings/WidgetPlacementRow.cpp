// SPDX-License-Identifier: MIT
#include "ui/settings/WidgetPlacementRow.h"

#include "services/accounts/IntegrationsStore.h"
#include "services/forms/ConnectionHint.h"
#include "settings/PreferencesStore.h"
#include "ui/controls/Look.h"
#include "ui/controls/SizeChoice.h"
#include "ui/controls/StatusLine.h"
#include "ui/controls/Switch.h"
#include "widgets/HiddenReason.h"

#include <QHBoxLayout>

namespace zeph::ui {

using namespace Qt::StringLiterals;

namespace {

constexpr double sizeToSwitch = 14; // the switch's target begins 2 before what is painted

} // namespace

/// Both of a row's controls.
struct WidgetPlacementRow::Controls : QWidget {
    Controls() : size(new SizeChoice), isOn(new Switch) {
        auto *line = new QHBoxLayout(this);
        line->setContentsMargins(0, 0, 0, 0);
        line->setSpacing(scaled(sizeToSwitch));
        line->addWidget(size);
        line->addWidget(isOn);
    }

    SizeChoice *size;
    Switch *isOn;
};

WidgetPlacementRow::WidgetPlacementRow(WidgetKind kind, const SettingsContext &context,
                                       QWidget *parent)
    : WidgetPlacementRow(kind, context, new Controls, parent) {}

WidgetPlacementRow::WidgetPlacementRow(WidgetKind kind, SettingsContext context, Controls *controls,
                                       QWidget *parent)
    : SettingRow({icon(kind), zeph::title(kind)}, controls, parent),
      m_kind(kind),
      m_context(std::move(context)),
      m_isOn(controls->isOn),
      m_size(controls->size),
      m_hint(new StatusLine) {
    addBelow(m_hint);
    m_size->setAccessibleName(u"Size of %1"_s.arg(title()));
    connect(m_isOn, &QCheckBox::clicked, this, [this](bool isOn) {
        m_context.preferences.set(isOn ? WidgetPlacement::always : WidgetPlacement::off, m_kind);
    });
    m_size->onChosen = [this](int index) {
        m_context.preferences.setSize(static_cast<WidgetSizeOption>(index), m_kind);
    };
    refresh();
}

void WidgetPlacementRow::refresh() {
    const bool isOn = m_context.preferences.isOn(m_kind);
    m_isOn->setChecked(isOn);
    m_size->setVisible(isOn);
    m_size->choose(static_cast<int>(m_context.preferences.size(m_kind)));
    m_hint->show(StatusLine::Kind::hint, isOn ? hint() : QString());
}

/// Why a widget that is on can't be seen; empty for one that can.
QString WidgetPlacementRow::hint() const {
    const IntegrationsStore &store = m_context.integrations;
    if (needsConnectionHint(m_kind, m_context.preferences, store)) {
        return connectionHint();
    }
    const auto reason = hiddenReason(m_kind, m_context.state, m_context.preferences,
                                     store.quoteEnabled(), m_context.framing.calendar);
    if (!reason) {
        return {};
    }
    // What a service answered may end like a sentence already.
    const QString end = reason->endsWith(u'.') ? QString() : u"."_s;
    return u"Why isn't this shown? "_s + *reason + end;
}

SearchEntry WidgetPlacementRow::searchEntry() const {
    return {title(), m_hint->text(), m_isOn};
}

} // namespace zeph::ui
