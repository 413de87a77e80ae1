// SPDX-License-Identifier: MIT
#pragma once

#include "ui/integrations/IntegrationsContext.h"
#include "ui/integrations/IntegrationsSelection.h"

#include <QWidget>

#include <functional>

class QVBoxLayout;

namespace zeph::ui {

class PaneHeader;

/// How a page reaches the pane that it is on.
struct PageActions {
    std::function<void(const IntegrationsSelection &)> select;
    /// Goes back to everything, unless there is something typed that the user wants to keep.
    std::function<void()> leave;
    /// An account or an endpoint was removed for now: offers to bring it back.
    std::function<void(const QUuid &id, const QString &title)> offerUndo;
    /// Tells that something failed whose page may be gone by now.
    std::function<void(const QString &failure)> tellFailure;
};

/// One page of the integrations pane: a column with a header.
class IntegrationsPage : public QWidget {
public:
    IntegrationsPage(const IntegrationsContext &context, PageActions actions,
                     QWidget *parent = nullptr);

    /// Puts `notices` right below the header.
    void hold(QWidget *notices);

    /// What takes the focus when the page comes into view.
    virtual QWidget *firstStop() = 0;

    /// Whether something is typed that would be lost with the page.
    virtual bool hasUnsaved() const { return false; }

protected:
    /// A header with the way back to everything.
    PaneHeader *addHeader(const QString &title, const QString &help, const QString &symbol);
    /// Below the others, `gap` logical pixels apart.
    void add(QWidget *widget, double gap);

    const IntegrationsContext &context() const { return m_context; }
    const PageActions &pane() const { return m_actions; }

    static constexpr double headerGap = 26;
    static constexpr double cardGap = 14;
    static constexpr double barGap = 22;

private:
    const IntegrationsContext &m_context;
    PageActions m_actions;
    QVBoxLayout *m_column;
};

} // namespace zeph::ui
