// SPDX-License-Identifier: MIT
#include "ui/settings/SettingsWindow.h"

#include "ports/RunLoop.h"
#include "ports/Screens.h"
#include "ui/controls/PaneScroll.h"
#include "ui/controls/Sky.h"
#include "ui/settings/CrossFade.h"
#include "ui/settings/Pane.h"
#include "ui/settings/SettingsSide.h"
#include "ui/settings/ShortcutsCard.h"
#include "ui/settings/WindowPlace.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QShortcut>
#include <QStackedWidget>
#include <QWindow>

#include <algorithm>
#include <utility>

namespace zeph::ui {

using namespace Qt::StringLiterals;

namespace {

constexpr QSize designedSize(880, 580);
constexpr QSize leastSize(720, 440);

QSize scaled(const QSize &size) {
    return {ui::scaled(size.width()), ui::scaled(size.height())};
}

std::vector<SideBar::Tab> sideTabs(const std::vector<SettingsWindow::Tab> &tabs) {
    std::vector<SideBar::Tab> result;
    result.reserve(tabs.size());
    for (const SettingsWindow::Tab &tab : tabs) {
        result.push_back({tab.symbol, tab.title});
    }
    return result;
}

/// `widget` itself or the first in it that takes the focus.
QWidget *focusableIn(QWidget *widget) {
    const auto takesFocus = [](const QWidget *one) {
        return (one->focusPolicy() & Qt::TabFocus) != 0 && one->isEnabled();
    };
    if (takesFocus(widget)) {
        return widget;
    }
    const QList<QWidget *> children = widget->findChildren<QWidget *>();
    const auto first = std::find_if(children.begin(), children.end(), takesFocus);
    return first == children.end() ? nullptr : *first;
}

} // namespace

SettingsWindow::SettingsWindow(std::vector<Tab> tabs, DesktopAppearance &appearance,
                               RunLoop &runLoop)
    : m_runLoop(runLoop),
      m_look(*this, appearance, runLoop),
      m_tabs(std::move(tabs)),
      m_shown(m_tabs.size()),
      m_sky(new Sky(this)),
      m_side(new SettingsSide(sideTabs(m_tabs), m_sky)),
      m_stack(new QStackedWidget(m_sky)),
      m_fade(new CrossFade(m_sky)),
      m_shortcuts(new ShortcutsCard(m_sky)) {
    setWindowTitle(u"Tavi"_s);
    setAttribute(Qt::WA_QuitOnClose, false); // the wallpaper goes on
    setMinimumSize(scaled(leastSize));
    resize(scaled(designedSize));

    auto *whole = new QHBoxLayout(this);
    whole->setContentsMargins(0, 0, 0, 0);
    whole->addWidget(m_sky);
    auto *parts = new QHBoxLayout(m_sky);
    parts->setContentsMargins(0, 0, 0, 0);
    parts->setSpacing(0);
    parts->addWidget(m_side);
    parts->addWidget(m_stack, 1);

    m_side->onTab = [this](int index) {
        if (index != m_current) {
            showTab(index);
        }
    };
    m_side->onQuery = [this](const QString &wanted) { search(wanted); };
    m_side->onFound = [this](const Findable &found) { jumpTo(found); };
    addShortcuts();
}

SettingsWindow::~SettingsWindow() = default;

void SettingsWindow::addShortcuts() {
    const auto on = [this](const QKeySequence &keys, std::function<void()> action) {
        auto *shortcut = new QShortcut(keys, this);
        connect(shortcut, &QShortcut::activated, this, std::move(action));
    };
    const int digits = std::min(9, static_cast<int>(m_tabs.size()));
    for (int index = 0; index < digits; ++index) {
        on(QKeySequence(Qt::CTRL | static_cast<Qt::Key>(Qt::Key_1 + index)),
           [this, index] { showTab(index); });
    }
    on(QKeySequence(Qt::CTRL | Qt::Key_W), [this] { close(); });
    on(QKeySequence(Qt::CTRL | Qt::Key_F), [this] { m_side->focusSearch(); });
    on(QKeySequence(Qt::Key_F1), [this] { showShortcuts(); });
    on(QKeySequence(Qt::ALT | Qt::Key_Left), [this] { goBack(); });
}

void SettingsWindow::keyPressEvent(QKeyEvent *event) {
    if (event->key() == Qt::Key_Escape) {
        goBack();
        return;
    }
    QWidget::keyPressEvent(event);
}

void SettingsWindow::goBack() {
    if (m_shortcuts->isVisible()) {
        m_shortcuts->dismiss();
    } else if (m_side->isSearching()) {
        m_side->endSearch();
    } else if (Pane *pane = shownAt(m_current).pane) {
        pane->goBack();
    }
}

void SettingsWindow::showShortcuts() {
    m_shortcuts->present();
}

SettingsWindow::Shown &SettingsWindow::shownAt(int index) {
    Shown &shown = m_shown[static_cast<std::size_t>(index)];
    if (shown.pane == nullptr) {
        const Tab &tab = m_tabs[static_cast<std::size_t>(index)];
        shown.pane = tab.make().release();
        shown.scroll = new PaneScroll(shown.pane, m_stack);
        shown.scroll->setAccessibleName(tab.title);
        m_stack->addWidget(shown.scroll);
    }
    return shown;
}

void SettingsWindow::showTab(int index) {
    if (index < 0 || index >= static_cast<int>(m_tabs.size())) {
        return;
    }
    const Shown &shown = shownAt(index);
    const bool isOther = m_stack->currentWidget() != shown.scroll;
    if (isOther) {
        m_fade->start(m_stack->geometry());
    }
    m_current = index;
    m_side->setCurrent(index);
    m_stack->setCurrentWidget(shown.scroll);
    if (isOther && isVisible()) {
        shown.pane->willShow();
    }
}

void SettingsWindow::hugRightEdge(const Screen &screen) {
    const QRect visible = screen.visibleFrame.toRect();
    m_edge.reset();
    if (isInFrame()) {
        placeInFrame(visible);
        return;
    }
    const QSize edges = frameGeometry().size() - size();
    setMinimumSize(scaled(leastSize).boundedTo(visible.size() - edges));
    resize(size().boundedTo(visible.size() - edges));
    move(placeAtRightEdge(visible, size() + edges));
    m_edge = visible;
}

/// Whether the window is seen in the size and the frame that it will have.
bool SettingsWindow::isInFrame() const {
    constexpr Qt::WindowStates others =
        Qt::WindowMinimized | Qt::WindowMaximized | Qt::WindowFullScreen;
    // The toolkit learns late from the display that a window which was closed is not seen any more.
    return isVisible() && windowHandle() != nullptr && windowHandle()->isExposed() &&
           (windowState() & others) == 0;
}

/// By the frame that is around the window now. A manager makes it when the window is first seen,
/// and each time anew.
void SettingsWindow::placeInFrame(const QRect &visible) {
    const QMargins frame = windowHandle()->frameMargins();
    const QSize room = visible.marginsRemoved(frame).size();
    setMinimumSize(scaled(leastSize).boundedTo(room));
    const QSize wanted = size().boundedTo(room);
    const QRect whole = QRect(QPoint(), wanted).marginsAdded(frame);
    setGeometry({placeAtRightEdge(visible, whole.size()) - whole.topLeft(), wanted});
}

bool SettingsWindow::event(QEvent *event) {
    if (event->type() == QEvent::ApplicationPaletteChange) {
        m_look.refreshSoon();
    }
    return QWidget::event(event);
}

bool SettingsWindow::eventFilter(QObject *watched, QEvent *event) {
    if (event->type() == QEvent::Expose && watched == windowHandle() &&
        windowHandle()->isExposed() && m_edge) {
        QMetaObject::invokeMethod(
            this,
            [this] {
                if (const auto visible = std::exchange(m_edge, std::nullopt)) {
                    placeInFrame(*visible);
                }
            },
            Qt::QueuedConnection);
    }
    return QWidget::eventFilter(watched, event);
}

void SettingsWindow::showEvent(QShowEvent *event) {
    QWidget::showEvent(event);
    windowHandle()->installEventFilter(this); // the same one again and again, mostly
    if (!event->spontaneous() && !m_tabs.empty()) {
        showTab(m_current); // which tells the pane only while the window is seen
        shownAt(m_current).pane->willShow();
        if (focusWidget() == nullptr) {
            m_side->focusTabs();
        }
    }
}

void SettingsWindow::closeEvent(QCloseEvent *event) {
    QWidget::closeEvent(event);
    m_shortcuts->dismiss();
    m_runLoop.post(m_owner.whileAlive([this] { releaseMemory(); }));
    if (onClosed) {
        onClosed();
    }
}

void SettingsWindow::releaseMemory() {
    if (isVisible()) {
        return;
    }
    m_sky->forgetPicture();
    m_look.look().forgetSymbols();
}

void SettingsWindow::search(const QString &wanted) {
    if (wanted.trimmed().isEmpty()) {
        m_side->setResults({});
        return;
    }
    makeNextPane();
    m_side->setResults(searchResults(findables(), wanted));
}

/// One a turn, so that typing stays quick.
void SettingsWindow::makeNextPane() {
    const auto missing = std::find_if(m_shown.begin(), m_shown.end(),
                                      [](const Shown &shown) { return shown.pane == nullptr; });
    if (missing == m_shown.end() || std::exchange(m_makesPanes, true)) {
        return;
    }
    const int index = static_cast<int>(missing - m_shown.begin());
    m_runLoop.post(m_owner.whileAlive([this, index] {
        m_makesPanes = false;
        shownAt(index);
        search(m_side->wanted());
    }));
}

std::vector<Findable> SettingsWindow::findables() const {
    std::vector<Findable> all;
    for (std::size_t index = 0; index < m_tabs.size(); ++index) {
        const int tab = static_cast<int>(index);
        all.push_back({m_tabs[index].title, {}, tab});
        if (m_shown[index].pane != nullptr) {
            for (const SearchEntry &entry : m_shown[index].pane->searchEntries()) {
                all.push_back({entry.title, entry.detail, tab, entry.target, entry.show});
            }
        }
    }
    return all;
}

void SettingsWindow::jumpTo(const Findable &found) {
    const QPointer<QWidget> target = found.target; // the search's end drops the results
    const auto showTarget = found.show;
    const int tab = found.tab;
    m_side->endSearch();
    showTab(tab);
    if (target != nullptr && showTarget) {
        showTarget();
    }
    if (target == nullptr || !target->isVisibleTo(this)) {
        return; // a form with unsaved changes stays, and asks
    }
    shownAt(tab).scroll->reveal(target);
    if (QWidget *control = focusableIn(target)) {
        control->setFocus(Qt::ShortcutFocusReason);
    }
}

} // namespace zeph::ui
