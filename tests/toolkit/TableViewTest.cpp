// What a table repaints when many cells change, and the grid it draws with its cells.
#include "CBaseNormalTable.h"
#include "CTableModel.h"
#include "CTableView.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QEvent>
#include <QHeaderView>
#include <QImage>
#include <QPaintEvent>
#include <QStyle>
#include <QStyleOptionViewItem>

#include <memory>

namespace {

using WK::CBaseNormalTable;

// Adds up the region of the paint events a widget receives.
class PaintWatch : public QObject
{
public:
    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() == QEvent::Paint)
            painted += static_cast<QPaintEvent *>(event)->region();
        return false;
    }
    QRegion painted;
};

class TableViewTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        table = std::make_unique<CBaseNormalTable>(QStringLiteral("t"), CBaseNormalTable::ST_MULTI_ROW, nullptr);
        table->setColumnCount(5);
        table->beginUpdate();
        for (int row = 0; row < 500; ++row) {
            const int id = table->addRowBegin();
            for (int column = 0; column < 5; ++column)
                table->setItemDouble(id, column, row * 10.0 + column, 2);
            table->addRowEnd(false);
        }
        table->endUpdate();
        table->resize(600, 400);
        table->show();
        QApplication::processEvents();
        view = static_cast<WK::CTableView *>(table->view());
        view->viewport()->installEventFilter(&watch);
    }

    QRect columnBand(int column) const
    {
        return QRect(view->columnViewportPosition(column), 0, view->columnWidth(column) + 1,
                     view->viewport()->height());
    }

    std::unique_ptr<CBaseNormalTable> table;
    WK::CTableView *view = nullptr;
    PaintWatch watch;
};

TEST_F(TableViewTest, AColumnThatChangesInEveryRowRepaintsOnlyItsBand)
{
    table->beginUpdate();
    for (int row = 0; row < 500; ++row)
        table->setItemDouble(row, 3, row * 3.5, 2);
    table->endUpdate();
    watch.painted = QRegion();
    QApplication::processEvents();

    ASSERT_FALSE(watch.painted.isEmpty()) << "the changed column was not repainted";
    const QRect bounds = watch.painted.boundingRect();
    EXPECT_TRUE(columnBand(3).contains(bounds)) << "repainted beyond the changed column";
    EXPECT_FALSE(bounds.intersects(columnBand(1)));
}

TEST_F(TableViewTest, AMovedColumnRepaintsWhereItStandsAndRowsOutOfViewPaintNothing)
{
    view->horizontalHeader()->moveSection(4, 0);
    QApplication::processEvents();
    const QRect moved = view->changedRect(table->model()->index(0, 4), table->model()->index(499, 4));
    EXPECT_EQ(moved.left(), 0) << "column 4 now stands first";
    EXPECT_EQ(moved.height(), view->viewport()->height());

    const int lastRow = table->rowCount() - 1;
    EXPECT_TRUE(view->changedRect(table->model()->index(lastRow - 1, 0), table->model()->index(lastRow, 2)).isEmpty())
        << "the last rows are far below the viewport";
}

TEST_F(TableViewTest, GridLinesFrameEveryCellInTheViewsGridColour)
{
    QStyleOptionViewItem option;
    option.initFrom(view);
    const QColor grid = QColor::fromRgba(static_cast<QRgb>(view->style()->styleHint(QStyle::SH_Table_GridLineColor, &option, view)));
    const QImage image = view->viewport()->grab().toImage();
    const QRect cell = view->visualRect(table->model()->index(2, 1));
    EXPECT_EQ(image.pixelColor(cell.right(), cell.center().y()).rgb(), grid.rgb()) << "right edge";
    EXPECT_EQ(image.pixelColor(cell.center().x(), cell.bottom()).rgb(), grid.rgb()) << "bottom edge";

    table->setFlag(table->flag() & ~CBaseNormalTable::TF_GRID_LINES);
    const QImage plain = view->viewport()->grab().toImage();
    EXPECT_NE(plain.pixelColor(cell.center().x(), cell.bottom()).rgb(), grid.rgb()) << "no grid without the flag";
}

} // namespace
