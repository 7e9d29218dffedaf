// SPDX-License-Identifier: MIT
#include "module/RecentDocumentBrowser.h"
#include "tests/support/TileLayout.h"
#include "tests/ui/MousedPopup.h"

#include <QApplication>
#include <QChildEvent>
#include <QDrag>
#include <QLabel>
#include <QMimeData>
#include <QScopeGuard>
#include <QUrl>

namespace {

const QString tileFormat = QStringLiteral("application/corvel.DR.Layout");

//! The drags that are started from a popup's tiles. Without a display they end at once, without a drop.
class StartedDrags : public QObject
{
public:
    explicit StartedDrags(const QList<RecentDocDialog *> &tiles)
    {
        for (RecentDocDialog *tile : tiles)
            tile->installEventFilter(this);
    }

    //! Those that still exist.
    QList<QDrag *> drags() const
    {
        QList<QDrag *> found;
        for (const QPointer<QObject> &child : m_children) {
            if (auto *drag = qobject_cast<QDrag *>(child))
                found.append(drag);
        }
        return found;
    }
    //! The tile that the latest drag was made a child of.
    QObject *latestParent() const { return m_parent; }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::ChildAdded) { // not yet a QDrag, but about to become one
            m_children.append(static_cast<QChildEvent *>(event)->child());
            m_parent = watched;
        }
        return false;
    }

private:
    QList<QPointer<QObject>> m_children;
    QPointer<QObject> m_parent;
};

//! Drags a tile until the drag ends outside of the popup.
//! \return whether the popup accepted the move; its base class ignores it
bool dragOutside(const MousedPopup &mouse, int tile)
{
    mouse.press(mouse.middleOf(mouse.tiles.at(tile)));
    mouse.popup->isCollapsed = true;
    return mouse.move(mouse.popup->pressPoint + QPoint(40, 0));
}

} // namespace

//! The press that takes hold of a tile, the move that starts its drag, what the drag carries, and what
//! follows it.
class tst_DragStart : public TestCase
{
    Q_OBJECT

private slots:
    void pressHoldsTheTileUnderThePointer_data()
    {
        QTest::addColumn<QString>("part");
        QTest::addColumn<bool>("isOfATile");
        for (const char *part :
             {"tile", "title_label", "image_label", "Iconlabel", "pinButton", "folderButton"})
            QTest::newRow(part) << QString(part) << true;
        for (const char *part : {"gap", "main_label_title", "main_label_path", "help_label"})
            QTest::newRow(part) << QString(part) << false;
    }

    void pressHoldsTheTileUnderThePointer()
    {
        QFETCH(QString, part);
        QFETCH(bool, isOfATile);
        MousedPopup mouse(6);
        QVERIFY(!mouse.popup->dragDialog);
        RecentDocDialog *tile = mouse.tiles.at(5); // in the second row
        auto *widget = isOfATile ? tile->findChild<QWidget *>(part) : mouse.popup->findChild<QWidget *>(part);
        QPoint place = widget ? mouse.middleOf(widget) : mouse.gap();
        if (part == "tile") {
            widget = tile;
            place = tile->pos() + QPoint(3, 3);
        }
        QCOMPARE(mouse.popup->childAt(place), widget);
        for (const Qt::MouseButton button :
             {Qt::LeftButton, Qt::RightButton, Qt::MiddleButton, Qt::BackButton}) {
            const QPoint before = mouse.middleOf(mouse.tiles.at(0));
            mouse.press(before);
            QCOMPARE(mouse.popup->dragDialog.data(), mouse.tiles.at(0));
            // Only a press on a tile is passed to the base class, which ignores it.
            QCOMPARE(mouse.press(place + QPointF(0.4, -0.4), button), !isOfATile);
            QCOMPARE(mouse.popup->dragDialog.data(), isOfATile ? tile : nullptr);
            QCOMPARE(mouse.popup->pressPoint, button == Qt::LeftButton ? place : before);
        }
    }

