// SPDX-License-Identifier: MIT
#include "tests/support/Keys.h"
#include "tests/support/OpenGrid.h"

#include <QSignalSpy>

Q_DECLARE_METATYPE(Qt::KeyboardModifiers)

//! What each key does in the popup, and what it leaves alone.
class tst_Keys : public TestCase
{
    Q_OBJECT

private slots:
    void keysThatKeepThePopupOpen_data();
    void keysThatKeepThePopupOpen();
    void enterOpensAndCloses_data();
    void enterOpensAndCloses();
    void escapeClosesOnly_data();
    void escapeClosesOnly();
    void realKeysReachThePopup();
    void keysOnATileReachThePopup();
    void movesPaintTheChangedTilesAlone_data();
    void movesPaintTheChangedTilesAlone();
};

void tst_Keys::keysThatKeepThePopupOpen_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
    QTest::addColumn<Indices>("after");
    QTest::addColumn<int>("shown");
    const auto row = [](int key, Qt::KeyboardModifiers modifiers, const Indices &after, int shown) {
        QTest::newRow(nameOf(key, modifiers)) << key << modifiers << after << shown;
    };
    // Ten tiles in rows of 4, 4 and 2; the sixth, in the middle, is highlighted.
    for (const auto modifiers : others) {
        row(Qt::Key_Right, modifiers, {6}, 6);
        row(Qt::Key_Left, modifiers, {4}, 4);
        row(Qt::Key_Up, modifiers, {1}, 1);
        row(Qt::Key_Down, modifiers, {9}, 9);
    }
    for (const auto modifiers : selecting) {
        row(Qt::Key_Right, modifiers, {5, 6}, 6);
        row(Qt::Key_Left, modifiers, {4, 5}, 4);
        row(Qt::Key_Up, modifiers, {5}, -1);
        row(Qt::Key_Down, modifiers, {5}, -1);
    }
    for (const auto modifiers : allModifiers) {
        row(Qt::Key_Tab, modifiers, {6}, 6);
        row(Qt::Key_Backtab, modifiers, {5}, -1);
    }
    for (const int key :
         {Qt::Key_Space, Qt::Key_Home, Qt::Key_End, Qt::Key_PageUp, Qt::Key_PageDown, Qt::Key_A, Qt::Key_F4,
          Qt::Key_Delete, Qt::Key_Backspace, Qt::Key_Shift, Qt::Key_Control, Qt::Key_Select})
        row(key, Qt::NoModifier, {5}, -1);
    row(Qt::Key_A, Qt::ControlModifier, {5}, -1);
}

void tst_Keys::keysThatKeepThePopupOpen()
{
    QFETCH(int, key);
    QFETCH(Qt::KeyboardModifiers, modifiers);
    QFETCH(Indices, after);
    QFETCH(int, shown);
    OpenGrid grid(10);
    grid.highlight({5});
    QVERIFY(grid.press(key, modifiers)); // taken, whether anything came of it or not
    QCOMPARE(grid.highlighted(), after);
    QCOMPARE(grid.line(), grid.lineOf(shown));
    drainEvents();
    QVERIFY(grid.popup && grid.popup->isVisible());
    QCOMPARE(grid.browser.host.openedPaths(), QStringList());
}

void tst_Keys::enterOpensAndCloses_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
    for (const int key : {Qt::Key_Return, Qt::Key_Enter}) {
        for (const auto modifiers : allModifiers)
            QTest::newRow(nameOf(key, modifiers)) << key << modifiers;
    }
}

void tst_Keys::enterOpensAndCloses()
{
    QFETCH(int, key);
    QFETCH(Qt::KeyboardModifiers, modifiers);
    OpenGrid grid(10);
    grid.highlight({5});
    const QSignalSpy finished(grid.popup, &QDialog::finished);
    const QString path = grid.tiles.at(5)->path();
    grid.press(key, modifiers);
    QCOMPARE(grid.browser.host.openedPaths(), QStringList(path));
    QCOMPARE(finished.count(), 1);
    QCOMPARE(finished.first().first().toInt(), 0);
    drainEvents();
    QVERIFY(!grid.popup);
}

void tst_Keys::escapeClosesOnly_data()
{
    QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
    for (const auto modifiers : allModifiers)
        QTest::newRow(nameOf(Qt::Key_Escape, modifiers)) << modifiers;
}

void tst_Keys::escapeClosesOnly()
{
    QFETCH(Qt::KeyboardModifiers, modifiers);
    OpenGrid grid(10);
    const QSignalSpy finished(grid.popup, &QDialog::finished);
    QVERIFY(grid.press(Qt::Key_Escape, modifiers));
    QCOMPARE(grid.highlighted(), Indices({0}));
    QVERIFY(!grid.popup->isVisible());
    QCOMPARE(finished.count(), 1); // the base dialog, which would end it again, heard nothing
    QCOMPARE(finished.first().first().toInt(), 0);
    drainEvents();
    QVERIFY(!grid.popup);
    QCOMPARE(grid.browser.host.openedPaths(), QStringList());
}

