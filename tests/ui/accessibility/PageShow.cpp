// SPDX-License-Identifier: MIT
#include "ui/accessibility/PageShow.h"

#include <QAction>

namespace zeph {

using namespace Qt::StringLiterals;

PageShow::PageShow(const ui::SettingsContext &parts, const Background &background)
    : m_pages(parts, background) {}

std::unique_ptr<QWidget> PageShow::open(bool ofAccounts) {
    std::unique_ptr<QWidget> window = m_pages.open();
    m_window = window.get();
    ofAccounts ? m_pages.addForms() : m_pages.addPanes();
    auto *onward = new QAction(m_window);
    onward->setShortcut(Qt::Key_F12);
    QObject::connect(onward, &QAction::triggered, m_window, [this] { next(); });
    m_window->addAction(onward);
    next();
    m_window->show();
    return window;
}

void PageShow::next() {
    const auto &pages = m_pages.pages();
    if (m_shown < pages.size()) {
        pages[m_shown].show();
        m_window->setWindowTitle(pages[m_shown++].name);
    } else {
        m_window->setWindowTitle(u"end"_s);
    }
}

} // namespace zeph
