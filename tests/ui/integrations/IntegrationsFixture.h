// SPDX-License-Identifier: MIT
#pragma once

#include "services/refresh/RefreshFixture.h"
#include "services/refresh/ServiceCheck.h"
#include "support/UtcCalendar.h"
#include "ui/controls/Look.h"
#include "ui/controls/PaneScroll.h"
#include "ui/controls/Sky.h"
#include "ui/integrations/IntegrationsPane.h"

#include <QApplication>
#include <QLineEdit>
#include <QTest>

class QAbstractButton;
class QCheckBox;
class QListWidget;

namespace zeph::ui {

/// The integrations pane in a window, worked by mouse and keyboard. What is told by its name is
/// told by what a person reads or a screen reader says, and has to be visible.
class IntegrationsFixture : public RefreshFixture {
protected:
    ~IntegrationsFixture() override;

    /// Opens the window on the accounts, secrets and settings made so far.
    void open();
    /// Lets everything happen that is under way.
    void settle();
    /// Lets the loop turn, while work away from it stands still.
    void turn();

    /// Goes to the form of a new account of that service, and returns the account.
    IntegrationConnection addAccount(const QString &provider);
    void showAccount(const IntegrationConnection &account);
    void showEndpoint(const QUuid &id = {});

    QAbstractButton *button(const QString &name);
    QLineEdit *field(const QString &name);
    QCheckBox *toggle(const QString &name);
    QListWidget *list();
    /// Whether that text stands on a label in the window.
    bool shows(const QString &text);
    QStringList texts();

    void press(const QString &name);
    /// Types into the field in place of what it holds.
    void type(const QString &name, const QString &text);
    void key(Qt::Key which, Qt::KeyboardModifiers modifiers = {});

    /// The names of the stops that Tab leads to, from the one with the focus on.
    QStringList walk();

    IntegrationConnection stored(const QUuid &id) const;

    UtcCalendar calendar;
    const Formatters *wording = &formatters; ///< of numbers
    EndpointListing listing;                 ///< what an endpoint answers with
    std::unique_ptr<ServiceCheck> check;
    Sky window;
    Look look{window, Appearance::dark};
    PaneScroll *scroll = nullptr;
    IntegrationsPane *pane = nullptr;
};

} // namespace zeph::ui
