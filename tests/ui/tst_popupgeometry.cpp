// SPDX-License-Identifier: MIT
#include "module/RecentDocumentBrowser.h"
#include "tests/support/Browser.h"
#include "tests/support/TestCase.h"
#include "ui/HighlightEffect.h"
#include "ui/RecentDocDialog.h"
#include "ui/RecentDocMainWindow.h"

#include <QCursor>
#include <QDragMoveEvent>
#include <QGridLayout>
#include <QLabel>
#include <QMimeData>
#include <QSpacerItem>

namespace {

//! Row and column of an item in a grid, with the number of rows and columns that it takes.
struct Cell
{
    int row = -1;
    int column = -1;
    int rowSpan = 0;
    int columnSpan = 0;
};

Cell cellOf(const QGridLayout &grid, QLayoutItem *item)
{
    Cell cell;
    const int index = grid.indexOf(item);
    if (index >= 0)
        grid.getItemPosition(index, &cell.row, &cell.column, &cell.rowSpan, &cell.columnSpan);
    return cell;
}

QWidget *widgetAt(const QGridLayout &grid, int row, int column)
{
    const QLayoutItem *item = grid.itemAtPosition(row, column);
    return item ? const_cast<QLayoutItem *>(item)->widget() : nullptr;
}

} // namespace

class TestPopupGeometry : public TestCase
{
    Q_OBJECT

private slots:
    void columnsFollowTheMainWindowsWidth_data();
    void columnsFollowTheMainWindowsWidth();
    void rowsFollowTheNumberOfDocuments_data();
    void rowsFollowTheNumberOfDocuments();
    void placeFollowsTheMainWindow_data();
    void placeFollowsTheMainWindow();
    void contentFits_data();
    void contentFits();
    void opensWithoutAMainWindow();
    void gridHasItsMeasures();
    void spacersStandBehindTheTiles();
    void tilesFillTheGridRowByRow_data();
    void tilesFillTheGridRowByRow();
    void documentsWithoutACacheEntryLeaveEmptyCells();
    void tilesBeyondTheLastCellStayOutOfTheGrid();
    void columnPositionIsTheHighlightedTilesColumn_data();
    void columnPositionIsTheHighlightedTilesColumn();
    void columnPositionGoesDownTheColumnsAndComparesPaths();
    void columnPositionOfTheFirstOfSeveralHighlighted();
    void withoutAHighlightThereIsNoColumnPosition();
};

void TestPopupGeometry::columnsFollowTheMainWindowsWidth_data()
{
    QTest::addColumn<int>("frameWidth");
    QTest::addColumn<int>("columns");
    QTest::addColumn<int>("popupWidth");
    QTest::newRow("no width at all") << 0 << 4 << 724;
    QTest::newRow("a very narrow window") << 100 << 4 << 724;
    QTest::newRow("the last narrow width") << 585 << 4 << 724;
    QTest::newRow("the first medium width") << 586 << 3 << 543;
    QTest::newRow("the last medium width") << 900 << 3 << 543;
    QTest::newRow("only two columns behind the medium widths") << 901 << 2 << 362;
    QTest::newRow("the last width of two columns") << 965 << 2 << 362;
    QTest::newRow("the first width of three columns again") << 966 << 3 << 543;
    QTest::newRow("the last width of three columns") << 1287 << 3 << 543;
    QTest::newRow("the first width of four columns") << 1288 << 4 << 724;
    QTest::newRow("a full screen") << 1920 << 5 << 905;
    QTest::newRow("a wide screen") << 3840 << 11 << 1991;
}

void TestPopupGeometry::columnsFollowTheMainWindowsWidth()
{
    QFETCH(int, frameWidth);
    QFETCH(int, columns);
    QFETCH(int, popupWidth);
    Browser browser(1);
    browser.host.mainWindow().setGeometry(0, 0, frameWidth, 800);
    RecentDocMainWindow popup(&browser.host.mainWindow());
    QCOMPARE(popup.tileColumns, columns);
    QCOMPARE(popup.popupWidth, popupWidth);
    QCOMPARE(popup.width(), popupWidth);
}

void TestPopupGeometry::rowsFollowTheNumberOfDocuments_data()
{
    QTest::addColumn<int>("frameWidth");
    QTest::addColumn<int>("documents");
    QTest::addColumn<int>("rows");
    QTest::addColumn<int>("popupHeight");
    QTest::newRow("one document") << 1300 << 1 << 1 << 201;
    QTest::newRow("four documents fill the single row") << 1300 << 4 << 1 << 201;
    QTest::newRow("the fifth begins a second row") << 1300 << 5 << 2 << 350;
    QTest::newRow("eight documents fill two rows") << 1300 << 8 << 2 << 350;
    QTest::newRow("nine documents begin a third row") << 1300 << 9 << 3 << 525;
    QTest::newRow("two columns, two documents") << 901 << 2 << 1 << 201;
    QTest::newRow("two columns, three documents") << 901 << 3 << 2 << 350;
    QTest::newRow("three columns, nine documents") << 900 << 9 << 3 << 525;
    QTest::newRow("eleven columns, nine documents") << 3840 << 9 << 1 << 201;
}

