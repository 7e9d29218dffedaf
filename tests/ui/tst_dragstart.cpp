// SPDX-License-Identifier: MIT
#include "module/RecentDocumentBrowser.h"
#include "tests/support/MousedPopup.h"
#include "tests/support/TileLayout.h"

#include <QApplication>
#include <QChildEvent>
#include <QDrag>
#include <QEventLoop>
#include <QMimeData>
#include <QTimer>
#include <QUrl>

Q_DECLARE_METATYPE(Qt::MouseButtons)

namespace {

const QString tileFormat = QStringLiteral("application/corvel.DR.Layout");

//! The drags that are started from a popup's tiles. Without a display they are over at once, and ended by
//! nobody.
class StartedDrags : public QObject
{
public:
    explicit StartedDrags(const QList<RecentDocDialog *> &tiles)
    {
        for (RecentDocDialog *tile : tiles)
            tile->installEventFilter(this);
    }

    //! All that still exist.
    QList<QDrag *> drags() const
    {
        QList<QDrag *> found;
        for (const QPointer<QObject> &child : m_children) {
            if (auto *drag = qobject_cast<QDrag *>(child))
                found.append(drag);
        }
        return found;
    }
    //! The tile that the only drag was made a child of.
    QObject *firstParent() const { return m_parent; }

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

//! Sets the distance that starts a drag, and puts the former one back.
class StartDistance
{
public:
    explicit StartDistance(int pixels) : m_before(QApplication::startDragDistance())
    {
        QApplication::setStartDragDistance(pixels);
    }
    ~StartDistance() { QApplication::setStartDragDistance(m_before); }
    Q_DISABLE_COPY(StartDistance)

private:
    int m_before;
};

} // namespace

//! The move that starts a drag, what the drag carries, and what follows when it is over.
class TestDragStart : public TestCase
{
    Q_OBJECT

private slots:
    void dragStartsAtTheDistance_data();
    void dragStartsAtTheDistance();
    void onlyAHeldTileAndTheLeftButtonDrag_data();
    void onlyAHeldTileAndTheLeftButtonDrag();
    void distanceCountsFromTheLastLeftPress();
    void dragCarriesThePictureAndTheGrabOffset();
    void dragCarriesExactlyOneUrl_data();
    void dragCarriesExactlyOneUrl();
    void aTileWithoutPathCarriesTheBareScheme();
    void dragIsAChildOfTheTileAndThenOfTheApplication();
    void onlyCopyingIsOffered();
    void dragThatEndsInsideOpensNothingAndShowsTheTile();
    void dragThatEndsOutsideOpensWhatIsHighlighted();
    void dragInAPopupThatOutlivesANewerOneOpensWhatIsHighlightedThere();
    void nothingHighlightedLeavesTheStripWithTheDraggedTile();
    void openingMayDeleteThePopup();
    void openingMayRunEvents();
    void openingMayDeleteTheTile();
};

void TestDragStart::dragStartsAtTheDistance_data()
{
    QTest::addColumn<int>("distance");
    QTest::addColumn<QPoint>("moved");
    QTest::addColumn<bool>("starts");
    QTest::newRow("no move at all") << 10 << QPoint(0, 0) << false;
    QTest::newRow("one less to the right") << 10 << QPoint(9, 0) << false;
    QTest::newRow("one less upwards") << 10 << QPoint(0, -9) << false;
    QTest::newRow("one less in all") << 10 << QPoint(-4, 5) << false;
    QTest::newRow("equal to the left") << 10 << QPoint(-10, 0) << true;
    QTest::newRow("equal downwards") << 10 << QPoint(0, 10) << true;
    QTest::newRow("equal in all") << 10 << QPoint(5, -5) << true;
    QTest::newRow("no longer than it as the crow flies, but longer in all") << 10 << QPoint(7, 7) << true;
    QTest::newRow("far") << 10 << QPoint(60, 40) << true;
    QTest::newRow("one less of a longer one") << 25 << QPoint(12, 12) << false;
    QTest::newRow("equal to a longer one") << 25 << QPoint(12, 13) << true;
    QTest::newRow("one less of a shorter one") << 4 << QPoint(0, 3) << false;
    QTest::newRow("equal to a shorter one") << 4 << QPoint(2, 2) << true;
}

void TestDragStart::dragStartsAtTheDistance()
{
    QFETCH(int, distance);
    QFETCH(QPoint, moved);
    QFETCH(bool, starts);
    const StartDistance set(distance);
    MousedPopup mouse(3);
    const StartedDrags started(mouse.tiles);
    const QPoint place = mouse.middleOf(mouse.tiles.at(1));
    mouse.press(place);
    QCOMPARE(mouse.move(place + moved), !starts); // the base class, which leaves the event, comes last
    QCOMPARE(started.drags().size(), starts ? 1 : 0);
}

void TestDragStart::onlyAHeldTileAndTheLeftButtonDrag_data()
{
    QTest::addColumn<bool>("holds");
    QTest::addColumn<Qt::MouseButtons>("buttons");
    QTest::addColumn<bool>("starts");
    const auto row = [](const char *name, bool holds, Qt::MouseButtons buttons, bool starts) {
        QTest::newRow(name) << holds << buttons << starts;
    };
    row("left button", true, Qt::LeftButton, true);
    row("left and others", true, Qt::LeftButton | Qt::RightButton | Qt::MiddleButton, true);
    row("right button", true, Qt::RightButton, false);
    row("middle button", true, Qt::MiddleButton, false);
    row("no button", true, Qt::NoButton, false);
    row("left button, no tile", false, Qt::LeftButton, false);
}

void TestDragStart::onlyAHeldTileAndTheLeftButtonDrag()
{
    QFETCH(bool, holds);
    QFETCH(Qt::MouseButtons, buttons);
    QFETCH(bool, starts);
    MousedPopup mouse(3);
    const StartedDrags started(mouse.tiles);
    mouse.press(holds ? mouse.middleOf(mouse.tiles.at(1)) : mouse.gap());
    QCOMPARE(mouse.move(mouse.popup->pressPoint + QPoint(40, 30), buttons), !starts);
    QCOMPARE(started.drags().size(), starts ? 1 : 0);
}

void TestDragStart::distanceCountsFromTheLastLeftPress()
{
    MousedPopup mouse(4);
    const StartedDrags started(mouse.tiles);
    const QPoint first = mouse.middleOf(mouse.tiles.at(0));
    const QPoint last = mouse.middleOf(mouse.tiles.at(3));
    mouse.press(first);
    mouse.press(last, Qt::RightButton); // takes hold, but leaves the place
    mouse.move(first + QPoint(2, 2));
    QVERIFY(started.drags().isEmpty());
    mouse.move(last);
    QCOMPARE(started.drags().size(), 1);
    QCOMPARE(started.firstParent(), mouse.tiles.at(3));
}

void TestDragStart::dragCarriesThePictureAndTheGrabOffset()
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
    const TileLayout layout(drag->mimeData()->data(tileFormat));
    QVERIFY(layout.isWhole());
    QCOMPARE(layout.picture().size(), QSize(161, 131));
    QCOMPARE(layout.picture(), picture.convertToFormat(QImage::Format_RGB32));
    QCOMPARE(layout.grabOffset(), grabOffset);
}

