// SPDX-License-Identifier: MIT
#include "tests/support/FocusReasons.h"
#include "tests/ui/OpenGrid.h"

//! What clicks on tiles do to the highlight, by examples (tst_highlightproperties tests the rules), and to
//! the focus.
class tst_TileSelection : public TestCase
{
    Q_OBJECT

private slots:
    void clicksSelect_data()
    {
        QTest::addColumn<Indices>("before");
        QTest::addColumn<int>("clicked");
        QTest::addColumn<int>("modifiers");
        QTest::addColumn<Indices>("pressed");
        QTest::addColumn<Indices>("released");
        const auto row = [](const char *name, const Indices &before, int clicked,
                            Qt::KeyboardModifiers modifiers, const Indices &pressed,
                            const Indices &released) {
            QTest::newRow(name) << before << clicked << int(modifiers) << pressed << released;
        };
        constexpr Qt::KeyboardModifiers none = Qt::NoModifier;
        constexpr Qt::KeyboardModifiers control = Qt::ControlModifier;
        constexpr Qt::KeyboardModifiers shift = Qt::ShiftModifier;
        row("a click drops several", {0, 1, 4}, 2, none, {2}, {2});
        row("a click on one of several keeps them until the release", {0, 2, 3}, 2, none, {0, 2, 3}, {2});
        row("Control never removes", {0, 2}, 2, control, {0, 2}, {0, 2});
        row("Shift backward", {4}, 1, shift, {1, 2, 3, 4}, {1, 2, 3, 4});
        row("Shift between two fills the first gap alone", {0, 4}, 2, shift, {0, 1, 2, 4}, {0, 1, 2, 4});
        row("Shift on the only selected tile runs to the end", {2}, 2, shift, {2, 3, 4, 5}, {2, 3, 4, 5});
        // Not among the modifiers of the other test.
        for (const Qt::KeyboardModifiers modifiers :
             {Qt::KeyboardModifiers(Qt::MetaModifier), Qt::ShiftModifier | Qt::AltModifier,
              Qt::ControlModifier | Qt::AltModifier, Qt::ControlModifier | Qt::KeypadModifier}) {
            const QByteArray name = "modifiers 0x" + QByteArray::number(int(modifiers), 16);
            row(name + " click like none", {0, 1}, 3, modifiers, {3}, {3});
            row(name + " release like none", {0, 2, 3}, 2, modifiers, {0, 2, 3}, {2});
        }
    }

    void clicksSelect()
    {
        QFETCH(Indices, before);
        QFETCH(int, clicked);
        QFETCH(int, modifiers);
        QFETCH(Indices, pressed);
        QFETCH(Indices, released);
        OpenGrid grid(6);
        grid.highlight(before);
        QTest::mousePress(grid.tiles.at(clicked), Qt::LeftButton, Qt::KeyboardModifiers(modifiers));
        QCOMPARE(grid.highlighted(), pressed);
        QTest::mouseRelease(grid.tiles.at(clicked), Qt::LeftButton, Qt::KeyboardModifiers(modifiers));
        QCOMPARE(grid.highlighted(), released);
    }

    void pressGivesTheFocusToThePopup_data()
    {
        QTest::addColumn<int>("button");
        QTest::addColumn<int>("clicked");
        QTest::newRow("left, selecting") << int(Qt::LeftButton) << 2;
        QTest::newRow("left, on the selected tile") << int(Qt::LeftButton) << 0;
        QTest::newRow("right") << int(Qt::RightButton) << 2;
        QTest::newRow("middle") << int(Qt::MiddleButton) << 2;
    }

    void pressGivesTheFocusToThePopup()
    {
        QFETCH(int, button);
        QFETCH(int, clicked);
        const OpenGrid grid(6);
        QVERIFY(waitForActive(grid.popup));
        grid.tiles.at(1)->setFocus();
        QCOMPARE(QApplication::focusWidget(), grid.tiles.at(1));
        grid.tiles.at(clicked)->setFocusPolicy(Qt::StrongFocus); // as after the pointer was on it
        const FocusReasons focus(*grid.popup);
        QTest::mousePress(grid.tiles.at(clicked), Qt::MouseButton(button));
        QCOMPARE(QApplication::focusWidget(), grid.popup.data());
        QCOMPARE(focus.reasons, QList<Qt::FocusReason>{Qt::OtherFocusReason});
        QCOMPARE(grid.popup->dragDialog.data(), grid.tiles.at(clicked)); // the popup receives the press too
    }

    void releaseGivesTheFocusToThePopupOnlyWhenItSelects()
    {
        OpenGrid grid(6);
        grid.highlight({0, 2});
        QVERIFY(waitForActive(grid.popup));
        grid.tiles.at(1)->setFocus();
        QTest::mouseRelease(grid.tiles.at(2), Qt::LeftButton, Qt::ControlModifier);
        QCOMPARE(QApplication::focusWidget(), grid.tiles.at(1));
        QTest::mouseRelease(grid.tiles.at(2), Qt::LeftButton);
        QCOMPARE(grid.highlighted(), Indices({2}));
        QCOMPARE(QApplication::focusWidget(), grid.popup.data());
    }

    void pressOnALabelSelectsTheTile()
    {
        for (const char *label : {"title_label", "image_label", "Iconlabel"}) {
            const OpenGrid grid(6);
            QTest::mouseClick(grid.tiles.at(3)->findChild<QLabel *>(QLatin1String(label)), Qt::LeftButton);
            QCOMPARE(grid.highlighted(), Indices({3}));
        }
    }

    void selectingInstallsAnEffectAndDeselectingRecoloursIt()
    {
        const OpenGrid grid(6);
        const QPointer<QGraphicsEffect> first = grid.tiles.at(0)->graphicsEffect();
        QTest::mousePress(grid.tiles.at(2), Qt::LeftButton);
        const QPointer<QGraphicsEffect> second = grid.tiles.at(2)->graphicsEffect();
        QCOMPARE(second->property("offset").toPointF(), QPointF(2.5, 2.5));
        QVERIFY(!grid.tiles.at(1)->graphicsEffect());
        QCOMPARE(grid.tiles.at(0)->graphicsEffect(), first.data()); // is kept, in the tile's resting colour
        QCOMPARE(first->property("color").value<QColor>(), QColor(248, 248, 248, 255));

        QTest::mousePress(grid.tiles.at(0), Qt::LeftButton, Qt::ControlModifier);
        QVERIFY(!first); // replaced
        QTest::mousePress(grid.tiles.at(2), Qt::LeftButton);
        QVERIFY(second); // a press on a selected tile leaves it alone,
        QTest::mouseRelease(grid.tiles.at(2), Qt::LeftButton);
        QVERIFY(!second); // and the release selects it again
        QCOMPARE(grid.highlighted(), Indices({2}));
    }
};

TEST_CLASS(tst_TileSelection);
#include "tst_tileselection.moc"
