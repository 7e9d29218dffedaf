// SPDX-License-Identifier: MIT
#include "state/FolderPinButton.h"
#include "tests/ui/OpenGrid.h"

namespace {

//! A tile in a window of any width, and a path line beside it.
struct TileInWindow
{
    TileInWindow() : menuPin(nullptr, path)
    {
        RecentDocMainWindow::docPathLabel = &line;
        tile = new RecentDocDialog(&window, &menuPin, path, picture, false);
    }
    //! The path line's text for a path, with a window of that width in pixels.
    QString shown(const QString &document, int width)
    {
        window.resize(width, window.height());
        tile->setMainWindowDocPathLabel(document);
        return line.text();
    }

    FakeBrowser browser; // its destructor clears the lists that tiles add themselves to
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

//! The colour of a tile's background: left of the picture, below the frame.
QColor backgroundOf(RecentDocDialog *tile)
{
    return tile->grab().toImage().pixelColor(5, 20);
}

} // namespace

//! What the pointer over a tile and the focus on it do, and what the path line shows.
class tst_TileHover : public TestCase
{
    Q_OBJECT

private slots:
    void enteringAndLeaving()
    {
        const OpenGrid grid(4);
        RecentDocDialog *tile = grid.tiles.at(1);
        const QString resting = tile->styleSheet();
        const QList<FolderPinButton *> buttons = {FakeBrowser::button(tile, "pinButton"),
                                                  FakeBrowser::button(tile, "folderButton")};
        for (FolderPinButton *button : buttons)
            button->hide();
        sendPlain(tile, QEvent::Enter);
        QCOMPARE(grid.line(), grid.lineOf(1));
        QCOMPARE(tile->styleSheet(),
                 QStringLiteral("QDialog {color:lightGray;"
                                "                         background-color: rgb(240, 240, 240);"
                                "                          border-width: 0.1px;"
                                "                         border: 1px solid;"
                                "                         border-color: #C0C0C0"
                                "                                  }"));
        QCOMPARE(backgroundOf(tile), QColor(240, 240, 240));
        QCOMPARE(grid.popup->main_label_path->textFormat(), Qt::PlainText);

        sendPlain(tile, QEvent::Leave);
        QCOMPARE(tile->styleSheet(), resting);
        QCOMPARE(backgroundOf(tile), QColor(248, 248, 248));
        for (const FolderPinButton *button : buttons)
            QVERIFY(button->isVisible()); // since the pointer entered
        QCOMPARE(tile->focusPolicy(), Qt::StrongFocus);
    }

    void leavingShowsTheHighlightedTilesPath_data()
    {
        QTest::addColumn<Indices>("highlighted");
        QTest::addColumn<int>("shown");
        QTest::newRow("the first of several") << Indices{1, 3} << 1;
        QTest::newRow("none: the path stays") << Indices{} << 2;
    }

    void leavingShowsTheHighlightedTilesPath()
    {
        QFETCH(Indices, highlighted);
        QFETCH(int, shown);
        OpenGrid grid(4);
        grid.highlight(highlighted);
        sendPlain(grid.tiles.at(2), QEvent::Enter);
        sendPlain(grid.tiles.at(2), QEvent::Leave);
        QCOMPARE(grid.line(), grid.lineOf(shown));
    }

    void focusShowsThePathAndLosingItChangesNothing()
    {
        const OpenGrid grid(4);
        QVERIFY(waitForActive(grid.popup));
        RecentDocDialog *tile = grid.tiles.at(3);
        tile->setFocus();
        QCOMPARE(grid.line(), grid.lineOf(3));
        const QString sheet = tile->styleSheet();
        QFocusEvent lost(QEvent::FocusOut);
        QCoreApplication::sendEvent(tile, &lost);
        QVERIFY(!lost.isAccepted());
        QCOMPARE(grid.line(), grid.lineOf(3));
        QCOMPARE(tile->styleSheet(), sheet);
        QCOMPARE(grid.highlighted(), Indices{0});
    }

    void keysWithoutEffectReachThePopupToo()
    {
        const OpenGrid grid(4);
        ReceiversOf received(QEvent::KeyPress);
        grid.popup->installEventFilter(&received);
        for (const Qt::Key key : {Qt::Key_A, Qt::Key_Backtab})
            QTest::keyClick(grid.tiles.at(2), key);
        QCOMPARE(received.receivers, QList<QObject *>({grid.popup, grid.popup}));
    }

    void widePathsAreCut_data()
    {
        QTest::addColumn<int>("length");
        QTest::addColumn<int>("kept");
        QTest::addColumn<int>("dots");
        QTest::newRow("50 characters, padded") << 50 << 50 << 50;
        QTest::newRow("96 characters, padded") << 96 << 96 << 4;
        QTest::newRow("97 characters, padded") << 97 << 97 << 3;
        QTest::newRow("98 characters lose one") << 98 << 97 << 3;
        QTest::newRow("300 characters") << 300 << 97 << 3;
    }

    void widePathsAreCut()
    {
        QFETCH(int, length);
        QFETCH(int, kept);
        QFETCH(int, dots);
        TileInWindow in;
        const QString path = QStringLiteral("/drawings/abcdefghijklm").repeated(20).left(length);
        QCOMPARE(in.shown(path, textWidth(path)), path);
        QCOMPARE(in.shown(path, textWidth(path) - 1), path.left(kept) + QString(dots, QLatin1Char('.')));
    }

    void widthIsMeasuredInTheApplicationsFont()
    {
        TileInWindow in;
        const QString path = QStringLiteral("/drawings/abcdefghijklmnopqrstuvwxyz.dwg");
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
        QCOMPARE(cut, path.leftJustified(100, QLatin1Char('.')));
    }

    void withoutAPathLineNothingIsWritten()
    {
        TileInWindow in;
        in.line.setText(QStringLiteral("as before"));
        RecentDocMainWindow::docPathLabel = nullptr;
        QCOMPARE(in.shown(in.path, 500), QStringLiteral("as before"));
    }
};

TEST_CLASS(tst_TileHover);
#include "tst_tilehover.moc"
