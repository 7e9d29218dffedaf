// SPDX-License-Identifier: MIT
#include "tests/support/PinMenu.h"
#include "tests/support/TestCase.h"

namespace {

//! "a", "b" and so on.
QStringList letters(int count)
{
    QStringList paths;
    for (int i = 0; i < count; ++i)
        paths.append(QString(QLatin1Char(char('a' + i))));
    return paths;
}

//! What stands between ampersand and blank in the entries' displayed texts, in the order of entries.
QStringList numbers(const QList<QAction *> &entries)
{
    QStringList found;
    for (QAction *action : entries) {
        const QString text = qobject_cast<RecentFileAction *>(action)->textButton->text();
        found.append(text.mid(1, text.indexOf(QLatin1Char(' ')) - 1));
    }
    return found;
}

} // namespace

//! The numbers that entries are displayed with: correct up to ten, and beyond that as they always were.
class tst_PinNumbers : public TestCase
{
    Q_OBJECT

private slots:
    void aNumberReplacesTheFormerOne_data();
    void aNumberReplacesTheFormerOne();
    void menusOfManySizes_data();
    void menusOfManySizes();
    void theEleventhThatBecomesTheFifthKeepsItsSecondDigit();
    void numbersStartAnewWithEachCall();
    void pinnedAndUnpinnedAreNumberedInOneRow();
};

void tst_PinNumbers::aNumberReplacesTheFormerOne_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("number");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char *text, int number, const char *expected) {
        QTest::addRow("%s becomes %d", text, number)
            << QString::fromLatin1(text) << number << QString::fromLatin1(expected);
    };
    row("&3 a", 1, "&1 a");
    row("&9 a", 9, "&9 a");
    row("&1 a", 10, "&10 a");
    row("&9 a", 12, "&12 a");
    row("&10 a", 1, "&1 a");
    row("&10 a", 9, "&9 a");
    row("&10 a", 10, "&10 a");
    row("&10 a", 12, "&12 a");
    row("&11 a", 5, "&51 a");
    row("&11 a", 11, "&111 a");
    row("&12 a", 1, "&12 a");
    row("&20 a", 3, "&30 a");
    row("&19 a", 12, "&129 a");
    row("&100 a", 7, "&70 a"); // begins with &10
    row("&105 a", 12, "&125 a");
    row("&110 a", 2, "&210 a");
    row("&2 &10 a", 4, "&4 &10 a"); // what looks so in a path
    row("&2 10 a", 4, "&4 10 a");
    row("&1 0 a", 4, "&4 0 a");
    row("x10 a", 4, "x40 a"); // another sign in front: one character
}

void tst_PinNumbers::aNumberReplacesTheFormerOne()
{
    QFETCH(QString, text);
    QFETCH(int, number);
    QFETCH(QString, expected);
    PinMenu pins(letters(number)); // whose last entry gets the number
    FolderPinButton *button = pins.entry(number - 1).textButton;
    button->setText(text);
    updatePins();
    QCOMPARE(button->text(), expected);

    // As a pinned one it is numbered alike.
    for (int i = 0; i < number; ++i)
        pins.setPinned(i);
    button->setText(text);
    updatePins();
    QCOMPARE(button->text(), expected);
}

void tst_PinNumbers::menusOfManySizes_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<QString>("lastPinned"); // in the host's order, with the last document pinned
    QTest::addColumn<QString>("nonePinned"); // after that, with none
    QTest::newRow("9 entries") << 9 << QStringLiteral("2 3 4 5 6 7 8 9 1")
                               << QStringLiteral("1 2 3 4 5 6 7 8 9");
    QTest::newRow("10 entries") << 10 << QStringLiteral("2 3 4 5 6 7 8 9 10 1")
                                << QStringLiteral("1 2 3 4 5 6 7 8 9 10");
    QTest::newRow("11 entries") << 11 << QStringLiteral("2 3 4 5 6 7 8 9 10 11 11")
                                << QStringLiteral("1 2 3 4 5 6 7 8 9 101 111");
    QTest::newRow("25 entries") << 25
                                << QStringLiteral("2 3 4 5 6 7 8 9 10 11 121 132 143 154 165 176 187 198 "
                                                  "209 210 221 232 243 254 15")
                                << QStringLiteral("1 2 3 4 5 6 7 8 9 101 1121 1232 1343 1454 1565 1676 1787 "
                                                  "1898 1909 2010 2121 2232 2343 2454 255");
}

void tst_PinNumbers::menusOfManySizes()
{
    QFETCH(int, count);
    QFETCH(QString, lastPinned);
    QFETCH(QString, nonePinned);
    PinMenu pins(letters(count));
    pins.setPinned(count - 1);
    updatePins();
    QCOMPARE(numbers(pins.entries), lastPinned.split(QLatin1Char(' ')));
    QStringList order = letters(count);
    order.move(count - 1, 0);
    QCOMPARE(pathsOf(RecentDocumentBrowser::menuPinButtonList), order);
    QList<QAction *> inMenu = pins.menu.actions();
    QCOMPARE(inMenu.at(2), pins.entries.constLast()); // behind "New" and a separator
    QVERIFY(inMenu.at(3)->isSeparator() && inMenu.at(4)->isSeparator());
    QCOMPARE(inMenu.mid(5, count - 1), pins.entries.mid(0, count - 1));
    QCOMPARE(inMenu.at(count + 4), pins.quit);

    pins.setPinned(count - 1, false);
    updatePins();
    QCOMPARE(numbers(pins.entries), nonePinned.split(QLatin1Char(' ')));
    QCOMPARE(pathsOf(RecentDocumentBrowser::menuPinButtonList), order);
    inMenu = pins.menu.actions();
    QCOMPARE(inMenu.mid(inMenu.size() - 1 - count, count), pins.entries);
}

void tst_PinNumbers::theEleventhThatBecomesTheFifthKeepsItsSecondDigit()
{
    PinMenu pins(letters(11));
    for (const int pinned : {0, 1, 2, 3, 10})
        pins.setPinned(pinned);
    updatePins();
    QCOMPARE(pins.entry(10).textButton->text(), QStringLiteral("&51 k"));
    QCOMPARE(pins.entries.at(10)->text(), QStringLiteral("&11 k"));
}

void tst_PinNumbers::numbersStartAnewWithEachCall()
{
    PinMenu pins(letters(10));
    pins.setPinned(9);
    for (int call = 0; call < 5; ++call) {
        updatePins();
        QCOMPARE(numbers(pins.entries), QStringList({"2", "3", "4", "5", "6", "7", "8", "9", "10", "1"}));
    }
}

void tst_PinNumbers::pinnedAndUnpinnedAreNumberedInOneRow()
{
    PinMenu pins(letters(10));
    pins.setPinned(9);
    pins.setPinned(4);
    updatePins();
    QCOMPARE(numbers(pins.entries), QStringList({"3", "4", "5", "6", "1", "7", "8", "9", "10", "2"}));
    QCOMPARE(pins.displayedEntries(), QStringList({"New", "&1 e", "&2 j", "&3 a", "&4 b", "&5 c", "&6 d",
                                                   "&7 f", "&8 g", "&9 h", "&10 i", "Quit"}));
}

QTEST_MAIN(tst_PinNumbers)
#include "tst_pinnumbers.moc"
