// SPDX-License-Identifier: MIT
#include "tests/support/TestCase.h"
#include "tests/support/Typing.h"

#include <QFile>
#include <QToolButton>

namespace {

//! The same key again and again.
QStringList times(int count, const char *key)
{
    QStringList keys;
    for (int i = 0; i < count; ++i)
        keys.append(QLatin1String(key));
    return keys;
}

} // namespace

//! The keys that end the popup, typed by hand, and keys beside the mouse.
class tst_EnterOnDesktop : public TestCase
{
    Q_OBJECT

private slots:
    void enterOpensTheHighlightedInDisplayOrder_data();
    void enterOpensTheHighlightedInDisplayOrder();
    void aDrawingThatIsGoneKeepsNoOtherFromOpening();
    void escapeClosesOnly_data();
    void escapeClosesOnly();
    void escapeClosesWithATileHeld();
    void keysAfterTheMouse();
    void keysWithoutDocuments();
};

void tst_EnterOnDesktop::enterOpensTheHighlightedInDisplayOrder_data()
{
    QTest::addColumn<int>("tiles");
    QTest::addColumn<int>("columns");
    QTest::addColumn<QStringList>("before");
    QTest::addColumn<QString>("enter");
    QTest::addColumn<QList<int>>("opened");
    const auto row = [](const char *name, int tiles, int columns, const QStringList &before,
                        const char *enter, const QList<int> &opened) {
        QTest::newRow(name) << tiles << columns << before << QString::fromLatin1(enter) << opened;
    };
    row("Return on the only tile", 1, 4, {}, "Return", {0});
    row("Enter of the keypad, after a move", 4, 2, {"Down", "Right"}, "KP_Enter", {3});
    row("Shift+Return", 4, 4, {"Tab"}, "shift+Return", {1});
    row("Control+Enter of the keypad", 4, 4, {"Left"}, "ctrl+KP_Enter", {3});
    row("Alt+Return", 10, 2, {"Up"}, "alt+Return", {8});
    row("a run grown forward", 10, 4, {"Down", "shift+Right", "ctrl+Right"}, "Return", {4, 5, 6});
    row("a run grown back opens from its first", 10, 4, {"Up", "shift+Left", "shift+Left"}, "KP_Enter",
        {6, 7, 8});
    row("a shrunk run", 10, 2, {"shift+Right", "shift+Right", "shift+Left"}, "Return", {0, 1});
    row("tiles apart", 23, 2, {"shift+Right", "shift+Right", "Down"}, "Return", {1, 2});
    row("all of 23", 23, 4, times(22, "shift+Right"), "Return",
        {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17, 18, 19, 20, 21, 22});
}

void tst_EnterOnDesktop::enterOpensTheHighlightedInDisplayOrder()
{
    QFETCH(int, tiles);
    QFETCH(int, columns);
    QFETCH(QStringList, before);
    QFETCH(QString, enter);
    QFETCH(QList<int>, opened);
    Typing typing(tiles, columns);
    if (!before.isEmpty())
        typing.after(before);
    QCOMPARE(RealBrowser::highlighted(typing.tiles), opened);
    Hand::keepScreenshot(QStringLiteral("before enter ") + QLatin1String(QTest::currentDataTag()));
    QStringList expected;
    for (const int index : qAsConst(opened))
        expected.append(QStringLiteral("open %1 ok").arg(typing.browser.paths().at(index)));
    Hand::key(enter);
    QTRY_VERIFY(!typing.popup);
    QCOMPARE(typing.browser.log().filter(QStringLiteral("open ")), expected);
}

void tst_EnterOnDesktop::aDrawingThatIsGoneKeepsNoOtherFromOpening()
{
    Typing typing(4, 4);
    const QStringList paths = typing.browser.paths();
    QVERIFY(QFile::remove(paths.at(1)));
    QCOMPARE(typing.after({"shift+Right", "shift+Right"}).constLast(), QStringLiteral("0 1 2: 2"));
    Hand::key(QStringLiteral("Return"));
    QTRY_VERIFY(!typing.popup);
    QCOMPARE(typing.browser.log().filter(QStringLiteral("open ")),
             QStringList({QStringLiteral("open %1 ok").arg(paths.at(0)),
                          QStringLiteral("open %1 failed").arg(paths.at(1)),
                          QStringLiteral("open %1 ok").arg(paths.at(2))}));
}

