// SPDX-License-Identifier: MIT
#include "tests/support/Browser.h"
#include "tests/support/FocusReasons.h"
#include "tests/support/TestCase.h"
#include "ui/RecentDocDialog.h"
#include "ui/RecentDocMainWindow.h"

#include <QGraphicsEffect>
#include <QLabel>
#include <QMouseEvent>
#include <QPointer>

using Indices = QList<int>;
Q_DECLARE_METATYPE(Qt::KeyboardModifiers)
Q_DECLARE_METATYPE(Qt::MouseButton)

namespace {

const QColor highlightColor(0, 0, 150, 100);
const QColor restingColor(248, 248, 248, 255);
constexpr int tileCount = 6;

//! The colour of a tile's effect; invalid when it has none.
QColor plateColor(const RecentDocDialog *tile)
{
    const QGraphicsEffect *effect = tile->graphicsEffect();
    return effect ? effect->property("color").value<QColor>() : QColor();
}

//! An open popup of six tiles, of which some are selected.
struct Selection
{
    explicit Selection(const Indices &selected) : browser(tileCount)
    {
        browser.createDocument();
        popup = browser.openPopup();
        tiles = browser.tiles();
        tiles.first()->clearHighlight();
        for (const int index : selected)
            tiles.at(index)->highlight();
        isActive = waitForActive(popup);
    }

    Indices selected() const
    {
        Indices indices;
        for (int i = 0; i < tiles.size(); ++i) {
            if (plateColor(tiles.at(i)) == highlightColor)
                indices.append(i);
        }
        return indices;
    }

    Browser browser;
    RecentDocMainWindow *popup;
    QList<RecentDocDialog *> tiles;
    bool isActive;
};

//! Counts the mouse presses that reach a widget, and keeps them from it.
class PressTaker : public QObject
{
public:
    explicit PressTaker(QObject *widget) { widget->installEventFilter(this); }
    int count = 0;

protected:
    bool eventFilter(QObject * /*widget*/, QEvent *event) override
    {
        if (event->type() != QEvent::MouseButtonPress)
            return false;
        ++count;
        return true;
    }
};

} // namespace

class TestTileSelection : public TestCase
{
    Q_OBJECT

private slots:
    void clicksSelect_data();
    void clicksSelect();
    void releaseObeysItsOwnModifiers();
    void releaseElsewhereKeepsTheSelection();
    void rightPressChangesNothing_data();
    void rightPressChangesNothing();
    void pressGivesTheFocusToThePopup_data();
    void pressGivesTheFocusToThePopup();
    void releaseGivesTheFocusToThePopupOnlyWhenItSelects();
    void pressReachesThePopup_data();
    void pressReachesThePopup();
    void pressOnALabelSelectsTheTile_data();
    void pressOnALabelSelectsTheTile();
    void selectingInstallsAnEffectOfItsOwn();
    void selectingAgainReplacesTheRecolouredEffect();
    void pressOnASelectedTileKeepsItsEffect();
    void fillingARange_data();
    void fillingARange();
};

void TestTileSelection::clicksSelect_data()
{
    QTest::addColumn<Indices>("before");
    QTest::addColumn<int>("clicked");
    QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
    QTest::addColumn<Indices>("pressed");
    QTest::addColumn<Indices>("released");

    const Qt::KeyboardModifiers none;
    const Qt::KeyboardModifiers control = Qt::ControlModifier;
    const Qt::KeyboardModifiers shift = Qt::ShiftModifier;
    const auto row = [](const char *name, const Indices &before, int clicked, Qt::KeyboardModifiers modifiers,
                        const Indices &pressed, const Indices &released) {
        QTest::newRow(name) << before << clicked << modifiers << pressed << released;
    };
    const auto same = [&row](const char *name, const Indices &before, int clicked,
                             Qt::KeyboardModifiers modifiers,
                             const Indices &after) { row(name, before, clicked, modifiers, after, after); };

    same("a click selects that tile alone", {0}, 2, none, {2});
    same("a click drops several", {0, 1, 4}, 2, none, {2});
    same("a click with nothing selected", {}, 2, none, {2});
    same("a click on the only selected tile", {2}, 2, none, {2});
    row("a click on one of several keeps them until the release", {0, 2, 3}, 2, none, {0, 2, 3}, {2});

    same("Control adds", {0}, 2, control, {0, 2});
    same("Control with nothing selected", {}, 2, control, {2});
    same("Control never removes", {0, 2}, 2, control, {0, 2});
    same("Control on the only selected tile", {2}, 2, control, {2});

    same("Shift forward", {1}, 4, shift, {1, 2, 3, 4});
    same("Shift backward", {4}, 1, shift, {1, 2, 3, 4});
    same("Shift on the neighbour", {1}, 2, shift, {1, 2});
    same("Shift to the ends", {5}, 0, shift, {0, 1, 2, 3, 4, 5});
    same("Shift between two fills the first gap alone", {0, 4}, 2, shift, {0, 1, 2, 4});
    same("Shift behind several fills the gap between them", {1, 3}, 5, shift, {1, 2, 3, 5});
    same("Shift before several fills up to the first", {3, 5}, 1, shift, {1, 2, 3, 5});
    same("Shift behind neighbours fills nothing", {0, 1}, 4, shift, {0, 1, 4});
    same("Shift with nothing selected runs to the end", {}, 3, shift, {3, 4, 5});
    same("Shift on the only selected tile runs to the end", {2}, 2, shift, {2, 3, 4, 5});
    same("Shift on one of several fills their first gap", {1, 3}, 3, shift, {1, 2, 3});

    for (const auto modifiers :
         {shift | control, Qt::KeyboardModifiers(Qt::AltModifier), Qt::KeyboardModifiers(Qt::MetaModifier),
          shift | Qt::AltModifier, control | Qt::AltModifier, control | Qt::KeypadModifier}) {
        const QByteArray name = QByteArray::number(static_cast<int>(modifiers), 16);
        same("modifiers 0x" + name + " click like none", {0, 1}, 3, modifiers, {3});
        row("modifiers 0x" + name + " release like none", {0, 2, 3}, 2, modifiers, {0, 2, 3}, {2});
    }
}