void TestDragStart::dragCarriesExactlyOneUrl_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("a plain name") << QStringLiteral("gear.dwg");
    QTest::newRow("blanks") << QStringLiteral("the new gear.dwg");
    QTest::newRow("umlauts") << QString::fromUtf8("Ölpumpe.dwg");
    QTest::newRow("per cent") << QStringLiteral("100% done.dwg");
    QTest::newRow("what looks encoded") << QStringLiteral("a%20b.dwg");
    QTest::newRow("a hash sign") << QStringLiteral("gear #3.dwg");
    QTest::newRow("a question mark") << QStringLiteral("gear?.dwg");
    QTest::newRow("a line break") << QStringLiteral("gear\n3.dwg");
    QTest::newRow("%n and its like") << QStringLiteral("%n %s %1.dwg");
    QTest::newRow("quotes") << QStringLiteral("\"gear\" 'b'.dwg");
    QTest::newRow("a leading dash") << QStringLiteral("-gear.dwg");
    QTest::newRow("only dots") << QStringLiteral("...");
    QTest::newRow("right to left") << QStringLiteral("\u05d0\u202e.dwg");
    QTest::newRow("nearly as long as a path can be")
        << (QString(200, QLatin1Char('n')) + QLatin1Char('/')).repeated(19) + QStringLiteral("gear.dwg");
    QTest::newRow("bytes that are no UTF-8") << QStringLiteral("gear ") + QChar(0xdcff) + QChar(0xdc80);
}

