// SPDX-License-Identifier: MIT
#include "ui/controls/TipStyle.h"

#include "support/WindowFixture.h"

#include <QStyleFactory>
#include <QToolTip>

#include <algorithm>

namespace zeph::ui {

using namespace Qt::StringLiterals;

namespace {

class TipStyleTest : public WindowFixture {
protected:
    TipStyleTest() { TipStyle::install(); }
    ~TipStyleTest() override {
        QToolTip::hideText();
        delete tip();
        QApplication::setStyle(QStyleFactory::create(u"Fusion"_s));
    }

    /// The one that is shown.
    static QWidget *tip() {
        const QWidgetList all = QApplication::topLevelWidgets();
        const auto found = std::find_if(all.begin(), all.end(), [](const QWidget *one) {
            return one->inherits("QTipLabel") && one->isVisible();
        });
        return found == all.end() ? nullptr : *found;
    }
};

TEST_F(TipStyleTest, aTipHasRoundCorners) {
    open();
    QToolTip::showText(window.mapToGlobal(QPoint(5, 5)), u"Display size: Small, Medium or Large"_s,
                       &window);
    ASSERT_NE(tip(), nullptr);
    const QRegion shape = tip()->mask();
    const QRect whole = tip()->rect();
    ASSERT_FALSE(shape.isEmpty());
    for (const QPoint &corner :
         {whole.topLeft(), whole.topRight(), whole.bottomLeft(), whole.bottomRight()}) {
        EXPECT_FALSE(shape.contains(corner)) << corner.x() << ' ' << corner.y();
    }
    EXPECT_TRUE(shape.contains(QPoint(9, 0)));
    EXPECT_TRUE(shape.contains(QPoint(0, 9)));
    EXPECT_FALSE(shape.contains(QPoint(2, 1))) << "eight pixels of radius";
    EXPECT_TRUE(shape.contains(QPoint(3, 3)));
    EXPECT_TRUE(shape.contains(whole.center()));
}

TEST_F(TipStyleTest, aTipLeavesRoomForItsCorners) {
    open();
    QToolTip::showText(window.mapToGlobal(QPoint(5, 5)), u"Remove"_s, &window);
    ASSERT_NE(tip(), nullptr);
    EXPECT_GE(tip()->height(), tip()->fontMetrics().height() + 2 * 8);
    const QImage picture = tip()->grab().toImage();
    EXPECT_EQ(picture.pixelColor(picture.width() / 2, 3), tip()->palette().toolTipBase().color());
}

TEST_F(TipStyleTest, isInstalledOnce) {
    const QStyle *const installed = QApplication::style();
    TipStyle::install();
    EXPECT_EQ(QApplication::style(), installed);
}

} // namespace

} // namespace zeph::ui