void TestTileSelection::clicksSelect()
{
    QFETCH(Indices, before);
    QFETCH(int, clicked);
    QFETCH(Qt::KeyboardModifiers, modifiers);
    QFETCH(Indices, pressed);
    QFETCH(Indices, released);
    const Selection selection(before);
    QCOMPARE(selection.selected(), before);
    QTest::mousePress(selection.tiles.at(clicked), Qt::LeftButton, modifiers);
    QCOMPARE(selection.selected(), pressed);
    QTest::mouseRelease(selection.tiles.at(clicked), Qt::LeftButton, modifiers);
    QCOMPARE(selection.selected(), released);
}

void TestTileSelection::releaseObeysItsOwnModifiers()
{
    const Selection selection({0});
    QTest::mousePress(selection.tiles.at(2), Qt::LeftButton, Qt::ControlModifier);
    QTest::mouseRelease(selection.tiles.at(2), Qt::LeftButton); // Control was let go first
    QCOMPARE(selection.selected(), Indices({2}));
}

void TestTileSelection::releaseElsewhereKeepsTheSelection()
{
    const Selection selection({0, 1});
    QTest::mouseRelease(selection.tiles.at(3), Qt::LeftButton);
    QCOMPARE(selection.selected(), Indices({0, 1}));
}

void TestTileSelection::rightPressChangesNothing_data()
{
    QTest::addColumn<Indices>("before");
    QTest::addColumn<int>("clicked");
    QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
    QTest::newRow("beside the selection") << Indices({0}) << 2 << Qt::KeyboardModifiers();
    QTest::newRow("on one of several") << Indices({0, 2}) << 2 << Qt::KeyboardModifiers();
    QTest::newRow("with Control") << Indices({0}) << 2 << Qt::KeyboardModifiers(Qt::ControlModifier);
    QTest::newRow("with Shift") << Indices({0}) << 2 << Qt::KeyboardModifiers(Qt::ShiftModifier);
}

void TestTileSelection::rightPressChangesNothing()
{
    QFETCH(Indices, before);
    QFETCH(int, clicked);
    QFETCH(Qt::KeyboardModifiers, modifiers);
    const Selection selection(before);
    QTest::mousePress(selection.tiles.at(clicked), Qt::RightButton, modifiers);
    QCOMPARE(selection.selected(), before);
    QVERIFY(selection.popup->isVisible());
    QCOMPARE(selection.popup->main_label_path->text(), selection.browser.path(0));
}

void TestTileSelection::pressGivesTheFocusToThePopup_data()
{
    QTest::addColumn<Qt::MouseButton>("button");
    QTest::addColumn<int>("clicked");
    QTest::newRow("left, selecting") << Qt::LeftButton << 2;
    QTest::newRow("left, on the selected tile") << Qt::LeftButton << 0;
    QTest::newRow("right") << Qt::RightButton << 2;
    QTest::newRow("middle") << Qt::MiddleButton << 2;
}

void TestTileSelection::pressGivesTheFocusToThePopup()
{
    QFETCH(Qt::MouseButton, button);
    QFETCH(int, clicked);
    const Selection selection({0});
    QVERIFY(selection.isActive);
    selection.tiles.at(1)->setFocus();
    QCOMPARE(QApplication::focusWidget(), selection.tiles.at(1));
    selection.tiles.at(clicked)->setFocusPolicy(Qt::StrongFocus); // as the pointer leaves it: Qt focuses it
    const FocusReasons focus(*selection.popup);
    QTest::mousePress(selection.tiles.at(clicked), button);
    QCOMPARE(QApplication::focusWidget(), selection.popup);
    QCOMPARE(focus.reasons, QList<Qt::FocusReason>{Qt::OtherFocusReason});
}