void TestDragStart::dragCarriesExactlyOneUrl()
{
    QFETCH(QString, name);
    MousedPopup mouse(QStringList{QStringLiteral("other.dwg"), name});
    const StartedDrags started(mouse.tiles);
    mouse.press(mouse.middleOf(mouse.tiles.at(1)));
    mouse.move(mouse.popup->pressPoint + QPoint(40, 0));
    QCOMPARE(started.drags().size(), 1);
    const QMimeData *carried = started.drags().constFirst()->mimeData();
    const QString text = QStringLiteral("file:///") + mouse.browser.path(1);
    QVERIFY(text.startsWith(QLatin1String("file:////")));
    QCOMPARE(carried->urls(), QList<QUrl>({QUrl(text, QUrl::TolerantMode)}));
    QVERIFY(carried->urls().constFirst().isValid()); // which a stricter reading would not make it
    QStringList formats = carried->formats();
    formats.sort();
    QCOMPARE(formats, QStringList({tileFormat, QStringLiteral("text/uri-list")}));
}

void TestDragStart::aTileWithoutPathCarriesTheBareScheme()
{
    MousedPopup mouse(2);
    QImage picture(8, 8, QImage::Format_RGB32);
    picture.fill(Qt::white);
    auto *nameless = new RecentDocDialog(mouse.popup, Browser::button(mouse.tiles.first(), "pinButton"),
                                         QString(), picture, false);
    nameless->move(mouse.tiles.at(1)->geometry().topRight() + QPoint(20, 0));
    nameless->show();
    const StartedDrags started({nameless});
    mouse.press(mouse.middleOf(nameless));
    mouse.move(mouse.popup->pressPoint + QPoint(40, 0));
    QCOMPARE(started.drags().size(), 1);
    QCOMPARE(started.drags().constFirst()->mimeData()->urls(),
             QList<QUrl>({QUrl(QStringLiteral("file:///"), QUrl::TolerantMode)}));
}

void TestDragStart::dragIsAChildOfTheTileAndThenOfTheApplication()
{
    MousedPopup mouse(2);
    const StartedDrags started(mouse.tiles);
    mouse.press(mouse.middleOf(mouse.tiles.at(1)));
    mouse.move(mouse.popup->pressPoint + QPoint(40, 0));
    QCOMPARE(started.drags().size(), 1);
    QCOMPARE(started.firstParent(), mouse.tiles.at(1));
    QCOMPARE(started.drags().constFirst()->parent(), qApp); // fetched from when the tile is gone
    drainEvents();
    QVERIFY(started.drags().isEmpty()); // nobody has taken it
}

void TestDragStart::onlyCopyingIsOffered()
{
    MousedPopup mouse(2);
    const StartedDrags started(mouse.tiles);
    mouse.press(mouse.middleOf(mouse.tiles.at(1)));
    mouse.move(mouse.popup->pressPoint + QPoint(40, 0));
    QCOMPARE(started.drags().size(), 1);
    QCOMPARE(started.drags().constFirst()->supportedActions(), Qt::DropActions(Qt::CopyAction));
}

void TestDragStart::dragThatEndsInsideOpensNothingAndShowsTheTile()
{
    MousedPopup mouse(3);
    mouse.press(mouse.middleOf(mouse.tiles.at(1)));
    mouse.tiles.at(1)->hide(); // as the drag's first move in the popup does
    QVERIFY(!mouse.move(mouse.popup->pressPoint + QPoint(40, 0)));
    drainEvents();
    QVERIFY(mouse.popup && mouse.popup->isVisible());
    QVERIFY(mouse.tiles.at(1)->isVisible());
    QCOMPARE(mouse.popup->dragDialog.data(), mouse.tiles.at(1)); // until the next press or loss of the focus
    QCOMPARE(mouse.browser.host.openedPaths(), QStringList());
}

