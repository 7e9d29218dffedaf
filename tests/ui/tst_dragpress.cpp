// SPDX-License-Identifier: MIT
#include "tests/support/MousedPopup.h"

#include <QLabel>

Q_DECLARE_METATYPE(Qt::MouseButton)

//! The press that a drag may follow: where it was, and which tile it took hold of.
class TestDragPress : public TestCase
{
    Q_OBJECT

private slots:
    void nothingIsHeldAtFirst();
    void pressOnATileTakesHoldOfIt();
    void pressOnAPartOfATileTakesHoldOfTheTile_data();
    void pressOnAPartOfATileTakesHoldOfTheTile();
    void anyButtonTakesHoldButTheLeftAloneSetsThePlace_data();
    void anyButtonTakesHoldButTheLeftAloneSetsThePlace();
    void placeIsRounded();
    void pressBesideTheTilesLetsGo_data();
    void pressBesideTheTilesLetsGo();
    void pressOnAnotherTileTakesThatOne();
    void onlyOneLevelOfParentIsLookedAt();
    void tilesAreKnownByTheirName_data();
    void tilesAreKnownByTheirName();
    void pressOnTheHeaderWithoutDocumentsIsHarmless();
    void realPressReachesThePopupThroughTheTile_data();
    void realPressReachesThePopupThroughTheTile();
};

void TestDragPress::nothingIsHeldAtFirst()
{
    const MousedPopup mouse(1);
    QVERIFY(!mouse.popup->dragDialog);
    QCOMPARE(mouse.popup->pressPoint, QPoint(0, 0));
    QVERIFY(!mouse.popup->isCollapsed);
}

void TestDragPress::pressOnATileTakesHoldOfIt()
{
    MousedPopup mouse(6);
    RecentDocDialog *tile = mouse.tiles.at(5); // in the second row
    const QPoint edge = tile->pos() + QPoint(3, 3);
    QCOMPARE(mouse.popup->childAt(edge), tile);
    QVERIFY(!mouse.press(edge)); // left to the base class
    QCOMPARE(mouse.popup->dragDialog.data(), tile);
    QCOMPARE(mouse.popup->pressPoint, edge);
}

void TestDragPress::pressOnAPartOfATileTakesHoldOfTheTile_data()
{
    QTest::addColumn<QString>("part");
    for (const char *part : {"title_label", "image_label", "Iconlabel", "pinButton", "folderButton"})
        QTest::newRow(part) << QString::fromLatin1(part);
}

void TestDragPress::pressOnAPartOfATileTakesHoldOfTheTile()
{
    QFETCH(QString, part);
    MousedPopup mouse(3);
    const auto *widget = mouse.tiles.at(1)->findChild<QWidget *>(part);
    QVERIFY(widget);
    const QPoint place = mouse.middleOf(widget);
    QCOMPARE(mouse.popup->childAt(place), widget);
    QVERIFY(!mouse.press(place));
    QCOMPARE(mouse.popup->dragDialog.data(), mouse.tiles.at(1));
    QCOMPARE(mouse.popup->pressPoint, place);
}

void TestDragPress::anyButtonTakesHoldButTheLeftAloneSetsThePlace_data()
{
    QTest::addColumn<Qt::MouseButton>("button");
    QTest::addColumn<bool>("setsPlace");
    QTest::newRow("left") << Qt::LeftButton << true;
    QTest::newRow("right") << Qt::RightButton << false;
    QTest::newRow("middle") << Qt::MiddleButton << false;
    QTest::newRow("back") << Qt::BackButton << false;
}

void TestDragPress::anyButtonTakesHoldButTheLeftAloneSetsThePlace()
{
    QFETCH(Qt::MouseButton, button);
    QFETCH(bool, setsPlace);
    MousedPopup mouse(3);
    const QPoint first = mouse.middleOf(mouse.tiles.at(0));
    const QPoint second = mouse.middleOf(mouse.tiles.at(2));
    mouse.press(first);
    QVERIFY(!mouse.press(second, button));
    QCOMPARE(mouse.popup->dragDialog.data(), mouse.tiles.at(2));
    QCOMPARE(mouse.popup->pressPoint, setsPlace ? second : first);
}

void TestDragPress::placeIsRounded()
{
    MousedPopup mouse(1);
    const QPoint corner = mouse.tiles.first()->pos();
    mouse.press(corner + QPointF(20.6, 30.4));
    QCOMPARE(mouse.popup->pressPoint, corner + QPoint(21, 30));
}

