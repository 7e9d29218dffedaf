// SPDX-License-Identifier: MIT
#include "tests/desktop/Hand.h"
#include "tests/support/PathLine.h"
#include "tests/support/TestCase.h"
#include "tests/support/real/RealBrowser.h"

#include <QDialog>
#include <QKeyEvent>
#include <QToolButton>

namespace {

//! An open popup, and its state after each key.
class Typing : public QObject
{
public:
    Typing(int tileCount, int columns) : browser(tileCount, frameFor(columns))
    {
        Hand::stepAside();
        popup = browser.openPopup();
        if (!popup)
            qFatal("the popup does not become active");
        tiles = RealBrowser::tiles(popup);
        popup->installEventFilter(this);
    }

    //! Types the keys. \return a line for each, after all have arrived: the highlighted tiles, and the one in
    //! the path line
    QStringList after(const QStringList &keys)
    {
        m_trail.clear();
        Hand::keys(keys);
        const bool allArrived = waitUntil([this, &keys] { return m_trail.size() >= keys.size(); });
        return allArrived ? m_trail : m_trail + QStringList("no more");
    }

    RealBrowser browser;
    QPointer<QDialog> popup;
    QList<QDialog *> tiles;

protected:
    bool eventFilter(QObject * /*watched*/, QEvent *event) override
    {
        if (event->type() != QEvent::KeyRelease)
            return false;
        const int key = static_cast<QKeyEvent *>(event)->key();
        if (key != Qt::Key_Shift && key != Qt::Key_Control && key != Qt::Key_Alt && key != Qt::Key_Meta)
            m_trail.append(state());
        return false;
    }

private:
    //! A main window for which the popup has 4 or 2 columns.
    static QRect frameFor(int columns) { return QRect(40, 60, columns == 4 ? 580 : 950, 700); }

    QString state() const
    {
        QStringList numbers;
        const QList<int> highlighted = RealBrowser::highlighted(tiles);
        for (const int index : highlighted)
            numbers.append(QString::number(index));
        QStringList lines; // the path line's text for each tile
        const QStringList paths = browser.paths();
        for (const QString &path : paths)
            lines.append(shownPath(path, popup->width()));
        return QString("%1: %2").arg(numbers.join(' ')).arg(lines.indexOf(RealBrowser::pathLine(popup)));
    }

    QStringList m_trail;
};

} // namespace

