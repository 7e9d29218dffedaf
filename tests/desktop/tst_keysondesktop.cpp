// SPDX-License-Identifier: MIT
#include "tests/support/TestCase.h"
#include "tests/support/Typing.h"
#include "tests/ui/HighlightModel.h"

//! The popup's keys under a window manager, typed by hand.
class tst_KeysOnDesktop : public TestCase
{
    Q_OBJECT

private slots:
    void movesThroughTheWholeGrid_data();
    void movesThroughTheWholeGrid();
    void keyByKey_data();
    void keyByKey();
};

void tst_KeysOnDesktop::movesThroughTheWholeGrid_data()
{
    QTest::addColumn<int>("tiles");
    QTest::addColumn<int>("columns");
    for (const int tiles : {1, 4, 10, 23}) {
        for (const int columns : {4, 2})
            QTest::addRow("%d tiles in %d columns", tiles, columns) << tiles << columns;
    }
}

void tst_KeysOnDesktop::movesThroughTheWholeGrid()
{
    QFETCH(int, tiles);
    QFETCH(int, columns);
    Typing typing(tiles, columns);
    QCOMPARE(typing.tiles.size(), tiles);
    QCOMPARE(typing.popup->width(), columns * 181);
    QStringList keys;
    QStringList expected;
    HighlightModel model(tiles, columns);
    const auto go = [&](const char *name, int key) {
        keys.append(QLatin1String(name));
        model.key(key);
        expected.append(Typing::at(model.pathLine()));
    };
    for (int i = 0; i < tiles; ++i)
        go("Right", Qt::Key_Right);
    for (int i = 0; i < tiles; ++i)
        go("Left", Qt::Key_Left);
    for (int i = 0; i < tiles; ++i)
        go("Tab", Qt::Key_Right);
    QCOMPARE(model.pathLine(), 0);
    for (int column = 0; column < qMin(columns, tiles); ++column) {
        QCOMPARE(model.pathLine(), column);
        const int rows = (tiles - column + columns - 1) / columns;
        for (int row = 0; row < rows; ++row)
            go("Down", Qt::Key_Down);
        for (int row = 0; row < rows; ++row)
            go("Up", Qt::Key_Up);
        go(column % 2 ? "KP_Right" : "Right", Qt::Key_Right);
    }
    QCOMPARE(typing.after(keys), expected);
    Hand::keepScreenshot(QStringLiteral("keys-%1-tiles-%2-columns").arg(tiles).arg(columns));
    QVERIFY(typing.popup && typing.popup->isVisible());
    QCOMPARE(typing.browser.log().filter(QStringLiteral("open ")), QStringList());
}