void TestPopupGeometry::rowsFollowTheNumberOfDocuments()
{
    QFETCH(int, frameWidth);
    QFETCH(int, documents);
    QFETCH(int, rows);
    QFETCH(int, popupHeight);
    Browser browser(documents);
    browser.host.mainWindow().setGeometry(0, 0, frameWidth, 800);
    RecentDocMainWindow popup(&browser.host.mainWindow());
    QCOMPARE(popup.tileRows, rows);
    QCOMPARE(popup.popupHeight, popupHeight);
    QCOMPARE(popup.height(), popupHeight);
}

void TestPopupGeometry::placeFollowsTheMainWindow_data()
{
    QTest::addColumn<QRect>("frame");
    QTest::addColumn<QPoint>("place");
    // One document: the popup is 201 high. 500 wide makes it 724 wide, 1300 as well, 700 makes it 543.
    QTest::newRow("centred as if the window stood at 0, 0") << QRect(100, 50, 1300, 801) << QPoint(288, 300);
    QTest::newRow("an odd rest is dropped") << QRect(100, 50, 701, 802) << QPoint(79, 300);
    QTest::newRow("wider than the window, shorter: its top for x")
        << QRect(100, 50, 500, 801) << QPoint(50, 300);
    QTest::newRow("wider and higher: the window's corner") << QRect(100, 50, 500, 150) << QPoint(100, 50);
    QTest::newRow("higher than the window, narrower: its left for y")
        << QRect(100, 50, 1300, 150) << QPoint(288, 100);
    QTest::newRow("wider, shorter, at 0, 0") << QRect(0, 0, 500, 801) << QPoint(0, 300);
    QTest::newRow("wider and higher, at 0, 0") << QRect(0, 0, 500, 150) << QPoint(0, 0);
    QTest::newRow("wider and higher, at the screen's left") << QRect(0, 50, 500, 150) << QPoint(50, 50);
    QTest::newRow("wider and higher, at the screen's top") << QRect(100, 0, 500, 150) << QPoint(100, 100);
    QTest::newRow("wider and higher, left of the screen") << QRect(-30, 40, 500, 150) << QPoint(40, 40);
    QTest::newRow("wider and higher, above the screen") << QRect(70, -20, 500, 150) << QPoint(70, 70);
    QTest::newRow("wider and higher, one pixel from the corner") << QRect(1, 2, 500, 150) << QPoint(2, 2);
    QTest::newRow("one pixel of room is none") << QRect(100, 50, 1300, 203) << QPoint(288, 100);
    QTest::newRow("one and a half are none either") << QRect(100, 50, 1300, 204) << QPoint(288, 100);
    QTest::newRow("two are kept") << QRect(100, 50, 1300, 205) << QPoint(288, 2);
}

void TestPopupGeometry::placeFollowsTheMainWindow()
{
    QFETCH(QRect, frame);
    QFETCH(QPoint, place);
    Browser browser(1);
    browser.host.mainWindow().setGeometry(frame);
    RecentDocMainWindow popup(&browser.host.mainWindow());
    QCOMPARE(QPoint(popup.popupX, popup.popupY), place);
    QCOMPARE(popup.geometry(), QRect(place, QSize(popup.popupWidth, 201)));
}

void TestPopupGeometry::contentFits_data()
{
    QTest::addColumn<int>("points");
    QTest::addColumn<int>("documents");
    for (const int points : {9, 12, 14, 18, 20}) {
        for (const int documents : {0, 1, 5, 9, 21})
            QTest::addRow("%d points, %d documents", points, documents) << points << documents;
    }
}

