// SPDX-License-Identifier: MIT
#include "tests/ui/MousedPopup.h"

#include <QCursor>
#include <QDragMoveEvent>
#include <QDropEvent>
#include <QGridLayout>
#include <QMimeData>
#include <QSpacerItem>
#include <QUrl>

namespace {

//! Delivers an event of a drag to the popup itself: QApplication would look for the drag it belongs to.
void deliver(QObject *receiver, QEvent *event)
{
    receiver->event(event);
}

//! A popup over which one of its tiles is dragged, event by event. Three tiles are in one row, in the middle
//! of 1300 x 800.
class DraggedTile : public MousedPopup
{
public:
    // The popup's rectangle with one row of four columns, and when it is collapsed.
    static constexpr QRect fullSize{288, 299, 724, 201};
    static constexpr QRect strip{288, 299, 724, 32};
    static constexpr QPoint outside{5, 5};

    //! \param held the tile that is dragged; -1 for none
    explicit DraggedTile(int documents = 3, int held = 1) : MousedPopup(documents)
    {
        if (held >= 0)
            popup->dragDialog = tiles.at(held);
        data.setData(format(), "tile");
    }

    //! The format of the browser's own drags.
    static QString format() { return QStringLiteral("application/corvel.DR.Layout"); }
    //! A move of the drag with the pointer there, in global coordinates.
    void dragTo(const QPoint &global)
    {
        QCursor::setPos(global);
        QDragMoveEvent event(popup->mapFromGlobal(global), Qt::CopyAction, &data, Qt::LeftButton,
                             Qt::NoModifier);
        deliver(popup, &event);
    }
    void dragAway()
    {
        QDragLeaveEvent event;
        deliver(popup, &event);
    }

    bool hasFullForm() const
    {
        return popup->gridLayout->contentsMargins() == QMargins(11, 11, 11, 11) &&
               hasSpacers(QSize(40, 20), QSize(20, 40));
    }
    bool hasStripForm() const
    {
        return popup->gridLayout->contentsMargins() == QMargins() && hasSpacers(QSize(0, 0), QSize(0, 0));
    }
    //! The tiles that are not hidden, by their place in the list.
    QList<int> shown() const
    {
        QList<int> indices;
        for (int i = 0; i < tiles.size(); ++i) {
            if (tiles.at(i)->isVisible())
                indices.append(i);
        }
        return indices;
    }
    //! Changes everything that collapsing and restoring set.
    void disturb()
    {
        popup->setGeometry(disturbed);
        popup->gridLayout->setContentsMargins(1, 2, 3, 4);
        popup->horizontalSpacer->changeSize(5, 6, QSizePolicy::Fixed, QSizePolicy::Fixed);
        popup->verticalSpacer->changeSize(7, 8, QSizePolicy::Fixed, QSizePolicy::Fixed);
    }
    bool isStillDisturbed() const
    {
        return popup->geometry() == disturbed &&
               popup->gridLayout->contentsMargins() == QMargins(1, 2, 3, 4) &&
               popup->horizontalSpacer->sizeHint() == QSize(5, 6) &&
               popup->verticalSpacer->sizeHint() == QSize(7, 8);
    }

    QMimeData data;

private:
    bool hasSpacers(const QSize &horizontal, const QSize &vertical) const
    {
        const auto policy = [](const QSpacerItem *spacer) { return spacer->sizePolicy(); };
        return popup->horizontalSpacer->sizeHint() == horizontal &&
               policy(popup->horizontalSpacer) == QSizePolicy(QSizePolicy::Expanding, QSizePolicy::Minimum) &&
               popup->verticalSpacer->sizeHint() == vertical &&
               policy(popup->verticalSpacer) == QSizePolicy(QSizePolicy::Minimum, QSizePolicy::Expanding);
    }

    const QRect disturbed{200, 100, 400, 300};
};

} // namespace

//! Which drags the popup tracks, the strip that it becomes while a tile is outside, and the way back.
class tst_DragEvents : public TestCase
{
    Q_OBJECT

private slots:
    void onlyTheBrowsersOwnDragsAreTracked_data()
    {
        QTest::addColumn<QStringList>("formats");
        QTest::addColumn<bool>("accepted");
        const QString urls = QStringLiteral("text/uri-list");
        QTest::newRow("a tile") << QStringList{DraggedTile::format(), urls} << true;
        QTest::newRow("the tile's format alone") << QStringList{DraggedTile::format()} << true;
        QTest::newRow("a file") << QStringList{urls} << false;
        QTest::newRow("another format of the kind")
            << QStringList{urls, "application/corvel.DR.Layout2"} << false;
        QTest::newRow("nothing") << QStringList{} << false;
    }

