// SPDX-License-Identifier: MIT
#pragma once

#include "settings/WidgetKind.h"
#include "ui/settings/SettingsContext.h"

#include <QWidget>

namespace zeph::ui {

class Card;
class PillButton;
class ReorderList;
class TextLabel;

/// Puts the widgets of the wallpaper into an order of the user's own, beside a picture of what
/// comes of it.
class WidgetLayoutEditor : public QWidget {
public:
    explicit WidgetLayoutEditor(const SettingsContext &context, QWidget *parent = nullptr);

    ReorderList &list() { return *m_list; }

private:
    QWidget *makeList();
    QLayout *makeFooter();
    void refresh();
    std::vector<WidgetKind> cutOff() const;

    SettingsContext m_context;
    Card *m_card;
    ReorderList *m_list;
    TextLabel *m_empty; ///< in place of the list
    QWidget *m_footer;
    TextLabel *m_count;
    PillButton *m_reset;
};

} // namespace zeph::ui
