// SPDX-License-Identifier: MIT
#include "tests/ui/FormText.h"
#include "tests/ui/OpenGrid.h"

#include <QDragMoveEvent>
#include <QMimeData>
#include <QSpacerItem>

namespace {

QWidget *inCell(const RecentDocMainWindow &popup, int row, int column)
{
    QLayoutItem *item = popup.gridLayout->itemAtPosition(row, column);
    return item ? item->widget() : nullptr;
}

} // namespace

//! The popup's size and place, and the places of its tiles.
class tst_PopupGeometry : public TestCase
{
    Q_OBJECT

private slots:
    void sizeFollowsTheMainWindowsWidthAndTheDocuments_data()
    {
        QTest::addColumn<int>("frameWidth");
        QTest::addColumn<int>("documents");
        QTest::addColumn<QSize>("tiles"); // columns and rows
        QTest::addColumn<QSize>("size");
        const auto row = [](const char *name, int frameWidth, int documents, const QSize &tiles,
                            const QSize &size) {
            QTest::newRow(name) << frameWidth << documents << tiles << size;
        };
        row("no width at all", 0, 1, {4, 1}, {724, 201});
        row("the last narrow width", 585, 1, {4, 1}, {724, 201});
        row("the first medium width", 586, 1, {3, 1}, {543, 201});
        row("the last medium width", 900, 1, {3, 1}, {543, 201});
        row("only two columns after the medium widths", 901, 1, {2, 1}, {362, 201});
        row("the last width of two columns", 965, 1, {2, 1}, {362, 201});
        row("the first width of three columns again", 966, 1, {3, 1}, {543, 201});
        row("the last width of three columns", 1287, 1, {3, 1}, {543, 201});
        row("the first width of four columns", 1288, 1, {4, 1}, {724, 201});
        row("a full screen", 1920, 1, {5, 1}, {905, 201});
        row("a wide screen", 3840, 9, {11, 1}, {1991, 201});
        row("four documents fill the single row", 1300, 4, {4, 1}, {724, 201});
        row("the fifth begins a second row", 1300, 5, {4, 2}, {724, 350});
        row("eight documents fill two rows", 1300, 8, {4, 2}, {724, 350});
        row("nine documents begin a third row", 1300, 9, {4, 3}, {724, 525});
        row("two columns, two documents", 901, 2, {2, 1}, {362, 201});
        row("two columns, three documents", 901, 3, {2, 2}, {362, 350});
        row("three columns, nine documents", 900, 9, {3, 3}, {543, 525});
    }

    void sizeFollowsTheMainWindowsWidthAndTheDocuments()
    {
        QFETCH(int, frameWidth);
        QFETCH(int, documents);
        QFETCH(QSize, tiles);
        QFETCH(QSize, size);
        const UnshownPopup made(documents, QRect(0, 0, frameWidth, 800));
        QCOMPARE(QSize(made.popup->tileColumns, made.popup->tileRows), tiles);
        QCOMPARE(QSize(made.popup->popupWidth, made.popup->popupHeight), size);
        QCOMPARE(made.popup->size(), size);
    }

