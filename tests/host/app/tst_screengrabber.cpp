// SPDX-License-Identifier: MIT
#include "host/app/ScreenGrabber.h"
#include "tests/support/TestCase.h"

#include <QDialog>
#include <QPainter>

using fxhost::grabWindows;

namespace {

//! A window of one colour.
class Panel : public QDialog
{
public:
    Panel(QRgb color, const QRect &place, QWidget *parent = nullptr)
        : QDialog(parent, Qt::FramelessWindowHint), m_color(color)
    {
        setGeometry(place);
        show();
        if (!waitForExposed(this))
            qFatal("the window does not appear");
    }

protected:
    void paintEvent(QPaintEvent *) override { QPainter(this).fillRect(rect(), m_color); }

private:
    QColor m_color;
};

constexpr QRgb red = qRgb(200, 0, 0);
constexpr QRgb green = qRgb(0, 150, 0);

} // namespace

//! _SCREENSHOT where a program cannot read the screen.
class tst_ScreenGrabber : public TestCase
{
    Q_OBJECT

private slots:
    void aHiddenWindowIsNotGrabbed()
    {
        QVERIFY(grabWindows().isNull());
        const Panel shown(red, QRect(100, 100, 300, 200));
        const QDialog hidden; // at another place
        QCOMPARE(grabWindows().size(), shown.size());
    }

    void aPopupIsAboveItsActiveWindow()
    {
        Panel window(red, QRect(100, 100, 300, 200));
        Panel popup(green, QRect(150, 120, 50, 40), &window);
        window.activateWindow();
        QVERIFY(waitForActive(&window));

        const QImage image = grabWindows();
        QCOMPARE(image.size(), QSize(300, 200));
        QCOMPARE(image.pixelColor(10, 10), QColor(red));
        QCOMPARE(image.pixelColor(60, 30), QColor(green));
        QCOMPARE(image.pixelColor(110, 30), QColor(red));
    }

    void thePictureCoversAllWindowsAndNothingBetweenThem()
    {
        Panel left(red, QRect(100, 100, 50, 50));
        Panel right(green, QRect(250, 180, 40, 60));
        const QImage image = grabWindows();
        QCOMPARE(image.size(), QSize(190, 140));
        QCOMPARE(image.pixelColor(0, 0), QColor(red));
        QCOMPARE(image.pixelColor(189, 139), QColor(green));
        QCOMPARE(image.pixelColor(100, 20).alpha(), 0);
    }
};

TEST_CLASS(tst_ScreenGrabber);
#include "tst_screengrabber.moc"
