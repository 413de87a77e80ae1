// SPDX-License-Identifier: MIT
#include "adapters/tray/LinuxStatusBar.h"

#include "adapters/tray/NotifierItem.h"

#include <utility>

namespace zeph {

namespace {

/// An item that is wherever the desktop has a place for it.
class MovingItem : public StatusItem {
public:
    MovingItem(const QDBusConnection &bus, TrayFacts facts, TrayTools tools,
               LinuxStatusBar::MakeDocked makeDocked)
        : m_facts(std::move(facts)),
          m_tools(std::move(tools)),
          m_makeDocked(std::move(makeDocked)),
          m_notifier(bus, m_facts, m_tools, [this] { move(); }) {
        move();
    }

private:
    void move() {
        switch (m_notifier.host()) {
        case NotifierItem::Host::unknown:
            break;
        case NotifierItem::Host::absent:
            if (!m_docked) {
                m_docked = m_makeDocked(m_facts, m_tools);
            }
            break;
        case NotifierItem::Host::present:
            m_docked.reset();
            break;
        }
    }

    TrayFacts m_facts;
    TrayTools m_tools;
    LinuxStatusBar::MakeDocked m_makeDocked;
    std::unique_ptr<StatusItem> m_docked;
    NotifierItem m_notifier; // last, since it calls back
};

} // namespace

LinuxStatusBar::LinuxStatusBar(QDBusConnection sessionBus, TrayTools tools, MakeDocked makeDocked)
    : m_bus(std::move(sessionBus)),
      m_tools(std::move(tools)),
      m_makeDocked(std::move(makeDocked)) {}

std::unique_ptr<StatusItem> LinuxStatusBar::makeItem(const QString &symbol,
                                                     const QString &description,
                                                     std::vector<MenuItem> menu) {
    return std::make_unique<MovingItem>(m_bus, TrayFacts{symbol, description, std::move(menu)},
                                        m_tools, m_makeDocked);
}

} // namespace zeph