//! The popup's keys under a window manager, and keys combined with the mouse.
class tst_KeysOnDesktop : public TestCase
{
    Q_OBJECT

private slots:
    void keyByKey_data()
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
            QTest::newRow(name) << tiles << columns << keys << expected;
        };
        row("without documents", 0, 4,
            {{"Right", ": -1"}, {"Up", ": -1"}, {"Tab", ": -1"}, {"ctrl+Left", ": -1"}, {"Return", ": -1"}});
        row("moves and runs over the ends of rows", 23, 2,
            {{"Left", "22: 22"},
             {"ctrl+Right", "22: 22"},
             {"ctrl+Left", "21 22: 21"},
             {"shift+Left", "20 21 22: 20"},
             {"ctrl+Right", "21 22: 20"},
             {"Tab", "0: 0"},
             {"Up", "22: 22"},
             {"Up", "20: 20"},
             {"Down", "22: 22"}});
        row("keys that extend no selection", 10, 4,
            {{"Down", "4: 4"},
             {"shift+Tab", "4: 4"},
             {"ctrl+shift+Tab", "4: 4"},
             {"shift+Up", "4: 4"},
             {"ctrl+Down", "4: 4"},
             {"ctrl+Tab", "5: 5"},
             {"ctrl+shift+Right", "6: 6"},
             {"alt+Left", "5: 5"},
             {"space", "5: 5"},
             {"Next", "5: 5"}});
        row("the keypad moves with any modifier", 10, 4,
            {{"KP_Right", "1: 1"},
             {"KP_Down", "5: 5"},
             {"KP_Left", "4: 4"},
             {"KP_Up", "0: 0"},
             {"ctrl+KP_Right", "1: 1"},
             {"shift+85", "2: 2"}, // the key code, since Shift makes a digit of the name
             {"shift+83", "1: 1"},
             {"shift+80", "9: 9"}});
    }

    void keyByKey()
    {
        QFETCH(int, tiles);
        QFETCH(int, columns);
        QFETCH(QStringList, keys);
        Typing typing(tiles, columns);
        QTEST(typing.after(keys), "expected");
        Hand::keepScreenshot(QString("keys ") + QLatin1String(QTest::currentDataTag()));
        QVERIFY(typing.popup && typing.popup->isVisible());
        QCOMPARE(typing.browser.opened(), QStringList());
    }

    void enterOpensTheHighlightedInDisplayOrder_data()
    {
        QTest::addColumn<QStringList>("before");
        QTest::addColumn<QString>("enter");
        QTest::addColumn<QList<int>>("opened");
        QTest::newRow("Return at once") << QStringList() << "Return" << QList<int>{0};
        QTest::newRow("Enter of the keypad, after a move")
            << QStringList{"Down", "Right"} << "KP_Enter" << QList<int>{5};
        QTest::newRow("Alt+Return") << QStringList{"Up"} << "alt+Return" << QList<int>{8};
        QTest::newRow("Control+Enter of the keypad, a run extended backwards")
            << QStringList{"Up", "shift+Left", "shift+Left"} << "ctrl+KP_Enter" << QList<int>{6, 7, 8};
        QTest::newRow("Shift+Return, a shrunk run")
            << QStringList{"shift+Right", "shift+Right", "shift+Left"} << "shift+Return" << QList<int>{0, 1};
    }

    void enterOpensTheHighlightedInDisplayOrder()
    {
        QFETCH(QStringList, before);
        QFETCH(QString, enter);
        QFETCH(QList<int>, opened);
        Typing typing(10, 4);
        if (!before.isEmpty())
            typing.after(before);
        QCOMPARE(RealBrowser::highlighted(typing.tiles), opened);
        Hand::key(enter);
        QTRY_VERIFY(!typing.popup);
        QCOMPARE(typing.browser.opened(), typing.browser.opening(opened));
    }

    void deletedDrawingDoesNotKeepOthersFromOpening()
    {
        Typing typing(4, 4);
        QVERIFY(QFile::remove(typing.browser.paths().at(1)));
        QCOMPARE(typing.after({"shift+Right", "shift+Right"}).constLast(), "0 1 2: 2");
        Hand::key("Return");
        QTRY_VERIFY(!typing.popup);
        QStringList expected = typing.browser.opening({0, 1, 2});
        expected[1] = expected.at(1).chopped(2) + "failed";
        QCOMPARE(typing.browser.opened(), expected);
    }

    void escapeClosesOnly()
    {
        for (const char *key :
             {"Escape", "shift+Escape", "ctrl+Escape"}) { // the window manager uses alt+Escape
            Typing typing(10, 2);
            QCOMPARE(typing.after({"shift+Right"}), QStringList("0 1: 1"));
            Hand::key(QLatin1String(key));
            QTRY_VERIFY(!typing.popup);
            drainEvents();
            QTRY_VERIFY(typing.browser.window().isActiveWindow());
            QCOMPARE(typing.browser.opened(), QStringList());
        }
    }

    void escapeClosesWithATileHeld()
    {
        Typing typing(10, 4);
        Hand::moveTo(typing.tiles.at(5));
        Hand::press();
        QTRY_COMPARE(RealBrowser::highlighted(typing.tiles), QList<int>({5}));
        QCOMPARE(typing.after({"Right", "Down", "a"}), QStringList({"6: 6", "2: 2", "2: 2"}));
        Hand::key("Escape");
        QTRY_VERIFY(!typing.popup);
        Hand::release();
        Hand::stepAside();
        drainEvents();
        QCOMPARE(typing.browser.opened(), QStringList());
    }

    void keysAfterTheMouse()
    {
        Typing typing(10, 4);
        Hand::click(typing.tiles.at(2));
        QTRY_COMPARE(RealBrowser::highlighted(typing.tiles), QList<int>({2}));
        QCOMPARE(typing.after({"shift+Left", "Tab", "Left", "Down"}),
                 QStringList({"1 2: 1", "3: 3", "2: 2", "6: 6"}));
        Hand::holdKey("ctrl");
        Hand::click(typing.tiles.at(8));
        Hand::releaseKey("ctrl");
        QTRY_COMPARE(RealBrowser::highlighted(typing.tiles), QList<int>({6, 8}));
        QCOMPARE(typing.after({"shift+Right", "shift+Right"}), QStringList({"6 7 8: 7", "6 7 8 9: 9"}));
        // A pin that was clicked leaves the keys to the popup.
        QToolButton *pin = RealBrowser::button(typing.tiles.at(0), "pinButton");
        Hand::click(pin);
        QTRY_VERIFY(pin->isChecked());
        Hand::stepAside();
        QCOMPARE(typing.after({"Left", "Up"}), QStringList({"5: 5", "1: 1"}));
    }
};

TEST_CLASS(tst_KeysOnDesktop);
#include "tst_keysondesktop.moc"
