// SPDX-License-Identifier: MIT
#include "state/FolderPinButton.h"
#include "tests/support/Browser.h"
#include "tests/support/TestCase.h"
#include "ui/RecentDocDialog.h"
#include "ui/RecentDocMainWindow.h"

#include <QFontMetrics>
#include <QKeyEvent>
#include <QLabel>

namespace {

void send(QWidget *widget, QEvent::Type type)
{
    QEvent event(type);
    QCoreApplication::sendEvent(widget, &event);
}

//! Takes the key presses that reach a widget, and handles them by doing nothing.
class KeyTaker : public QObject
{
public:
    explicit KeyTaker(QObject *widget) { widget->installEventFilter(this); }
    QList<int> keys;

protected:
    bool eventFilter(QObject * /*widget*/, QEvent *event) override
    {
        if (event->type() != QEvent::KeyPress)
            return false;
        keys.append(static_cast<QKeyEvent *>(event)->key());
        return true;
    }
};

//! An open popup of four tiles, the first of them highlighted.
struct OpenPopup
{
    OpenPopup() : browser(4)
    {
        browser.createDocument();
        popup = browser.openPopup();
        isActive = waitForActive(popup);
    }
    RecentDocDialog *tile(int index) const { return browser.tiles().at(index); }
    QString pathLine() const { return popup->main_label_path->text(); }

    Browser browser;
    RecentDocMainWindow *popup;
    bool isActive;
};

//! A tile in a window of any width, and a path line beside it.
struct TileInWindow
{
    TileInWindow() : menuPin(nullptr, path)
    {
        RecentDocMainWindow::docPathLabel = &line;
        tile = new RecentDocDialog(&window, &menuPin, path, picture, false);
    }
    //! What the line shows of a path when the window is so many pixels wide.
    QString shown(const QString &document, int width)
    {
        window.resize(width, window.height());
        tile->setMainWindowDocPathLabel(document);
        return line.text();
    }

    Browser browser; // its end empties the lists that tiles enter themselves in
    QString path = QStringLiteral("/a/gear.dwg");
    QImage picture;
    FolderPinButton menuPin;
    QLabel line;
    QWidget window;
    RecentDocDialog *tile;
};

int textWidth(const QString &text)
{
    return QFontMetrics(QFont()).horizontalAdvance(text);
}

QString pathOfLength(int length)
{
    QString path = QStringLiteral("/drawings/");
    for (int i = 0; path.size() < length; ++i)
        path.append(QChar(QLatin1Char(static_cast<char>('a' + i % 26))));
    return path;
}

} // namespace

class TestTileHover : public TestCase
{
    Q_OBJECT

private slots:
    void enteringShowsThePath();
    void enteringShowsTheButtons();
    void enteringLetsTheTileHaveTheFocus();
    void enteringChangesTheGroundToTheLetter();
    void leavingChangesTheGroundBack();
    void leavingShowsTheHighlightedTilesPath();
    void leavingWithoutAHighlightKeepsThePath();
    void leavingKeepsButtonsAndFocusPolicy();
    void focusShowsThePath();
    void losingTheFocusChangesNothing();
    void keysGoToThePopup_data();
    void keysGoToThePopup();
    void widePathsAreCut_data();
    void widePathsAreCut();
    void aPathAsWideAsThePopupIsWhole();
    void widthIsJudgedByTheApplicationsFont();
    void thePathLineIsNoMarkup();
    void withoutAPathLineNothingIsWritten();
};

void TestTileHover::enteringShowsThePath()
{
    const OpenPopup open;
    QCOMPARE(open.pathLine(), open.browser.path(0));
    send(open.tile(2), QEvent::Enter);
    QCOMPARE(open.pathLine(), open.browser.path(2));
}

void TestTileHover::enteringShowsTheButtons()
{
    const OpenPopup open;
    for (const char *name : {"pinButton", "folderButton"}) {
        FolderPinButton *button = Browser::button(open.tile(1), name);
        button->hide();
        send(open.tile(1), QEvent::Enter);
        QVERIFY(button->isVisible());
    }
}

void TestTileHover::enteringLetsTheTileHaveTheFocus()
{
    const OpenPopup open;
    send(open.tile(1), QEvent::Enter);
    QCOMPARE(open.tile(1)->focusPolicy(), Qt::StrongFocus);
}

void TestTileHover::enteringChangesTheGroundToTheLetter()
{
    const OpenPopup open;
    send(open.tile(1), QEvent::Enter);
    QCOMPARE(open.tile(1)->styleSheet(),
             QStringLiteral("QDialog {color:lightGray;"
                            "                         background-color: rgb(240, 240, 240);"
                            "                          border-width: 0.1px;"
                            "                         border: 1px solid;"
                            "                         border-color: #C0C0C0"
                            "                                  }"));
    constexpr QPoint ground(5, 20); // left of the picture, below the frame
    QCOMPARE(open.tile(1)->grab().toImage().pixelColor(ground), QColor(240, 240, 240));
}

void TestTileHover::leavingChangesTheGroundBack()
{
    const OpenPopup open;
    const QString resting = open.tile(2)->styleSheet();
    send(open.tile(1), QEvent::Enter);
    QVERIFY(open.tile(1)->styleSheet() != resting);
    send(open.tile(1), QEvent::Leave);
    QCOMPARE(open.tile(1)->styleSheet(), resting);
    constexpr QPoint ground(5, 20);
    QCOMPARE(open.tile(1)->grab().toImage().pixelColor(ground), QColor(248, 248, 248));
}

void TestTileHover::leavingShowsTheHighlightedTilesPath()
{
    const OpenPopup open;
    open.tile(0)->clearHighlight();
    open.tile(3)->highlight();
    open.tile(1)->highlight();
    send(open.tile(2), QEvent::Enter);
    send(open.tile(2), QEvent::Leave);
    QCOMPARE(open.pathLine(), open.browser.path(1)); // the first of them
}