void TestDragPress::pressBesideTheTilesLetsGo_data()
{
    QTest::addColumn<QString>("place");
    QTest::addColumn<Qt::MouseButton>("button");
    for (const char *place : {"gap", "main_label_title", "main_label_path", "help_label"}) {
        QTest::addRow("%s, left button", place) << QString::fromLatin1(place) << Qt::LeftButton;
        QTest::addRow("%s, right button", place) << QString::fromLatin1(place) << Qt::RightButton;
    }
}

void TestDragPress::pressBesideTheTilesLetsGo()
{
    QFETCH(QString, place);
    QFETCH(Qt::MouseButton, button);
    MousedPopup mouse(3);
    const QPoint before = mouse.middleOf(mouse.tiles.at(1));
    mouse.press(before);
    QVERIFY(mouse.popup->dragDialog);

    const auto *widget = mouse.popup->findChild<QWidget *>(place);
    const QPoint position = widget ? mouse.middleOf(widget) : mouse.gap();
    QCOMPARE(mouse.popup->childAt(position), widget);
    QVERIFY(mouse.press(position, button)); // kept from the base class, which would leave it
    QVERIFY(!mouse.popup->dragDialog);
    QCOMPARE(mouse.popup->pressPoint, button == Qt::LeftButton ? position : before);
}

void TestDragPress::pressOnAnotherTileTakesThatOne()
{
    MousedPopup mouse(4);
    mouse.press(mouse.middleOf(mouse.tiles.at(0)));
    mouse.press(mouse.middleOf(mouse.tiles.at(3)));
    QCOMPARE(mouse.popup->dragDialog.data(), mouse.tiles.at(3));
}

void TestDragPress::onlyOneLevelOfParentIsLookedAt()
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

void TestDragPress::tilesAreKnownByTheirName_data()
{
    QTest::addColumn<QPoint>("inTile");
    QTest::newRow("on the tile itself") << QPoint(3, 3);
    QTest::newRow("on its picture") << QPoint(80, 80);
}

void TestDragPress::tilesAreKnownByTheirName()
{
    QFETCH(QPoint, inTile);
    MousedPopup mouse(2);
    mouse.press(mouse.middleOf(mouse.tiles.at(0)));
    mouse.tiles.at(1)->setObjectName(QStringLiteral("AnotherDialog"));
    QVERIFY(mouse.press(mouse.tiles.at(1)->pos() + inTile));
    QVERIFY(!mouse.popup->dragDialog);
}

void TestDragPress::pressOnTheHeaderWithoutDocumentsIsHarmless()
{
    for (const bool hasList : {true, false}) {
        Browser browser;
        browser.host.hasRecentFileList = hasList;
        RecentDocMainWindow popup(&browser.host.mainWindow());
        popup.show();
        QTest::mousePress(&popup, Qt::LeftButton, Qt::NoModifier, QPoint(40, 10));
        QVERIFY(!popup.dragDialog);
        QCOMPARE(popup.pressPoint, QPoint(40, 10));
        QTest::mouseRelease(&popup, Qt::LeftButton, Qt::NoModifier, QPoint(40, 10));
    }
}

void TestDragPress::realPressReachesThePopupThroughTheTile_data()
{
    QTest::addColumn<QString>("part");
    for (const char *part : {"", "title_label", "image_label", "Iconlabel"})
        QTest::newRow(*part ? part : "the tile") << QString::fromLatin1(part);
}

void TestDragPress::realPressReachesThePopupThroughTheTile()
{
    QFETCH(QString, part);
    MousedPopup mouse(3);
    RecentDocDialog *tile = mouse.tiles.at(2);
    QWidget *pressed = part.isEmpty() ? tile : tile->findChild<QWidget *>(part);
    const QPoint place = part.isEmpty() ? QPoint(3, 3) : pressed->rect().center();
    QTest::mousePress(pressed, Qt::LeftButton, Qt::NoModifier, place);
    QCOMPARE(mouse.popup->dragDialog.data(), tile);
    QCOMPARE(mouse.popup->pressPoint, pressed->mapTo(mouse.popup, place));
    QVERIFY(tile->isHighlighted());
    QTest::mouseRelease(pressed, Qt::LeftButton, Qt::NoModifier, place);
    QCOMPARE(mouse.popup->dragDialog.data(), tile); // the release changes nothing
}

QTEST_MAIN(TestDragPress)
#include "tst_dragpress.moc"