void TestDragStart::dragThatEndsOutsideOpensWhatIsHighlighted()
{
    MousedPopup mouse(5);
    const QSignalSpy finished(mouse.popup, &QDialog::finished);
    for (const int index : {4, 2}) // the first is highlighted already
        mouse.tiles.at(index)->highlight();
    mouse.press(mouse.middleOf(mouse.tiles.at(2)));
    mouse.popup->isCollapsed = true;
    mouse.move(mouse.popup->pressPoint + QPoint(40, 0));
    QCOMPARE(mouse.browser.host.openedPaths(),
             QStringList({mouse.browser.path(0), mouse.browser.path(2), mouse.browser.path(4)}));
    QCOMPARE(finished.count(), 1);
    QCOMPARE(finished.first().first().toInt(), int(QDialog::Rejected));
    drainEvents();
    QVERIFY(!mouse.popup);
}

void TestDragStart::dragInAPopupThatOutlivesANewerOneOpensWhatIsHighlightedThere()
{
    MousedPopup mouse(3);
    mouse.tiles.at(1)->highlight();
    QCursor::setPos(mouse.popup->geometry().center()); // else losing the focus would close it
    mouse.browser.openPopup();
    mouse.press(mouse.middleOf(mouse.tiles.at(2)));
    mouse.popup->isCollapsed = true;
    delete RecentDocumentBrowser::recentDocDialogList.first()->parentWidget(); // during the drag, say
    mouse.move(mouse.popup->pressPoint + QPoint(40, 0));
    QCOMPARE(mouse.browser.host.openedPaths(), QStringList({mouse.browser.path(0), mouse.browser.path(1)}));
}

void TestDragStart::nothingHighlightedLeavesTheStripWithTheDraggedTile()
{
    MousedPopup mouse(3);
    mouse.tiles.first()->clearHighlight();
    mouse.press(mouse.middleOf(mouse.tiles.at(1)));
    for (RecentDocDialog *tile : qAsConst(mouse.tiles))
        tile->hide();
    mouse.popup->isCollapsed = true;
    QVERIFY(!mouse.move(mouse.popup->pressPoint + QPoint(40, 0)));
    drainEvents();
    QVERIFY(mouse.popup && mouse.popup->isVisible());
    QVERIFY(mouse.popup->isCollapsed);
    for (const RecentDocDialog *tile : qAsConst(mouse.tiles))
        QCOMPARE(tile->isVisible(), tile == mouse.tiles.at(1));
    QCOMPARE(mouse.browser.host.openedPaths(), QStringList());
}

void TestDragStart::openingMayDeleteThePopup()
{
    MousedPopup mouse(3);
    mouse.tiles.at(2)->highlight();
    mouse.browser.host.onOpen = [&](const QString & /*path*/) { delete mouse.popup; };
    mouse.press(mouse.middleOf(mouse.tiles.at(1)));
    mouse.popup->isCollapsed = true;
    QMouseEvent event(QEvent::MouseMove, mouse.popup->pressPoint + QPoint(40, 0), Qt::NoButton,
                      Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(mouse.popup, &event);
    QVERIFY(!mouse.popup);
    QCOMPARE(mouse.browser.host.openedPaths(),
             QStringList({mouse.browser.path(0), mouse.browser.path(2)})); // the second one all the same
}

void TestDragStart::openingMayRunEvents()
{
    MousedPopup mouse(3);
    bool wasDeleted = false;
    mouse.browser.host.onOpen = [&](const QString & /*path*/) {
        QEventLoop loop; // a progress dialog, say
        QTimer::singleShot(0, &loop, &QEventLoop::quit);
        loop.exec();
        drainEvents();
        wasDeleted = !mouse.popup;
    };
    mouse.press(mouse.middleOf(mouse.tiles.at(1)));
    mouse.popup->isCollapsed = true;
    mouse.move(mouse.popup->pressPoint + QPoint(40, 0));
    QVERIFY(wasDeleted); // while it was still at work
    QCOMPARE(mouse.browser.host.openedPaths(), QStringList(mouse.browser.path(0)));
}

void TestDragStart::openingMayDeleteTheTile()
{
    MousedPopup mouse(3);
    mouse.browser.host.onOpen = [&](const QString & /*path*/) { delete mouse.tiles.at(1); };
    mouse.press(mouse.middleOf(mouse.tiles.at(1)));
    mouse.popup->isCollapsed = true;
    QVERIFY(
        mouse.move(mouse.popup->pressPoint + QPoint(40, 0))); // without a tile the base class gets nothing
    QCOMPARE(mouse.browser.host.openedPaths(), QStringList(mouse.browser.path(0)));
}

QTEST_MAIN(TestDragStart)
#include "tst_dragstart.moc"
