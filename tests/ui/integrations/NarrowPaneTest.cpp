// SPDX-License-Identifier: MIT
#include "ui/integrations/IntegrationCard.h"
#include "ui/integrations/IntegrationsFixture.h"

#include <QAbstractButton>
#include <QScrollBar>

#include <set>

using namespace Qt::StringLiterals;

namespace zeph::ui {

namespace {

/// The pane in windows of other widths, and with larger text.
class NarrowPaneTest : public IntegrationsFixture {
protected:
    ~NarrowPaneTest() override { QApplication::setFont(m_font); }

    void resize(int width) {
        window.resize(width, 900);
        turn();
        turn();
    }

    static void enlargeText(double factor) {
        QFont large = QApplication::font();
        large.setPointSizeF(large.pointSizeF() * factor);
        QApplication::setFont(large);
    }

    std::vector<QWidget *> cards() {
        std::vector<QWidget *> shown;
        for (QWidget *widget : window.findChildren<QWidget *>()) {
            if (dynamic_cast<IntegrationCard *>(widget) != nullptr && widget->isVisible()) {
                shown.push_back(widget);
            }
        }
        return shown;
    }

    QRect placeOf(const QWidget &widget) const {
        return {widget.mapTo(&window, QPoint()), widget.size()};
    }

    std::size_t columns() {
        std::set<int> starts;
        for (const QWidget *card : cards()) {
            starts.insert(placeOf(*card).left());
        }
        return starts.size();
    }

    /// Each card lies within the window and on no other.
    void expectNoneOverlaps() {
        const auto all = cards();
        for (std::size_t one = 0; one < all.size(); ++one) {
            const QRect place = placeOf(*all[one]);
            EXPECT_GE(place.left(), 0);
            EXPECT_LE(place.right(), window.width());
            for (std::size_t other = one + 1; other < all.size(); ++other) {
                EXPECT_FALSE(place.intersects(placeOf(*all[other])));
            }
        }
    }

    const QFont m_font = QApplication::font();
};

TEST_F(NarrowPaneTest, tilesStandBesideEachOtherInAWindowAsDesigned) {
    open();
    resize(672);
    EXPECT_EQ(columns(), 2U);
    expectNoneOverlaps();
}

TEST_F(NarrowPaneTest, tilesFallToOneColumnInTheNarrowestWindow) {
    open();
    resize(672);
    const std::size_t count = cards().size();
    resize(720 - 208); // beside the sidebar
    EXPECT_EQ(columns(), 1U);
    EXPECT_EQ(cards().size(), count);
    expectNoneOverlaps();
    std::set<int> widths;
    for (const QWidget *card : cards()) {
        widths.insert(card->width());
    }
    EXPECT_EQ(widths.size(), 1U) << "all as wide as the column";
    resize(672);
    EXPECT_EQ(columns(), 2U);
    EXPECT_EQ(cards().size(), count);
    expectNoneOverlaps();
}

TEST_F(NarrowPaneTest, tilesFallToOneColumnWithLargeText) {
    enlargeText(1.4);
    open();
    resize(static_cast<int>(672 * 1.4));
    EXPECT_EQ(columns(), 1U);
    expectNoneOverlaps();
}

TEST_F(NarrowPaneTest, theStopsGoOnFromTopToBottom) {
    open();
    resize(512);
    QWidget *const first = button(u"Stripe"_s);
    ASSERT_NE(first, nullptr);
    first->setFocus(Qt::TabFocusReason);
    int above = -1;
    for (std::size_t stop = 0; stop < cards().size(); ++stop) {
        const QWidget *const focused = QApplication::focusWidget();
        const int top = placeOf(*focused).top() + scroll->verticalScrollBar()->value();
        EXPECT_GT(top, above);
        above = top;
        key(Qt::Key_Tab);
    }
}

} // namespace

} // namespace zeph::ui