    void tilesAreRecognizedByTheirName()
    {
        MousedPopup mouse(2);
        mouse.tiles.at(1)->setObjectName(QStringLiteral("AnotherDialog"));
        for (const QPoint inTile : {QPoint(3, 3), QPoint(80, 80)}) { // on the tile itself and on its picture
            mouse.press(mouse.middleOf(mouse.tiles.at(0)));
            QVERIFY(mouse.press(mouse.tiles.at(1)->pos() + inTile));
            QVERIFY(!mouse.popup->dragDialog);
        }
    }

    void onlyTheDirectParentCanBeATile()
    {
        MousedPopup mouse(2);
        mouse.press(mouse.middleOf(mouse.tiles.at(0)));
        QLabel *picture = mouse.tiles.at(1)->image_label;
        QWidget inner(picture);
        inner.setGeometry(picture->rect());
        inner.show();
        const QPoint place = mouse.middleOf(picture);
        QCOMPARE(mouse.popup->childAt(place), &inner);
        QVERIFY(mouse.press(place));
        QVERIFY(!mouse.popup->dragDialog);
    }

    void pressOnALabelSelectsTheTileAndReachesThePopup()
    {
        MousedPopup mouse(3);
        RecentDocDialog *tile = mouse.tiles.at(2);
        for (const char *part : {"title_label", "image_label", "Iconlabel"}) {
            auto *pressed = tile->findChild<QWidget *>(part);
            mouse.popup->dragDialog = nullptr;
            tile->clearHighlight();
            QTest::mousePress(pressed, Qt::LeftButton);
            QCOMPARE(mouse.popup->dragDialog.data(), tile);
            QCOMPARE(mouse.popup->pressPoint, mouse.middleOf(pressed));
            QCOMPARE(highlightedIn(mouse.tiles), Indices{2});
            QTest::mouseRelease(pressed, Qt::LeftButton);
            QCOMPARE(mouse.popup->dragDialog.data(), tile); // the release changes nothing
        }
    }

    void dragStartsAtTheDistance_data()
    {
        QTest::addColumn<bool>("starts");
        QTest::addColumn<QPoint>("moved");
        QTest::addColumn<int>("distance");
        QTest::addColumn<Qt::MouseButtons>("buttons");
        QTest::addColumn<bool>("holds");
        const auto row = [](const char *name, bool starts, const QPoint &moved, int distance = 10,
                            Qt::MouseButtons buttons = Qt::LeftButton, bool holds = true) {
            QTest::newRow(name) << starts << moved << distance << buttons << holds;
        };
        row("no move at all", false, {0, 0});
        row("one less in all", false, {-4, 5});
        row("equal to the left", true, {-10, 0});
        row("equal in all", true, {5, -5});
        row("shorter in a straight line, but longer in all", true, {7, 7});
        row("one less of a longer one", false, {12, 12}, 25);
        row("equal to a longer one", true, {12, 13}, 25);
        row("left button and others", true, {40, 30}, 10,
            Qt::LeftButton | Qt::RightButton | Qt::MiddleButton);
        row("right button", false, {40, 30}, 10, Qt::RightButton);
        row("no button", false, {40, 30}, 10, Qt::NoButton);
        row("left button, no tile", false, {40, 30}, 10, Qt::LeftButton, false);
    }

    void dragStartsAtTheDistance()
    {
        QFETCH(bool, starts);
        QFETCH(QPoint, moved);
        QFETCH(int, distance);
        QFETCH(Qt::MouseButtons, buttons);
        QFETCH(bool, holds);
        const auto restore = qScopeGuard(
            [before = QApplication::startDragDistance()] { QApplication::setStartDragDistance(before); });
        QApplication::setStartDragDistance(distance);
        MousedPopup mouse(3);
        const StartedDrags started(mouse.tiles);
        mouse.press(holds ? mouse.middleOf(mouse.tiles.at(1)) : mouse.gap());
        // The base class, which ignores the event, is called last.
        QCOMPARE(mouse.move(mouse.popup->pressPoint + moved, buttons), !starts);
        QCOMPARE(started.drags().size(), starts ? 1 : 0);
    }

