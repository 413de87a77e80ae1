// SPDX-License-Identifier: MIT
#include "ui/integrations/RowList.h"

#include "support/WindowFixture.h"

#include <QScrollArea>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace zeph::ui {

namespace {

/// Rows that know how many they are, and which was measured that is none of them.
class CountedRows : public RowList {
public:
    CountedRows() : RowList(u"Rows"_s) {}

    void setCount(int rows) {
        m_count = rows;
        QStringList sentences;
        for (int row = 0; row < rows; ++row) {
            sentences << QString::number(row);
        }
        setSentences(sentences);
    }

    int rowHeight(int row, int) const override {
        farthest = std::max(farthest, row - m_count);
        return 40;
    }
    void paintRow(QPainter &, const QRect &, int) const override {}

    mutable int farthest = -1; ///< of the rows that were measured, beyond the last

private:
    int m_count = 0;
};

/// The list in a pane that scrolls, where the current row is brought into view.
class RowListTest : public WindowFixture {
protected:
    RowListTest() {
        auto &area = add(new QScrollArea);
        auto *pane = new QWidget;
        auto *column = new QVBoxLayout(pane);
        column->setContentsMargins(0, 0, 0, 0);
        column->addWidget(&list);
        column->addStretch(1);
        area.setWidget(pane);
        area.setWidgetResizable(true);
    }

    static void settle() {
        for (int level = 0; level < 6; ++level) { // a layout asks the one around it in a later pass
            QApplication::processEvents();
        }
    }

    /// Has the rows measured in the middle of every change, as a screen reader or a layout may.
    void measureWhileTheyChange() {
        const auto measure = [this] {
            list.heightForWidth(list.width());
            list.sizeHintForRow(list.count() - 1);
        };
        QObject::connect(list.model(), &QAbstractItemModel::rowsInserted, &list, measure);
        QObject::connect(list.model(), &QAbstractItemModel::rowsRemoved, &list, measure);
    }

    CountedRows &list = *new CountedRows;
};

TEST_F(RowListTest, isAsHighAsItsRows) {
    open();
    list.setCount(3);
    settle();
    EXPECT_EQ(list.height(), 3 * 40);
    list.setCount(5);
    settle();
    EXPECT_EQ(list.height(), 5 * 40);
    EXPECT_EQ(list.visualItemRect(list.item(4)).top(), 4 * 40);
}

TEST_F(RowListTest, measuresNoRowThatIsGone) {
    list.setCount(5);
    open();
    list.setFocus(Qt::TabFocusReason);
    list.setCurrentRow(4); // whose end moves the focus to another
    settle();
    measureWhileTheyChange();
    list.setCount(2);
    settle();
    EXPECT_EQ(list.farthest, -1);
    EXPECT_EQ(list.height(), 2 * 40);
}

TEST_F(RowListTest, measuresRowsThatComeWhileItStands) {
    list.setCount(1);
    open();
    measureWhileTheyChange();
    list.setCount(4);
    list.setCurrentRow(3);
    settle();
    EXPECT_EQ(list.farthest, -1);
    EXPECT_EQ(list.height(), 4 * 40);
}

} // namespace

} // namespace zeph::ui