void TestTileSelection::releaseGivesTheFocusToThePopupOnlyWhenItSelects()
{
    const Selection selection({0, 2});
    QVERIFY(selection.isActive);
    selection.tiles.at(1)->setFocus();
    QTest::mouseRelease(selection.tiles.at(2), Qt::LeftButton, Qt::ControlModifier);
    QCOMPARE(QApplication::focusWidget(), selection.tiles.at(1));
    QTest::mouseRelease(selection.tiles.at(2), Qt::LeftButton);
    QCOMPARE(selection.selected(), Indices({2}));
    QCOMPARE(QApplication::focusWidget(), selection.popup);
}

void TestTileSelection::pressReachesThePopup_data()
{
    QTest::addColumn<Qt::MouseButton>("button");
    QTest::newRow("left") << Qt::LeftButton;
    QTest::newRow("right") << Qt::RightButton;
}

void TestTileSelection::pressReachesThePopup()
{
    QFETCH(Qt::MouseButton, button);
    const Selection selection({0});
    const PressTaker taker(selection.popup);
    QTest::mousePress(selection.tiles.at(2), button);
    QCOMPARE(taker.count, 1);
}

void TestTileSelection::pressOnALabelSelectsTheTile_data()
{
    QTest::addColumn<QString>("label");
    QTest::newRow("the name") << "title_label";
    QTest::newRow("the picture") << "image_label";
    QTest::newRow("the type icon") << "Iconlabel";
}

void TestTileSelection::pressOnALabelSelectsTheTile()
{
    QFETCH(QString, label);
    const Selection selection({0});
    QTest::mouseClick(selection.tiles.at(3)->findChild<QLabel *>(label), Qt::LeftButton);
    QCOMPARE(selection.selected(), Indices({3}));
}

void TestTileSelection::selectingInstallsAnEffectOfItsOwn()
{
    const Selection selection({0});
    const QPointer<QGraphicsEffect> former = selection.tiles.at(0)->graphicsEffect();
    QTest::mousePress(selection.tiles.at(2), Qt::LeftButton);
    const QGraphicsEffect *effect = selection.tiles.at(2)->graphicsEffect();
    QCOMPARE(effect->property("offset").toPointF(), QPointF(2.5, 2.5));
    QVERIFY(former); // stays, in the tile's resting colour
    QCOMPARE(selection.tiles.at(0)->graphicsEffect(), former.data());
    QCOMPARE(plateColor(selection.tiles.at(0)), restingColor);
    QVERIFY(!selection.tiles.at(1)->graphicsEffect());
}

void TestTileSelection::selectingAgainReplacesTheRecolouredEffect()
{
    const Selection selection({0});
    const QPointer<QGraphicsEffect> former = selection.tiles.at(0)->graphicsEffect();
    QTest::mousePress(selection.tiles.at(1), Qt::LeftButton);
    QTest::mousePress(selection.tiles.at(0), Qt::LeftButton);
    QVERIFY(!former);
    QCOMPARE(selection.selected(), Indices({0}));
}

void TestTileSelection::pressOnASelectedTileKeepsItsEffect()
{
    const Selection selection({0, 2});
    const QPointer<QGraphicsEffect> first = selection.tiles.at(0)->graphicsEffect();
    const QPointer<QGraphicsEffect> second = selection.tiles.at(2)->graphicsEffect();
    QTest::mousePress(selection.tiles.at(2), Qt::LeftButton);
    QVERIFY(first);
    QVERIFY(second);
    QTest::mouseRelease(selection.tiles.at(2), Qt::LeftButton);
    QVERIFY(first);
    QVERIFY(!second); // the release selects it anew
}

void TestTileSelection::fillingARange_data()
{
    QTest::addColumn<Indices>("before");
    QTest::addColumn<Indices>("after");
    QTest::newRow("nothing selected") << Indices() << Indices();
    QTest::newRow("one selected: to the end") << Indices({3}) << Indices({3, 4, 5});
    QTest::newRow("the last selected") << Indices({5}) << Indices({5});
    QTest::newRow("neighbours") << Indices({2, 3}) << Indices({2, 3});
    QTest::newRow("the first of two gaps") << Indices({0, 2, 5}) << Indices({0, 1, 2, 5});
    QTest::newRow("both ends") << Indices({0, 5}) << Indices({0, 1, 2, 3, 4, 5});
}

void TestTileSelection::fillingARange()
{
    QFETCH(Indices, before);
    QFETCH(Indices, after);
    const Selection selection(before);
    selection.tiles.at(4)->selectMultiDocByShiftAndMouseCombination(); // whichever tile is asked
    QCOMPARE(selection.selected(), after);
}

QTEST_MAIN(TestTileSelection)
#include "tst_tileselection.moc"