    void dragCarriesThePictureAndTheGrabOffset()
    {
        MousedPopup mouse(6);
        const StartedDrags started(mouse.tiles);
        RecentDocDialog *tile = mouse.tiles.at(5);
        const QImage picture = tile->grab().toImage();
        const QPoint place = tile->pos() + QPoint(30, 40);
        mouse.press(place);
        mouse.move(place + QPointF(50.4, -15.6));
        const QPoint grabOffset(80, 24); // where the pointer is now, not where it was pressed

        QCOMPARE(started.drags().size(), 1);
        const QDrag *drag = started.drags().constFirst();
        QCOMPARE(drag->pixmap().toImage(), picture);
        QCOMPARE(drag->hotSpot(), grabOffset);
        QCOMPARE(drag->supportedActions(), Qt::DropActions(Qt::CopyAction));
        const TileLayout layout(drag->mimeData()->data(tileFormat));
        QVERIFY(layout.isWhole());
        QCOMPARE(layout.picture().size(), QSize(161, 131));
        QCOMPARE(layout.picture(), picture.convertToFormat(QImage::Format_RGB32));
        QCOMPARE(layout.grabOffset(), grabOffset);

        QCOMPARE(started.latestParent(), tile);
        QCOMPARE(drag->parent(), qApp); // since the data is fetched after the tile is deleted
        drainEvents();
        QVERIFY(started.drags().isEmpty()); // no target has accepted it
    }

    void dragCarriesExactlyOneUrl()
    {
        const QString longName = QStringLiteral("%1/").arg(QString(200, 'n')).repeated(19) + "gear.dwg";
        const QString rightToLeft = QStringLiteral("\u05d0\u202e.dwg");
        const QString noUtf8 = QStringLiteral("gear ") + QChar(0xdcff) + QChar(0xdc80);
        MousedPopup mouse(QStringList{"the new gear.dwg", "Ölpumpe.dwg", "100% done.dwg", "a%20b.dwg",
                                      "gear #3.dwg", "gear?.dwg", "gear\n3.dwg", "%n %s %1.dwg",
                                      "\"gear\" 'b'.dwg", "-gear.dwg", "...", rightToLeft, longName, noUtf8});
        const StartedDrags started(mouse.tiles);
        for (const RecentDocDialog *tile : qAsConst(mouse.tiles)) {
            mouse.press(mouse.middleOf(tile));
            mouse.move(mouse.popup->pressPoint + QPoint(40, 0));
            const QMimeData *carried = started.drags().constLast()->mimeData();
            const QString text = QStringLiteral("file:///") + tile->path();
            QVERIFY(text.startsWith(QLatin1String("file:////")));
            QCOMPARE(carried->urls(), QList<QUrl>({QUrl(text, QUrl::TolerantMode)}));
            QVERIFY(carried->urls().constFirst().isValid()); // which it is not in strict mode
            QStringList formats = carried->formats();
            formats.sort();
            QCOMPARE(formats, QStringList({tileFormat, QStringLiteral("text/uri-list")}));
        }
        QCOMPARE(started.drags().size(), mouse.browser.paths().size());
    }

    void aTileWithoutPathCarriesTheBareScheme()
    {
        MousedPopup mouse(2);
        QImage picture(8, 8, QImage::Format_RGB32);
        picture.fill(Qt::white);
        auto *nameless = new RecentDocDialog(
            mouse.popup, FakeBrowser::button(mouse.tiles.first(), "pinButton"), QString(), picture, false);
        nameless->move(mouse.tiles.at(1)->geometry().topRight() + QPoint(20, 0));
        nameless->show();
        const StartedDrags started({nameless});
        mouse.press(mouse.middleOf(nameless));
        mouse.move(mouse.popup->pressPoint + QPoint(40, 0));
        QCOMPARE(started.drags().size(), 1);
        QCOMPARE(started.drags().constFirst()->mimeData()->urls(),
                 QList<QUrl>({QUrl(QStringLiteral("file:///"), QUrl::TolerantMode)}));
    }