void tst_EnterOnDesktop::escapeClosesOnly_data()
{
    QTest::addColumn<QString>("key");
    for (const char *key : {"Escape", "shift+Escape", "ctrl+Escape"}) // the window manager keeps alt+Escape
        QTest::newRow(key) << QString::fromLatin1(key);
}

void tst_EnterOnDesktop::escapeClosesOnly()
{
    QFETCH(QString, key);
    Typing typing(10, 2);
    QCOMPARE(typing.after({"shift+Right"}), QStringList("0 1: 1"));
    Hand::key(key);
    QTRY_VERIFY(!typing.popup);
    drainEvents();
    QTRY_VERIFY(typing.browser.window().isActiveWindow());
    QCOMPARE(typing.browser.log().filter(QStringLiteral("open ")), QStringList());
    Hand::keepScreenshot(QStringLiteral("after ") + key);
}

void tst_EnterOnDesktop::escapeClosesWithATileHeld()
{
    Typing typing(10, 4);
    Hand::moveTo(typing.tiles.at(5));
    Hand::press();
    QTRY_COMPARE(RealBrowser::highlighted(typing.tiles), QList<int>({5}));
    QCOMPARE(typing.after({"Right", "Down", "a"}), QStringList({"6: 6", "2: 2", "2: 2"}));
    Hand::key(QStringLiteral("Escape"));
    QTRY_VERIFY(!typing.popup);
    Hand::release();
    Hand::moveTo(Typing::aside());
    drainEvents();
    QCOMPARE(typing.browser.log().filter(QStringLiteral("open ")), QStringList());
}

void tst_EnterOnDesktop::keysAfterTheMouse()
{
    Typing typing(10, 4);
    Hand::moveTo(typing.tiles.at(2));
    Hand::click();
    QTRY_COMPARE(RealBrowser::highlighted(typing.tiles), QList<int>({2}));
    QCOMPARE(typing.after({"shift+Left", "Tab", "Left", "Down"}),
             QStringList({"1 2: 1", "3: 3", "2: 2", "6: 6"}));
    Hand::holdKey(QStringLiteral("ctrl"));
    Hand::moveTo(typing.tiles.at(8));
    Hand::click();
    Hand::releaseKey(QStringLiteral("ctrl"));
    QTRY_COMPARE(RealBrowser::highlighted(typing.tiles), QList<int>({6, 8}));
    QCOMPARE(typing.after({"shift+Right", "shift+Right"}), QStringList({"6 7 8: 7", "6 7 8 9: 9"}));
    Hand::keepScreenshot(QStringLiteral("keys-after-the-mouse"));
    // A pin that was clicked leaves the keys to the popup.
    QToolButton *pin = RealBrowser::button(typing.tiles.at(0), "pinButton");
    Hand::moveTo(pin);
    Hand::click();
    QTRY_VERIFY(pin->isChecked());
    Hand::moveTo(Typing::aside());
    const QStringList states = typing.after({"Left", "Up"});
    QCOMPARE(states, QStringList({"5: 5", "1: 1"}));
}

void tst_EnterOnDesktop::keysWithoutDocuments()
{
    Typing typing(0, 4);
    const QStringList keys = {"Right",       "Left",      "Up",     "Down",     "Tab", "shift+Tab",
                              "shift+Right", "ctrl+Left", "Return", "KP_Enter", "a"};
    const QStringList states = typing.after(keys);
    QCOMPARE(states.size(), keys.size());
    QCOMPARE(states.count(QStringLiteral(": -1")), keys.size());
    QVERIFY(typing.popup && typing.popup->isVisible());
    Hand::keepScreenshot(QStringLiteral("keys-without-documents"));
    Hand::key(QStringLiteral("Escape"));
    QTRY_VERIFY(!typing.popup);
}

QTEST_MAIN(tst_EnterOnDesktop)
#include "tst_enterondesktop.moc"