    void onlyTheBrowsersOwnDragsAreTracked()
    {
        QFETCH(QStringList, formats);
        QFETCH(bool, accepted);
        DraggedTile drag(3, -1); // whether a tile is held does not matter
        QMimeData data;
        for (const QString &format : formats)
            data.setData(format, "file:///home/u/a.dwg");
        for (const bool before : {false, true}) {
            QDragEnterEvent event(QPoint(40, 40), Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton,
                                  Qt::NoModifier);
            event.setAccepted(before);
            const Qt::DropAction other =
                event.proposedAction() == Qt::CopyAction ? Qt::MoveAction : Qt::CopyAction;
            event.setDropAction(other);
            deliver(drag.popup, &event);
            QCOMPARE(event.isAccepted(), accepted);
            QCOMPARE(event.dropAction(), accepted ? event.proposedAction() : other);
        }
        QVERIFY(!drag.popup->isCollapsed);
    }

    void movesAreNeitherAcceptedNorIgnored()
    {
        DraggedTile drag;
        for (const QPoint pointer : {DraggedTile::fullSize.center(), DraggedTile::outside}) {
            QCursor::setPos(pointer);
            for (const bool before : {false, true}) { // as the enter event was answered
                QDragMoveEvent event(QPoint(40, 40), Qt::CopyAction, &drag.data, Qt::LeftButton,
                                     Qt::NoModifier);
                event.setAccepted(before);
                deliver(drag.popup, &event);
                QCOMPARE(event.isAccepted(), before);
            }
        }
    }

    void dropDoesNothing()
    {
        for (const bool collapsed : {false, true}) {
            DraggedTile drag;
            drag.data.setUrls({QUrl::fromLocalFile(drag.browser.path(0))});
            drag.dragTo(collapsed ? DraggedTile::outside : DraggedTile::fullSize.center());
            QDropEvent event(QPointF(20, 20), Qt::CopyAction, &drag.data, Qt::LeftButton, Qt::NoModifier);
            deliver(drag.popup, &event);
            drainEvents();
            QVERIFY(!event.isAccepted());
            QCOMPARE(drag.popup->isCollapsed, collapsed);
            QCOMPARE(drag.popup->geometry(), collapsed ? DraggedTile::strip : DraggedTile::fullSize);
            QVERIFY(!drag.tiles.at(1)->isVisible()); // only the end of the drag shows it again
            QCOMPARE(drag.browser.host.openedPaths(), QStringList());
        }
    }

    void edgeOfElevenPixelsCountsAsOutside_data()
    {
        QTest::addColumn<bool>("wasCollapsed");
        QTest::addColumn<QPoint>("pointer");
        QTest::addColumn<bool>("isInside");
        const auto row = [](const char *name, bool wasCollapsed, const QPoint &pointer, bool isInside) {
            QTest::newRow(name) << wasCollapsed << pointer << isInside;
        };
        const QRect inner(QPoint(299, 310),
                          QPoint(1000, 488)); // 11 pixels inside of the first and last pixel
        row("upper left corner", false, inner.topLeft(), true);
        row("lower right corner", false, inner.bottomRight(), true);
        row("one pixel left", false, inner.topLeft() - QPoint(1, 0), false);
        row("one pixel up", false, inner.topLeft() - QPoint(0, 1), false);
        row("one pixel right", false, inner.bottomRight() + QPoint(1, 0), false);
        row("one pixel down", false, inner.bottomRight() + QPoint(0, 1), false);
        const QRect innerOfStrip(QPoint(299, 310), QPoint(1000, 319));
        row("the strip's upper left corner", true, innerOfStrip.topLeft(), true);
        row("its lower right corner", true, innerOfStrip.bottomRight(), true);
        row("one pixel too high for the strip", true, innerOfStrip.topLeft() - QPoint(0, 1), false);
        row("one pixel too low", true, innerOfStrip.bottomRight() + QPoint(0, 1), false);
        row("the middle of the full size", true, DraggedTile::fullSize.center(), false);
    }

    void edgeOfElevenPixelsCountsAsOutside()
    {
        QFETCH(bool, wasCollapsed);
        QFETCH(QPoint, pointer);
        QFETCH(bool, isInside);
        DraggedTile drag;
        QCOMPARE(drag.popup->geometry(), DraggedTile::fullSize);
        if (wasCollapsed)
            drag.dragTo(DraggedTile::outside);
        drag.dragTo(pointer);
        QCOMPARE(drag.popup->isCollapsed, !isInside);
        QCOMPARE(drag.popup->geometry(), isInside ? DraggedTile::fullSize : DraggedTile::strip);
        QVERIFY(!drag.tiles.at(1)->isVisible()); // in both cases
    }

    void nothingHappensWithoutAHeldTile()
    {
        DraggedTile drag(3, -1);
        drag.dragTo(DraggedTile::outside);
        QVERIFY(!drag.popup->isCollapsed);
        QCOMPARE(drag.popup->geometry(), DraggedTile::fullSize);
        QVERIFY(drag.hasFullForm());
        QCOMPARE(drag.shown(), QList<int>({0, 1, 2}));

        drag.popup->dragDialog = drag.tiles.first();
        drag.dragTo(DraggedTile::outside);
        delete drag.tiles.takeFirst(); // it may be deleted meanwhile
        drag.dragTo(DraggedTile::strip.center());
        QVERIFY(drag.popup->isCollapsed);
        QCOMPARE(drag.popup->geometry(), DraggedTile::strip);
        QCOMPARE(drag.shown(), QList<int>());
    }