void TestTileHover::leavingWithoutAHighlightKeepsThePath()
{
    const OpenPopup open;
    open.tile(0)->clearHighlight();
    send(open.tile(2), QEvent::Enter);
    send(open.tile(2), QEvent::Leave);
    QCOMPARE(open.pathLine(), open.browser.path(2));
}

void TestTileHover::leavingKeepsButtonsAndFocusPolicy()
{
    const OpenPopup open;
    send(open.tile(1), QEvent::Enter);
    send(open.tile(1), QEvent::Leave);
    QVERIFY(Browser::button(open.tile(1), "pinButton")->isVisible());
    QVERIFY(Browser::button(open.tile(1), "folderButton")->isVisible());
    QCOMPARE(open.tile(1)->focusPolicy(), Qt::StrongFocus);
}

void TestTileHover::focusShowsThePath()
{
    const OpenPopup open;
    QVERIFY(open.isActive);
    open.tile(3)->setFocus();
    QCOMPARE(open.pathLine(), open.browser.path(3));
}

void TestTileHover::losingTheFocusChangesNothing()
{
    const OpenPopup open;
    QVERIFY(open.isActive);
    open.tile(3)->setFocus();
    const QString sheet = open.tile(3)->styleSheet();
    QFocusEvent lost(QEvent::FocusOut);
    QCoreApplication::sendEvent(open.tile(3), &lost);
    QVERIFY(!lost.isAccepted());
    QCOMPARE(open.pathLine(), open.browser.path(3));
    QCOMPARE(open.tile(3)->styleSheet(), sheet);
    QVERIFY(!open.tile(3)->isHighlighted());
    QVERIFY(open.tile(0)->isHighlighted());
}

void TestTileHover::keysGoToThePopup_data()
{
    QTest::addColumn<Qt::Key>("key");
    QTest::newRow("a letter") << Qt::Key_A;
    QTest::newRow("Return") << Qt::Key_Return;
    QTest::newRow("Escape") << Qt::Key_Escape;
    QTest::newRow("Right") << Qt::Key_Right;
    QTest::newRow("Tab") << Qt::Key_Tab;
    QTest::newRow("Shift+Tab") << Qt::Key_Backtab;
}

void TestTileHover::keysGoToThePopup()
{
    QFETCH(Qt::Key, key);
    const OpenPopup open;
    QVERIFY(open.isActive);
    open.tile(2)->setFocus();
    const KeyTaker taker(open.popup);
    QTest::keyClick(open.tile(2), key);
    QCOMPARE(taker.keys, QList<int>({key}));
    QVERIFY(open.tile(2)->isVisible()); // Escape does not close the tile
    QCOMPARE(QApplication::focusWidget(), open.tile(2));
}

void TestTileHover::widePathsAreCut_data()
{
    QTest::addColumn<int>("length");
    QTest::addColumn<int>("kept");
    QTest::addColumn<int>("dots");
    QTest::newRow("50 characters, padded") << 50 << 50 << 50;
    QTest::newRow("96 characters, padded") << 96 << 96 << 4;
    QTest::newRow("97 characters, padded") << 97 << 97 << 3;
    QTest::newRow("98 characters lose one") << 98 << 97 << 3;
    QTest::newRow("100 characters lose three") << 100 << 97 << 3;
    QTest::newRow("101 characters") << 101 << 97 << 3;
    QTest::newRow("300 characters") << 300 << 97 << 3;
}

void TestTileHover::widePathsAreCut()
{
    QFETCH(int, length);
    QFETCH(int, kept);
    QFETCH(int, dots);
    TileInWindow in;
    const QString path = pathOfLength(length);
    QCOMPARE(path.size(), length);
    QCOMPARE(in.shown(path, textWidth(path)), path);
    QCOMPARE(in.shown(path, textWidth(path) - 1), path.left(kept) + QString(dots, QLatin1Char('.')));
}

void TestTileHover::aPathAsWideAsThePopupIsWhole()
{
    TileInWindow in;
    const QString path = pathOfLength(60);
    const int width = textWidth(path);
    QCOMPARE(in.shown(path, width + 1), path);
    QCOMPARE(in.shown(path, width), path);
    QVERIFY(in.shown(path, width - 1) != path);
}

void TestTileHover::widthIsJudgedByTheApplicationsFont()
{
    TileInWindow in;
    const QString path = pathOfLength(60);
    const int width = textWidth(path);
    QFont large;
    large.setPointSizeF(large.pointSizeF() * 2);
    in.line.setFont(large);
    in.window.setFont(large);
    QCOMPARE(in.shown(path, width), path);

    const QFont usual = QApplication::font();
    QApplication::setFont(large);
    const QString cut = in.shown(path, width);
    QApplication::setFont(usual);
    QCOMPARE(cut, path + QString(40, QLatin1Char('.')));
}

void TestTileHover::thePathLineIsNoMarkup()
{
    const OpenPopup open;
    const QString path = QStringLiteral("/<b>drawings/gear.dwg");
    open.tile(1)->setMainWindowDocPathLabel(path);
    QCOMPARE(open.pathLine(), path);
    QCOMPARE(open.popup->main_label_path->textFormat(), Qt::PlainText);
}

void TestTileHover::withoutAPathLineNothingIsWritten()
{
    TileInWindow in;
    in.line.setText(QStringLiteral("as before"));
    RecentDocMainWindow::docPathLabel = nullptr;
    QCOMPARE(in.shown(in.path, 500), QStringLiteral("as before"));
}

QTEST_MAIN(TestTileHover)
#include "tst_tilehover.moc"