void TestPopupGeometry::contentFits()
{
    QFETCH(int, points);
    QFETCH(int, documents);
    QFont font = QApplication::font();
    font.setPointSize(points);
    QApplication::setFont(font);
    Browser browser(documents);
    browser.createDocument();
    auto *popup = new RecentDocMainWindow(&browser.host.mainWindow());
    const QRect place = popup->geometry();
    popup->show();
    drainEvents(); // layouts have run

    QCOMPARE(popup->geometry(), place);
    QCOMPARE(place.topLeft(), QPoint(popup->popupX, popup->popupY));
    QCOMPARE(place.width(), popup->popupWidth);
    QVERIFY(place.height() >= popup->popupHeight);
    const QRect header = popup->main_label_title->geometry() | popup->main_label_path->geometry();
    QVERIFY(header.height() >=
            popup->main_label_title->sizeHint().height() + popup->main_label_path->sizeHint().height());
    const QRect room = popup->rect().adjusted(0, header.bottom() + 1, 0, 0);
    QRect content = room.adjusted(0, 0, 0, -room.height()); // nothing yet
    const QList<RecentDocDialog *> tiles = browser.tiles();
    for (const RecentDocDialog *tile : tiles) {
        const QRect withRing = tile->geometry().adjusted(-3, -3, 3, 3);
        QVERIFY(room.contains(withRing));
        content |= withRing;
    }
    const bool isUsualSize = points * popup->logicalDpiY() <= 9 * 96;
    if (documents > 0 && (isUsualSize || content.bottom() < popup->popupHeight))
        QCOMPARE(place.height(), popup->popupHeight); // no more than it takes

    // As a strip it takes no more than its header, and then is what it was.
    if (documents == 0)
        return;
    popup->dragDialog = tiles.first();
    QMimeData data;
    for (const bool outside : {true, false}) {
        QCursor::setPos(outside ? QPoint(5, 5) : popup->geometry().center());
        QDragMoveEvent move(QPoint(), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        static_cast<QObject *>(popup)->event(&move);
        drainEvents();
        QCOMPARE(popup->isCollapsed, outside);
        QCOMPARE(popup->geometry(), outside ? QRect(place.topLeft(), QSize(place.width(), 32)) : place);
    }
}

void TestPopupGeometry::opensWithoutAMainWindow()
{
    Browser browser(2);
    browser.createDocument();
    browser.host.hasMainFrame = false;
    RecentDocMainWindow popup(nullptr);
    QCOMPARE(popup.geometry(), QRect(0, 0, 724, 201)); // as over a window without size
    QCOMPARE(browser.tiles().size(), 2);
}

void TestPopupGeometry::gridHasItsMeasures()
{
    Browser browser(1);
    browser.createDocument();
    RecentDocMainWindow popup(&browser.host.mainWindow());
    QCOMPARE(popup.gridLayout->objectName(), QStringLiteral("gridLayout"));
    QCOMPARE(popup.gridLayout->horizontalSpacing(), 20);
    QCOMPARE(popup.gridLayout->verticalSpacing(), 20);
    QCOMPARE(popup.gridLayout->contentsMargins(), QMargins(11, 11, 11, 11));
    QCOMPARE(popup.gridLayout->parent(), popup.verticalLayout);
    QCOMPARE(popup.verticalLayout->contentsMargins(), QMargins(0, 0, 0, 0));
}

void TestPopupGeometry::spacersStandBehindTheTiles()
{
    Browser browser(6);
    browser.createDocument();
    RecentDocMainWindow popup(&browser.host.mainWindow());

    QCOMPARE(popup.horizontalSpacer->sizeHint(), QSize(40, 20));
    QCOMPARE(popup.horizontalSpacer->sizePolicy(), QSizePolicy(QSizePolicy::Expanding, QSizePolicy::Minimum));
    const Cell right = cellOf(*popup.gridLayout, popup.horizontalSpacer);
    QCOMPARE(right.row, 0);
    QCOMPARE(right.column, 5); // one column stays empty behind the four
    QCOMPARE(right.rowSpan, 1);
    QCOMPARE(right.columnSpan, 1);

    QCOMPARE(popup.verticalSpacer->sizeHint(), QSize(20, 40));
    QCOMPARE(popup.verticalSpacer->sizePolicy(), QSizePolicy(QSizePolicy::Minimum, QSizePolicy::Expanding));
    const Cell below = cellOf(*popup.gridLayout, popup.verticalSpacer);
    QCOMPARE(below.row, 2);
    QCOMPARE(below.column, 0);
    QCOMPARE(below.rowSpan, 1);
    QCOMPARE(below.columnSpan, 1);
}

void TestPopupGeometry::tilesFillTheGridRowByRow_data()
{
    QTest::addColumn<int>("documents");
    QTest::newRow("one tile") << 1;
    QTest::newRow("a full row") << 4;
    QTest::newRow("one tile in the second row") << 5;
    QTest::newRow("one tile in the third row") << 9;
}

void TestPopupGeometry::tilesFillTheGridRowByRow()
{
    QFETCH(int, documents);
    constexpr int columns = 4;
    Browser browser(documents);
    browser.createDocument();
    RecentDocMainWindow popup(&browser.host.mainWindow());
    const QList<RecentDocDialog *> tiles = browser.tiles();
    QCOMPARE(tiles.size(), documents);
    for (int row = 0; row < popup.tileRows; ++row) {
        for (int column = 0; column < columns; ++column) {
            const int index = row * columns + column;
            QCOMPARE(widgetAt(*popup.gridLayout, row, column), index < documents ? tiles.at(index) : nullptr);
        }
    }
    constexpr int spacers = 2;
    QCOMPARE(popup.gridLayout->count(), documents + spacers);
    for (int i = 0; i < documents; ++i)
        QCOMPARE(tiles.at(i)->path(), browser.path(i));
}

void TestPopupGeometry::documentsWithoutACacheEntryLeaveEmptyCells()
{
    Browser browser(6);
    browser.createDocument();
    RecentDocumentBrowser::CreateRecentFileImageMap();
    for (const int gone : {0, 3, 5})
        RecentDocumentBrowser::recentFileImageMap.remove(browser.path(gone));
    RecentDocMainWindow popup(&browser.host.mainWindow());

    QCOMPARE(popup.tileRows, 2); // sized for the six
    QCOMPARE(popup.popupHeight, 350);
    const QList<RecentDocDialog *> tiles = browser.tiles();
    QCOMPARE(tiles.size(), 3);
    const QStringList paths = {browser.path(1), browser.path(2), browser.path(4)};
    for (int i = 0; i < tiles.size(); ++i) {
        QCOMPARE(tiles.at(i)->path(), paths.at(i));
        QCOMPARE(widgetAt(*popup.gridLayout, 0, i), tiles.at(i));
    }
    QVERIFY(!popup.gridLayout->itemAtPosition(0, 3));
    QVERIFY(!popup.gridLayout->itemAtPosition(1, 0));
    QCOMPARE(popup.main_label_path->text(), browser.path(1));
    QVERIFY(tiles.first()->isHighlighted());
}

void TestPopupGeometry::tilesBeyondTheLastCellStayOutOfTheGrid()
{
    Browser browser(6);
    browser.createDocument();
    RecentDocumentBrowser::CreateRecentFileImageMap();
    browser.host.setRecent(browser.paths().mid(0, 2)); // the menu has not heard of it yet
    RecentDocMainWindow popup(&browser.host.mainWindow());
    QCOMPARE(popup.tileRows, 1);
    QCOMPARE(browser.tiles().size(), 6);
    QCOMPARE(widgetAt(*popup.gridLayout, 0, 3), browser.tiles().at(3));
    QCOMPARE(popup.gridLayout->indexOf(browser.tiles().at(4)), -1);
    QCOMPARE(popup.gridLayout->indexOf(browser.tiles().at(5)), -1);
}

void TestPopupGeometry::columnPositionIsTheHighlightedTilesColumn_data()
{
    QTest::addColumn<int>("tile");
    QTest::addColumn<int>("column");
    QTest::newRow("the first tile") << 0 << 0;
    QTest::newRow("the first row's end") << 3 << 3;
    QTest::newRow("the second row") << 5 << 1;
    QTest::newRow("behind the last row's empty cells") << 7 << 3;
    QTest::newRow("the tile of the last row") << 8 << 0;
}

void TestPopupGeometry::columnPositionIsTheHighlightedTilesColumn()
{
    QFETCH(int, tile);
    QFETCH(int, column);
    Browser browser(9);
    browser.createDocument();
    RecentDocMainWindow popup(&browser.host.mainWindow());
    browser.tiles().at(0)->clearHighlight();
    browser.tiles().at(tile)->highlight();
    QCOMPARE(popup.getColumnPosition(), column);
}

void TestPopupGeometry::columnPositionGoesDownTheColumnsAndComparesPaths()
{
    Browser browser(5);
    QStringList listed = browser.paths();
    listed[4] = listed.at(1); // the same drawing again, below the first tile
    browser.host.setRecent(listed);
    browser.createDocument();
    RecentDocMainWindow popup(&browser.host.mainWindow());
    QCOMPARE(browser.tiles().size(), 5);
    browser.tiles().at(0)->clearHighlight();
    browser.tiles().at(1)->highlight();
    QCOMPARE(popup.getColumnPosition(), 0); // the tile in column 1 is highlighted, its twin found first
}

void TestPopupGeometry::columnPositionOfTheFirstOfSeveralHighlighted()
{
    Browser browser(4);
    browser.createDocument();
    RecentDocMainWindow popup(&browser.host.mainWindow());
    browser.tiles().at(0)->clearHighlight();
    browser.tiles().at(3)->highlight();
    browser.tiles().at(2)->highlight();
    QCOMPARE(popup.getColumnPosition(), 2);
}

void TestPopupGeometry::withoutAHighlightThereIsNoColumnPosition()
{
    Browser browser(2);
    browser.createDocument();
    RecentDocMainWindow popup(&browser.host.mainWindow());
    browser.tiles().at(0)->clearHighlight();
    QCOMPARE(popup.getColumnPosition(), -1);
}

QTEST_MAIN(TestPopupGeometry)
#include "tst_popupgeometry.moc"