    void placeFollowsTheMainWindow_data()
    {
        QTest::addColumn<QRect>("frame");
        QTest::addColumn<QPoint>("place");
        // One document: the popup is 201 high. 500 wide makes it 724 wide, 1300 as well, 700 makes it 543.
        QTest::newRow("centred as if the window were at 0, 0")
            << QRect(100, 50, 1300, 801) << QPoint(288, 300);
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

    void placeFollowsTheMainWindow()
    {
        QFETCH(QRect, frame);
        QFETCH(QPoint, place);
        const UnshownPopup made(1, frame);
        QCOMPARE(QPoint(made.popup->popupX, made.popup->popupY), place);
        QCOMPARE(made.popup->geometry(), QRect(place, QSize(made.popup->popupWidth, 201)));
    }

    void contentFits_data()
    {
        QTest::addColumn<int>("points");
        QTest::addColumn<int>("documents");
        for (const int points : {9, 12, 14, 18, 20}) {
            for (const int documents : {0, 1, 5, 9, 21})
                QTest::addRow("%d points, %d documents", points, documents) << points << documents;
        }
    }

    void contentFits()
    {
        QFETCH(int, points);
        QFETCH(int, documents);
        QFont font = QApplication::font();
        font.setPointSize(points);
        QApplication::setFont(font);
        FakeBrowser browser(documents);
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
            QCOMPARE(place.height(), popup->popupHeight); // no more than is needed

        // Collapsed it is only as high as its header, and restored as before.
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

    void opensWithoutAMainWindow()
    {
        FakeBrowser browser(2);
        browser.createDocument();
        browser.host.hasMainFrame = false;
        RecentDocMainWindow popup(nullptr);
        QCOMPARE(popup.geometry(), QRect(0, 0, 724, 201)); // as over a window without size
        QCOMPARE(browser.tiles().size(), 2);
    }

    void spacersFollowTheTiles()
    {
        const UnshownPopup made(5);
        const QString tile = QStringLiteral(", %1 RecentDocDialog");
        QCOMPARE(formText(made.popup->gridLayout), // one column after the four is empty
                 QStringLiteral("gridLayout 20 (0:5 spacer, 2:0 spacer") + tile.arg("0:0") + tile.arg("0:1") +
                     tile.arg("0:2") + tile.arg("0:3") + tile.arg("1:0") + QLatin1Char(')'));
        const QSpacerItem &right = *made.popup->horizontalSpacer;
        QCOMPARE(right.sizeHint(), QSize(40, 20));
        QCOMPARE(right.sizePolicy(), QSizePolicy(QSizePolicy::Expanding, QSizePolicy::Minimum));
        QCOMPARE(made.popup->gridLayout->itemAt(0), &right);
        const QSpacerItem &below = *made.popup->verticalSpacer;
        QCOMPARE(below.sizeHint(), QSize(20, 40));
        QCOMPARE(below.sizePolicy(), QSizePolicy(QSizePolicy::Minimum, QSizePolicy::Expanding));
        QCOMPARE(made.popup->gridLayout->itemAt(1), &below);
    }

    void tilesFillTheGridRowByRow()
    {
        for (const int documents : {1, 4, 5, 9}) {
            const UnshownPopup made(documents);
            QCOMPARE(made.tiles.size(), documents);
            for (int cell = 0; cell < 4 * made.popup->tileRows; ++cell)
                QCOMPARE(inCell(*made.popup, cell / 4, cell % 4), made.tiles.value(cell));
            for (int i = 0; i < documents; ++i)
                QCOMPARE(made.tiles.at(i)->path(), made.browser.path(i));
        }
    }

    void documentsWithoutACacheEntryLeaveEmptyCells()
    {
        const OpenGrid grid(6, 4, {0, 3, 5});
        QCOMPARE(grid.popup->tileRows, 2); // sized for the six
        QCOMPARE(grid.popup->popupHeight, 350);
        const QStringList paths = {grid.browser.path(1), grid.browser.path(2), grid.browser.path(4)};
        QCOMPARE(grid.tiles.size(), paths.size());
        for (int i = 0; i < paths.size(); ++i) {
            QCOMPARE(grid.tiles.at(i)->path(), paths.at(i));
            QCOMPARE(inCell(*grid.popup, 0, i), grid.tiles.at(i));
        }
        QVERIFY(!inCell(*grid.popup, 0, 3) && !inCell(*grid.popup, 1, 0));
        QCOMPARE(grid.line(), grid.lineOf(0));
        QCOMPARE(grid.highlighted(), Indices{0});
    }

    void tilesBeyondTheLastCellStayOutOfTheGrid()
    {
        UnshownPopup made(6);
        made.browser.host.setRecent(made.browser.paths().mid(0, 2)); // the menu is not updated yet
        const RecentDocMainWindow popup(&made.browser.host.mainWindow());
        QCOMPARE(popup.tileRows, 1);
        const QList<RecentDocDialog *> tiles = made.browser.tiles();
        QCOMPARE(tiles.size(), 6);
        for (int i = 0; i < 6; ++i)
            QCOMPARE(popup.gridLayout->indexOf(tiles.at(i)) >= 0, i < 4);
    }

    void columnPositionIsThatOfTheHighlightedTilesPath_data()
    {
        QTest::addColumn<Indices>("listed");
        QTest::addColumn<Indices>("highlighted");
        QTest::addColumn<int>("column");
        const Indices nine = {0, 1, 2, 3, 4, 5, 6, 7, 8};
        QTest::newRow("the first tile") << nine << Indices{0} << 0;
        QTest::newRow("the first row's end") << nine << Indices{3} << 3;
        QTest::newRow("the second row") << nine << Indices{5} << 1;
        QTest::newRow("above the last row's empty cells") << nine << Indices{7} << 3;
        QTest::newRow("the tile of the last row") << nine << Indices{8} << 0;
        QTest::newRow("the first of several") << nine << Indices{3, 2} << 2;
        QTest::newRow("none") << nine << Indices{} << -1;
        // The tile in column 1 is highlighted; its twin below the first tile is found first.
        QTest::newRow("the same drawing twice") << Indices{0, 1, 2, 3, 1} << Indices{1} << 0;
    }

    void columnPositionIsThatOfTheHighlightedTilesPath()
    {
        QFETCH(Indices, listed);
        QFETCH(Indices, highlighted);
        QFETCH(int, column);
        OpenGrid grid(9, listed);
        grid.highlight(highlighted);
        QCOMPARE(grid.popup->getColumnPosition(), column);
    }
};

TEST_CLASS(tst_PopupGeometry);
#include "tst_popupgeometry.moc"
