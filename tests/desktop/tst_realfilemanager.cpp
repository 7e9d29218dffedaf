// SPDX-License-Identifier: MIT
#include "tests/desktop/Hand.h"
#include "tests/support/TestCase.h"
#include "tests/support/process/ProgramOnScreen.h"

#include <QGuiApplication>
#include <QPixmap>
#include <QScreen>

namespace {

//! The number of colours in the window where the file manager shows its files: right of its sidebar, below
//! its toolbar.
int coloursOfFiles(WId window)
{
    const QRect place = Hand::realGeometry(window);
    const QRect files = place.adjusted(place.width() / 3, place.height() / 5, -20, -20);
    const QImage image = QGuiApplication::primaryScreen()
                             ->grabWindow(0, files.x(), files.y(), files.width(), files.height())
                             .toImage();
    QSet<QRgb> colours;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            colours.insert(image.pixel(x, y));
    }
    return colours.size();
}

} // namespace

class tst_RealFileManager : public TestCase
{
    Q_OBJECT

private slots:
    void fileManagerShowsTheFolder()
    {
        ProgramOnScreen program({"ground floor.dwg"}, "h\u00e4user & g\u00e4rten");
        QVERIFY(program.start({"_NEW", "_RECENT"}, ProgramOnScreen::freshSession("file-manager-home")));
        QVERIFY(ProgramOnScreen::popupOpens());
        Hand::click(ProgramOnScreen::folderButton);
        const QString title = "h\u00e4user & g\u00e4rten";
        QTRY_COMPARE(ProgramOnScreen::activeTitle(), title);
        // An empty folder has one colour, an icon with its name has many. The file manager clears and paints
        // it more than once.
        QVERIFY(waitUntil([&] { return coloursOfFiles(ProgramOnScreen::findWindow(title)) > 5; }));
        Hand::keepScreenshot("folder-in-the-file-manager");
        // Its first window keeps the command running, and the program waits for the command's end.
        Hand::key("alt+F4");
        QVERIFY(ProgramOnScreen::popupCloses());
        QTRY_VERIFY(ProgramOnScreen::activeTitle().startsWith("fxhost"));
        QVERIFY(program.quit());
    }
};

TEST_CLASS(tst_RealFileManager);
#include "tst_realfilemanager.moc"