void tst_Keys::realKeysReachThePopup()
{
    OpenGrid grid(10);
    QVERIFY(waitForActive(grid.popup));
    grid.popup->setFocus(); // as the command that opens it does
    QWindow *window = grid.popup->windowHandle();
    QTest::keyClick(window, Qt::Key_Tab);
    QCOMPARE(grid.highlighted(), Indices({1}));
    QTest::keyClick(window, Qt::Key_Backtab, Qt::ShiftModifier);
    QCOMPARE(grid.highlighted(), Indices({1}));
    QTest::keyClick(window, Qt::Key_Tab, Qt::ControlModifier);
    QCOMPARE(grid.highlighted(), Indices({2}));
    QTest::keyClick(window, Qt::Key_Right, Qt::ShiftModifier);
    QCOMPARE(grid.highlighted(), Indices({2, 3}));
    QTest::keyClick(window, Qt::Key_Right, Qt::ShiftModifier | Qt::KeypadModifier);
    QCOMPARE(grid.highlighted(), Indices({4}));
    QTest::keyClick(window, Qt::Key_Down);
    QCOMPARE(grid.highlighted(), Indices({8}));
}

void tst_Keys::keysOnATileReachThePopup()
{
    OpenGrid grid(10);
    for (RecentDocDialog *tile : qAsConst(grid.tiles)) {
        grid.highlight({5});
        QVERIFY(pressKey(tile, Qt::Key_Tab));
        QCOMPARE(grid.highlighted(), Indices({6}));
        pressKey(tile, Qt::Key_Right, Qt::ControlModifier);
        QCOMPARE(grid.highlighted(), Indices({6, 7}));
        pressKey(tile, Qt::Key_Backtab, Qt::ShiftModifier);
        QCOMPARE(grid.highlighted(), Indices({6, 7}));
    }
    pressKey(grid.tiles.at(3), Qt::Key_Enter, Qt::KeypadModifier);
    QCOMPARE(grid.browser.host.openedPaths(), QStringList({grid.browser.path(6), grid.browser.path(7)}));
}

void tst_Keys::movesPaintTheChangedTilesAlone_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
    QTest::addColumn<Indices>("before");
    QTest::addColumn<Indices>("painted");
    const Qt::KeyboardModifiers none;
    const Qt::KeyboardModifiers shift = Qt::ShiftModifier;
    QTest::newRow("Right") << int(Qt::Key_Right) << none << Indices({5}) << Indices({5, 6});
    QTest::newRow("Left") << int(Qt::Key_Left) << none << Indices({5}) << Indices({4, 5});
    QTest::newRow("Right on a run") << int(Qt::Key_Right) << none << Indices({1, 2}) << Indices({1, 2, 3});
    QTest::newRow("Down") << int(Qt::Key_Down) << none << Indices({5}) << Indices({5, 9});
    QTest::newRow("Up") << int(Qt::Key_Up) << none << Indices({5}) << Indices({1, 5});
    QTest::newRow("growing forward") << int(Qt::Key_Right) << shift << Indices({5}) << Indices({6});
    QTest::newRow("growing back") << int(Qt::Key_Left) << shift << Indices({5}) << Indices({4});
    QTest::newRow("shrinking at the start") << int(Qt::Key_Right) << shift << Indices({5, 6}) << Indices({5});
    QTest::newRow("shrinking at the end") << int(Qt::Key_Left) << shift << Indices({5, 6}) << Indices({6});
}

void tst_Keys::movesPaintTheChangedTilesAlone()
{
    QFETCH(int, key);
    QFETCH(Qt::KeyboardModifiers, modifiers);
    QFETCH(Indices, before);
    QFETCH(Indices, painted);

    //! Notes who is painted.
    class Watch : public QObject
    {
    public:
        bool eventFilter(QObject *watched, QEvent *event) override
        {
            if (event->type() == QEvent::Paint)
                seen.insert(watched);
            return false;
        }
        QSet<QObject *> seen;
    };
    OpenGrid grid(10);
    QVERIFY(waitForExposed(grid.popup));
    grid.highlight(before);
    drainEvents();
    Watch watch;
    for (RecentDocDialog *tile : qAsConst(grid.tiles))
        tile->installEventFilter(&watch);
    grid.press(key, modifiers);
    drainEvents();
    Indices seen;
    for (int i = 0; i < grid.tiles.size(); ++i) {
        if (watch.seen.contains(grid.tiles.at(i)))
            seen.append(i);
    }
    QCOMPARE(seen, painted);
}

QTEST_MAIN(tst_Keys)
#include "tst_keys.moc"