void tst_KeysOnDesktop::keyByKey_data()
{
    QTest::addColumn<int>("tiles");
    QTest::addColumn<int>("columns");
    QTest::addColumn<QStringList>("keys");
    QTest::addColumn<QStringList>("expected");
    const auto row = [](const char *name, int tiles, int columns,
                        const QList<QPair<QString, QString>> &steps) {
        QStringList keys;
        QStringList expected;
        for (const auto &step : steps) {
            keys.append(step.first);
            expected.append(step.second);
        }
        QTest::addRow("%d tiles in %d columns: %s", tiles, columns, name)
            << tiles << columns << keys << expected;
    };
    for (const int columns : {4, 2}) {
        row("nowhere to go", 1, columns,
            {{"Right", "0: 0"},
             {"Left", "0: 0"},
             {"Up", "0: 0"},
             {"Down", "0: 0"},
             {"Tab", "0: 0"},
             {"shift+Tab", "0: 0"},
             {"shift+Right", "0: 0"},
             {"ctrl+Right", "0: 0"},
             {"shift+Left", "0: 0"},
             {"ctrl+Left", "0: 0"}});
        row("runs", 4, columns,
            {{"shift+Right", "0 1: 1"},
             {"shift+Right", "0 1 2: 2"},
             {"shift+Left", "0 1: 2"},
             {"shift+Right", "1: 2"},
             {"ctrl+Right", "1 2: 2"},
             {"ctrl+Right", "1 2 3: 3"},
             {"ctrl+Right", "1 2 3: 3"},
             {"Right", "0: 0"},
             {"shift+Left", "0: 0"},
             {"Left", "3: 3"},
             {"ctrl+Left", "2 3: 2"},
             {"ctrl+Left", "1 2 3: 1"},
             {"shift+Left", "0 1 2 3: 0"},
             {"shift+Left", "0 1 2 3: 0"},
             {"Left", "3: 3"}});
        row("runs over the ends of rows", 23, columns,
            {{"Left", "22: 22"},
             {"ctrl+Right", "22: 22"},
             {"ctrl+Left", "21 22: 21"},
             {"ctrl+Left", "20 21 22: 20"},
             {"ctrl+Left", "19 20 21 22: 19"},
             {"ctrl+Right", "20 21 22: 19"},
             {"ctrl+Left", "20 21: 19"},
             {"Tab", "22: 22"},
             {"Tab", "0: 0"}});
    }
    row("one row", 4, 4, {{"Right", "1: 1"}, {"Down", "1: 1"}, {"Up", "1: 1"}, {"Tab", "2: 2"}});
    row("two rows", 4, 2,
        {{"Down", "2: 2"}, {"Down", "0: 0"}, {"Up", "2: 2"}, {"Right", "3: 3"}, {"Up", "1: 1"}});
    row("round the ends", 10, 4,
        {{"Left", "9: 9"},
         {"Right", "0: 0"},
         {"Up", "8: 8"},
         {"Down", "0: 0"},
         {"Right", "1: 1"},
         {"Up", "9: 9"},
         {"Down", "1: 1"},
         {"Tab", "2: 2"},
         {"Tab", "3: 3"},
         {"Up", "7: 7"},
         {"Down", "3: 3"}});
    row("a row move takes the run's first tile", 10, 4,
        {{"shift+Right", "0 1: 1"}, {"Down", "1 4: 4"}, {"Up", "4 9: 9"}, {"Left", "4 8: 8"}});
    row("what selects nothing", 10, 4,
        {{"Down", "4: 4"},
         {"shift+Tab", "4: 4"},
         {"ctrl+shift+Tab", "4: 4"},
         {"shift+Up", "4: 4"},
         {"ctrl+Up", "4: 4"},
         {"shift+Down", "4: 4"},
         {"ctrl+Down", "4: 4"},
         {"ctrl+Tab", "5: 5"},
         {"ctrl+shift+Right", "6: 6"},
         {"ctrl+shift+Left", "5: 5"},
         {"alt+Right", "6: 6"},
         {"alt+Left", "5: 5"},
         {"alt+Up", "1: 1"},
         {"alt+Down", "5: 5"},
         {"ctrl+shift+Up", "1: 1"},
         {"a", "1: 1"},
         {"space", "1: 1"},
         {"Home", "1: 1"},
         {"Next", "1: 1"}});
    row("the keypad moves, whatever is held", 10, 4,
        {{"KP_Right", "1: 1"},
         {"KP_Down", "5: 5"},
         {"KP_Left", "4: 4"},
         {"KP_Up", "0: 0"},
         {"ctrl+KP_Right", "1: 1"},
         {"shift+85", "2: 2"}, // by its key code: as a name, Shift would make a digit of it
         {"shift+83", "1: 1"},
         {"ctrl+KP_Down", "5: 5"},
         {"shift+80", "1: 1"}});
}

void tst_KeysOnDesktop::keyByKey()
{
    QFETCH(int, tiles);
    QFETCH(int, columns);
    QFETCH(QStringList, keys);
    QFETCH(QStringList, expected);
    Typing typing(tiles, columns);
    QCOMPARE(typing.after(keys), expected);
    Hand::keepScreenshot(QStringLiteral("keys ") + QLatin1String(QTest::currentDataTag()));
    QVERIFY(typing.popup && typing.popup->isVisible());
    QCOMPARE(typing.browser.log().filter(QStringLiteral("open ")), QStringList());
}

QTEST_MAIN(tst_KeysOnDesktop)
#include "tst_keysondesktop.moc"