    void everyMoveOutsideShowsOnlyTheHeader()
    {
        DraggedTile drag(6); // two rows, the second of two tiles
        const QRect strip(drag.popup->popupX, drag.popup->popupY, 724, 32);
        for (int i = 0; i < 3; ++i) {
            drag.dragTo(DraggedTile::outside + QPoint(i, 0));
            QVERIFY(drag.popup->isCollapsed);
            QCOMPARE(drag.popup->geometry(), strip);
            QVERIFY(drag.hasStripForm());
            QCOMPARE(drag.shown(), QList<int>());
            drainEvents(); // layouts have run
            QCOMPARE(drag.popup->geometry(), strip);
            QVERIFY(drag.popup->main_label_title->isVisible());
            drag.disturb();
            for (RecentDocDialog *tile : qAsConst(drag.tiles))
                tile->show();
        }
    }

    void moveBackInsideRestoresAllButTheDraggedTile()
    {
        DraggedTile drag(6);
        const QRect before = drag.popup->geometry();
        drag.dragTo(DraggedTile::outside);
        drainEvents();
        drag.popup->move(100, 600); // it returns to its own place
        ReceiversOf shown(QEvent::Show);
        for (const int tile : {0, 1}) // the dragged one is not even shown for a moment
            drag.tiles.at(tile)->installEventFilter(&shown);
        drag.dragTo(drag.popup->geometry().center());
        QVERIFY(!drag.popup->isCollapsed);
        QCOMPARE(drag.popup->geometry(), before);
        QVERIFY(drag.hasFullForm());
        QCOMPARE(drag.shown(), QList<int>({0, 2, 3, 4, 5}));
        QCOMPARE(shown.receivers, QList<QObject *>{drag.tiles.at(0)});
        drainEvents();
        QCOMPARE(drag.popup->geometry(), before);
        QCOMPARE(drag.tiles.at(2)->pos().y(), drag.tiles.at(0)->pos().y());
        QVERIFY(drag.tiles.at(2)->x() > drag.tiles.at(0)->x() + 2 * 161); // the cell between them is kept
    }

    void moveInsideAtFullSizeOnlyHidesTheDraggedTile()
    {
        DraggedTile drag;
        drag.tiles.at(2)->hide();
        drag.disturb();
        drag.dragTo(drag.popup->geometry().center());
        QVERIFY(drag.isStillDisturbed());
        QVERIFY(!drag.popup->isCollapsed);
        QCOMPARE(drag.shown(), QList<int>({0}));
        QCOMPARE(drag.popup->dragDialog.data(), drag.tiles.at(1));
    }

    void onlyTheCellsOfTilesAreHiddenAndShown()
    {
        DraggedTile drag(6); // two rows of four columns: the spacers are in row 2 and in column 5
        QGridLayout *grid = drag.popup->gridLayout;
        auto *lastVisited = new QWidget(drag.popup);
        auto *underTheTiles = new QWidget(drag.popup);
        auto *besideTheTiles = new QWidget(drag.popup);
        auto *outsideTheGrid = new QWidget(drag.popup);
        grid->addWidget(lastVisited, 1, 4);
        grid->addWidget(underTheTiles, 2, 1);
        grid->addWidget(besideTheTiles, 1, 5);
        for (QWidget *widget : {lastVisited, underTheTiles, besideTheTiles, outsideTheGrid})
            widget->show();
        drag.dragTo(DraggedTile::outside);
        QVERIFY(!lastVisited->isVisible());
        for (QWidget *widget : {underTheTiles, besideTheTiles, outsideTheGrid}) {
            QVERIFY(widget->isVisible());
            widget->hide();
        }
        drag.dragTo(drag.popup->geometry().center());
        QVERIFY(lastVisited->isVisible());
        for (const QWidget *widget : {underTheTiles, besideTheTiles, outsideTheGrid})
            QVERIFY(!widget->isVisible());
    }

    void leavingTheStripFormsItAgain()
    {
        DraggedTile drag;
        drag.dragTo(DraggedTile::outside);
        drag.popup->dragDialog = nullptr; // does not matter
        drag.tiles.first()->show();
        drag.disturb();
        drag.dragAway();
        QVERIFY(drag.popup->isCollapsed);
        QCOMPARE(drag.popup->geometry(), DraggedTile::strip);
        QVERIFY(drag.hasStripForm());
        QCOMPARE(drag.shown(), QList<int>({0})); // no tile is hidden
        drainEvents();
        QCOMPARE(drag.popup->geometry(), DraggedTile::strip);
    }

    void leavingAtFullSizeChangesNothing()
    {
        DraggedTile drag;
        drag.disturb();
        QCursor::setPos(DraggedTile::outside); // quickly, without a move there
        drag.dragAway();
        QVERIFY(drag.isStillDisturbed());
        QVERIFY(!drag.popup->isCollapsed);
        QCOMPARE(drag.shown(), QList<int>({0, 1, 2}));
    }
};

TEST_CLASS(tst_DragEvents);
#include "tst_dragevents.moc"