    void dragThatEndsInsideOpensNothingAndShowsTheTile()
    {
        MousedPopup mouse(3);
        mouse.press(mouse.middleOf(mouse.tiles.at(1)));
        mouse.tiles.at(1)->hide(); // as the drag's first move in the popup does
        QVERIFY(!mouse.move(mouse.popup->pressPoint + QPoint(40, 0)));
        drainEvents();
        QVERIFY(mouse.popup && mouse.popup->isVisible());
        QVERIFY(mouse.tiles.at(1)->isVisible());
        QCOMPARE(mouse.popup->dragDialog.data(),
                 mouse.tiles.at(1)); // until the next press or loss of the focus
        QCOMPARE(mouse.browser.host.openedPaths(), QStringList());
    }

    void dragThatEndsOutsideOpensWhatIsHighlighted()
    {
        MousedPopup mouse(5);
        const QSignalSpy finished(mouse.popup, &QDialog::finished);
        for (const int index : {4, 2}) // the first is highlighted already
            mouse.tiles.at(index)->highlight();
        dragOutside(mouse, 2);
        QCOMPARE(mouse.browser.host.openedPaths(),
                 QStringList({mouse.browser.path(0), mouse.browser.path(2), mouse.browser.path(4)}));
        QCOMPARE(finished.mid(0), QList<QVariantList>({{int(QDialog::Rejected)}}));
        drainEvents();
        QVERIFY(!mouse.popup);
    }

    void dragInAPopupThatOutlivesANewerOneOpensWhatIsHighlightedThere()
    {
        MousedPopup mouse(3);
        mouse.tiles.at(1)->highlight();
        QCursor::setPos(mouse.popup->geometry().center()); // else losing the focus would close it
        mouse.browser.openPopup();
        mouse.press(mouse.middleOf(mouse.tiles.at(2)));
        mouse.popup->isCollapsed = true;
        delete RecentDocumentBrowser::recentDocDialogList.first()->parentWidget(); // during the drag, say
        mouse.move(mouse.popup->pressPoint + QPoint(40, 0));
        QCOMPARE(mouse.browser.host.openedPaths(), mouse.browser.paths().mid(0, 2));
    }

    void nothingHighlightedLeavesTheStripWithTheDraggedTile()
    {
        MousedPopup mouse(3);
        mouse.tiles.first()->clearHighlight();
        for (RecentDocDialog *tile : qAsConst(mouse.tiles))
            tile->hide();
        mouse.popup->dragDialog = mouse.tiles.at(1);
        mouse.popup->isCollapsed = true;
        QVERIFY(!mouse.move(QPoint(40, 0)));
        drainEvents();
        QVERIFY(mouse.popup && mouse.popup->isVisible());
        QVERIFY(mouse.popup->isCollapsed);
        for (const RecentDocDialog *tile : qAsConst(mouse.tiles))
            QCOMPARE(tile->isVisible(), tile == mouse.tiles.at(1));
        QCOMPARE(mouse.browser.host.openedPaths(), QStringList());
    }

    void openingMayDeleteTheTile()
    {
        MousedPopup mouse(3);
        mouse.browser.host.onOpen = [&](const QString & /*path*/) { delete mouse.tiles.at(1); };
        QVERIFY(dragOutside(mouse, 1)); // without a tile the base class is not called
        QCOMPARE(mouse.browser.host.openedPaths(), QStringList(mouse.browser.path(0)));
    }
};

TEST_CLASS(tst_DragStart);
#include "tst_dragstart.moc"
