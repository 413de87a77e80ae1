// SPDX-License-Identifier: MIT
#include "ui/integrations/IntegrationsFixture.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QLabel>
#include <QListWidget>
#include <QVBoxLayout>

#include <algorithm>

namespace zeph::ui {

namespace {

bool isCalled(const QWidget &widget, const QString &name) {
    const auto *button = dynamic_cast<const QAbstractButton *>(&widget);
    return widget.accessibleName() == name || (button != nullptr && button->text() == name);
}

template <typename Widget>
Widget *findVisible(const QWidget &window, const QString &name) {
    for (Widget *widget : window.findChildren<Widget *>()) {
        if (widget->isVisibleTo(&window) && isCalled(*widget, name)) {
            return widget;
        }
    }
    return nullptr;
}

} // namespace

IntegrationsFixture::~IntegrationsFixture() {
    window.hide();
    delete scroll;
}

void IntegrationsFixture::open() {
    launch();
    IntegrationServices asked = services();
    asked.listEndpoint = [this](const CustomAPIConfig &config) {
        note(QStringLiteral("list ") + config.urlString);
        return listing;
    };
    check =
        std::make_unique<ServiceCheck>(background, FetchTools{std::move(asked), *store, keychain});
    pane = new IntegrationsPane(
        {preferences, *store, state, loop, {preferences, calendar, *wording}, *check});
    scroll = new PaneScroll(pane, &window);
    auto *column = new QVBoxLayout(&window);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(scroll);
    window.resize(672, 580);
    window.show();
    window.activateWindow();
    QApplication::setActiveWindow(&window);
    settle();
}

void IntegrationsFixture::settle() {
    do {
        executor.runAll();
        turn();
    } while (executor.waiting() > 0);
}

void IntegrationsFixture::turn() {
    loop.drain();
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    for (int level = 0; level < 12; ++level) { // a layout asks the one around it in a later pass
        QApplication::processEvents();
    }
}

IntegrationConnection IntegrationsFixture::addAccount(const QString &provider) {
    pane->select({.page = IntegrationsSelection::Page::accounts, .provider = provider});
    turn();
    press(QStringLiteral("Add another account"));
    settle();
    return store->connections(provider).back();
}

void IntegrationsFixture::showAccount(const IntegrationConnection &account) {
    pane->select({.page = IntegrationsSelection::Page::account,
                  .provider = account.provider,
                  .id = account.id});
    turn();
}

void IntegrationsFixture::showEndpoint(const QUuid &id) {
    pane->select({.page = IntegrationsSelection::Page::endpoint, .id = id});
    turn();
}

QAbstractButton *IntegrationsFixture::button(const QString &name) {
    return findVisible<QAbstractButton>(window, name);
}

QLineEdit *IntegrationsFixture::field(const QString &name) {
    return findVisible<QLineEdit>(window, name);
}

QCheckBox *IntegrationsFixture::toggle(const QString &name) {
    return findVisible<QCheckBox>(window, name);
}

QListWidget *IntegrationsFixture::list() {
    const auto lists = window.findChildren<QListWidget *>();
    const auto place = std::find_if(lists.begin(), lists.end(), [this](const QListWidget *one) {
        return one->isVisibleTo(&window);
    });
    return place == lists.end() ? nullptr : *place;
}

bool IntegrationsFixture::shows(const QString &text) {
    return texts().contains(text);
}

QStringList IntegrationsFixture::texts() {
    QStringList shown;
    for (const QLabel *label : window.findChildren<QLabel *>()) {
        if (label->isVisibleTo(&window) && !label->text().isEmpty()) {
            shown << label->text();
        }
    }
    return shown;
}

void IntegrationsFixture::press(const QString &name) {
    QAbstractButton *const pressed = button(name);
    ASSERT_NE(pressed, nullptr) << qPrintable(name);
    QTest::mouseClick(pressed, Qt::LeftButton);
    turn();
}

void IntegrationsFixture::type(const QString &name, const QString &text) {
    QLineEdit *const typed = field(name);
    ASSERT_NE(typed, nullptr) << qPrintable(name);
    typed->setFocus(Qt::TabFocusReason);
    typed->selectAll();
    QTest::keyClick(typed, Qt::Key_Delete);
    QTest::keyClicks(typed, text);
    turn();
}

void IntegrationsFixture::key(Qt::Key which, Qt::KeyboardModifiers modifiers) {
    ASSERT_NE(QApplication::focusWidget(), nullptr);
    QTest::keyClick(QApplication::focusWidget(), which, modifiers);
    turn();
}

QStringList IntegrationsFixture::walk() {
    QStringList names;
    const QWidget *const first = QApplication::focusWidget();
    for (const QWidget *stop = first; stop != nullptr && (stop != first || names.isEmpty());
         stop = QApplication::focusWidget()) {
        const auto *pressed = dynamic_cast<const QAbstractButton *>(stop);
        names << (stop->accessibleName().isEmpty() && pressed != nullptr ? pressed->text()
                                                                         : stop->accessibleName());
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        if (names.size() > 200) {
            ADD_FAILURE() << "no way round";
            break;
        }
    }
    return names;
}

IntegrationConnection IntegrationsFixture::stored(const QUuid &id) const {
    const auto &all = store->connections();
    const auto place =
        std::find_if(all.begin(), all.end(), [&id](const auto &one) { return one.id == id; });
    EXPECT_NE(place, all.end());
    return place == all.end() ? IntegrationConnection() : *place;
}

} // namespace zeph::ui
