// SPDX-License-Identifier: MIT
#include "ui/QBalloonTip.h"

#include "tests/support/TestCase.h"

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QBitmap>
#include <QGridLayout>
#include <QLabel>
#include <QPainter>
#include <QPainterPath>
#include <QPointer>
#include <QScreen>

#include <functional>

#include <qpa/qplatformscreen.h>
#include <qpa/qwindowsysteminterface.h>

namespace {

const QString balloonTitle = QStringLiteral("<b>Gear</b>"); // plain text
const QString balloonMessage = QStringLiteral("<i>Show in Folder</i>");
const QPoint somewhere(300, 200);

QImage greenPicture()
{
    QImage image(64, 48, QImage::Format_RGB32);
    image.fill(Qt::darkGreen);
    return image;
}

//! All balloons, those whose deletion is pending included.
QList<QBalloonTip *> balloons()
{
    QList<QBalloonTip *> found;
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (QWidget *window : windows) {
        if (auto *balloon = qobject_cast<QBalloonTip *>(window))
            found.append(balloon);
    }
    return found;
}

//! Shows a balloon in place of the former ones and returns it.
QBalloonTip *shownAt(const QPoint &position, const QImage &icon = greenPicture(), int timeout = 1000,
                     bool showArrow = true)
{
    QBalloonTip::hideBalloon();
    drainEvents();
    QBalloonTip::showBalloon(icon, balloonTitle, balloonMessage, position, timeout, showArrow);
    drainEvents();
    if (balloons().size() != 1)
        qFatal("there are %d balloons", balloons().size());
    return balloons().constFirst();
}

//! The items of the balloon's layout, with row, column, extent and alignment.
QStringList contentOf(const QWidget *balloon)
{
    QStringList content;
    const auto *layout = qobject_cast<QGridLayout *>(balloon->layout());
    for (int i = 0; i < layout->count(); ++i) {
        int place[4];
        layout->getItemPosition(i, &place[0], &place[1], &place[2], &place[3]);
        QLayoutItem *item = layout->itemAt(i);
        const auto *label = qobject_cast<QLabel *>(item->widget());
        content.append((label ? label->text() : QStringLiteral("spacer")) +
                       QString::asprintf(" %d %d %dx%d %x", place[0], place[1], place[2], place[3],
                                         static_cast<unsigned>(item->alignment())));
    }
    return content;
}

//! The lowest position at which the margins are not flipped: the balloon and 18 pixels fit on the screen.
//! Before its margins are set the balloon is 24 pixels less high.
int lowestUnflipped(const QWidget *balloon)
{
    constexpr int margins = 21 + 3;
    return QGuiApplication::primaryScreen()->geometry().height() - 1 - 18 -
           (balloon->sizeHint().height() - margins);
}

//! A primary screen whose top left corner is not 0, 0.
class ScreenElsewhere : public QPlatformScreen
{
public:
    QRect geometry() const override { return {1000, 500, 800, 800}; }
    int depth() const override { return 32; }
    QImage::Format format() const override { return QImage::Format_RGB32; }
};

//! The body, with round corners, and the pointer at its left.
void drawOutline(QPaintDevice *device, const QRegion &clip, const QColor &line, const QColor &fill)
{
    const int width = device->width();
    const int height = device->height();
    QPainterPath path(QPointF(45, 18));
    path.lineTo(width - 8, 18);
    path.arcTo(width - 15, 18, 14, 14, 90, -90);
    path.lineTo(width - 1, height - 8);
    path.arcTo(width - 15, height - 15, 14, 14, 0, -90);
    path.lineTo(45, height - 1);
    path.arcTo(38, height - 15, 14, 14, -90, -90);
    path.lineTo(38, 45);
    path.lineTo(0, 25);
    path.lineTo(38, 25);
    path.arcTo(38, 18, 14, 14, 180, -90);
    QPainter painter(device);
    painter.setClipRegion(clip);
    painter.setPen(QPen(line, 1, Qt::SolidLine, Qt::SquareCap, Qt::BevelJoin));
    painter.setBrush(fill);
    painter.drawPath(path);
}

} // namespace

class tst_BalloonTip : public TestCase
{
    Q_OBJECT

private slots:
    void cleanupTestCase()
    {
        QBalloonTip::hideBalloon();
        drainEvents();
    }

    void isAPaleToolTipWindow()
    {
        QVERIFY(!QBalloonTip::isBalloonVisible());
        const QBalloonTip *balloon = shownAt(somewhere);
        QVERIFY(QBalloonTip::isBalloonVisible());
        QVERIFY(balloon->isVisible());
        QVERIFY(!balloon->parentWidget());
        QCOMPARE(balloon->windowFlags() & Qt::WindowType_Mask, Qt::WindowFlags(Qt::ToolTip));
        QCOMPARE(balloon->size(), balloon->sizeHint());
        QCOMPARE(balloon->layout()->sizeConstraint(), QLayout::SetFixedSize);
        QCOMPARE(balloon->layout()->contentsMargins(), QMargins(3, 3, 3, 3));
        for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
            QCOMPARE(balloon->palette().brush(group, QPalette::Window), QBrush(QColor(248, 248, 248, 255)));
            QCOMPARE(balloon->palette().brush(group, QPalette::WindowText), QBrush(QColor(0, 0, 0, 255)));
        }
        const QMetaObject &meta = QBalloonTip::staticMetaObject;
        QCOMPARE(meta.className(), "QBalloonTip");
        QCOMPARE(meta.superClass(), &QWidget::staticMetaObject);
        QCOMPARE(meta.methodCount(), meta.methodOffset());
        QCOMPARE(meta.propertyCount(), meta.propertyOffset());
    }

    void replacesTheFormerBalloon()
    {
        // Without a text it only hides the former one; a blank is a text.
        const QPair<QString, QString> texts[] = {
            {balloonTitle, QString()}, {QString(), balloonMessage}, {QString(), " "}, {QString(), ""}};
        for (const auto &[title, message] : texts) {
            const bool shows = !title.isEmpty() || !message.isEmpty();
            const QPointer<QBalloonTip> former = shownAt(somewhere);
            QBalloonTip::showBalloon(greenPicture(), title, message, somewhere, 1000, true);
            QVERIFY(!former->isVisible());
            QCOMPARE(QBalloonTip::isBalloonVisible(), shows);
            drainEvents(); // only now is the former one deleted
            QVERIFY(!former);
            QCOMPARE(QBalloonTip::isBalloonVisible(), shows);
            QCOMPARE(balloons().size(), shows ? 1 : 0);
        }
    }

    void canBeEndedInAnyWay()
    {
        const QList<std::function<void(QBalloonTip *)>> ways = {
            [](QBalloonTip * /*balloon*/) { QBalloonTip::hideBalloon(); },
            [](QBalloonTip *balloon) { balloon->close(); },
            [](QBalloonTip *balloon) { delete balloon; },
        };
        for (const auto &end : ways) {
            const QPointer<QBalloonTip> balloon = shownAt(somewhere);
            end(balloon);
            QVERIFY(!QBalloonTip::isBalloonVisible());
            drainEvents();
            QVERIFY(!balloon);
            QVERIFY(!QBalloonTip::isBalloonVisible());
            QBalloonTip::hideBalloon(); // nothing is left to hide
        }
        QBalloonTip *balloon = shownAt(somewhere);
        balloon->hide();
        QVERIFY(!QBalloonTip::isBalloonVisible());
        balloon->show();
        QVERIFY(QBalloonTip::isBalloonVisible());
    }

    void nothingElseHidesIt()
    {
        QBalloonTip *balloon = nullptr;
        for (const int timeout : {0, 1, -1}) {
            balloon = shownAt(somewhere, greenPicture(), timeout);
            QVERIFY(QAbstractEventDispatcher::instance()->registeredTimers(balloon).isEmpty());
            QVERIFY(balloon->findChildren<QTimer *>().isEmpty());
        }
        QTimerEvent timer(1); // nor does another timer
        QCoreApplication::sendEvent(balloon, &timer);
        for (const Qt::MouseButton button : {Qt::LeftButton, Qt::RightButton}) {
            QMouseEvent press(QEvent::MouseButtonPress, QPointF(60, 40), button, button, Qt::NoModifier);
            QCoreApplication::sendEvent(balloon, &press);
            QVERIFY(press.isAccepted());
            QTest::mouseRelease(balloon, button);
        }
        drainEvents();
        QVERIFY(QBalloonTip::isBalloonVisible());
        QCOMPARE(balloons(), QList<QBalloonTip *>({balloon}));
    }

    void messageIsInTheLayoutOnlyWithAPicture()
    {
        // The labels without text: the picture, and an empty one beside the pointer, like the spacer.
        const QBalloonTip *balloon = shownAt(somewhere);
        QCOMPARE(contentOf(balloon), QStringList({balloonTitle + " 0 1 1x1 1", " 1 1 1x1 1", " 0 0 1x1 0",
                                                  "spacer 0 0 1x1 0", balloonMessage + " 2 1 1x1 1"}));
        const QLayoutItem *spacer = balloon->layout()->itemAt(3);
        QCOMPARE(spacer->sizeHint(), QSize(40, 20));
        QCOMPARE(spacer->expandingDirections(), Qt::Horizontal);

        balloon = shownAt(somewhere, QImage());
        QCOMPARE(contentOf(balloon),
                 QStringList({balloonTitle + " 0 1 1x2 1", " 0 0 1x1 0", "spacer 0 0 1x1 0"}));
        QCOMPARE(balloon->findChildren<QLabel *>().at(1)->pos(), QPoint(0, 0));
    }

    void labelsHaveTheirProperties()
    {
        const QList<QLabel *> labels = shownAt(somewhere)->findChildren<QLabel *>();
        const QLabel *title = labels.at(0);
        QCOMPARE(title->text(), balloonTitle);
        QCOMPARE(title->textFormat(), Qt::PlainText);
        QVERIFY(title->wordWrap());
        QFont bold = QLabel().font();
        bold.setWeight(75);
        QCOMPARE(title->font(), bold);

        const QLabel *message = labels.at(1);
        QCOMPARE(message->text(), balloonMessage);
        QCOMPARE(message->textFormat(), Qt::PlainText);
        QVERIFY(message->wordWrap());
        QCOMPARE(message->minimumWidth(), 166);
        QCOMPARE(message->maximumWidth(), 166);
        QCOMPARE(message->alignment(), Qt::AlignLeft | Qt::AlignTop);
        QCOMPARE(message->indent(), 1);

        const QLabel *picture = labels.at(2);
        QCOMPARE(picture->minimumSize(), QSize(161, 91));
        QCOMPARE(picture->maximumSize(), QSize(161, 91));
        QVERIFY(picture->hasScaledContents());
        QCOMPARE(picture->pixmap(Qt::ReturnByValue).toImage(), QPixmap::fromImage(greenPicture()).toImage());
        QCOMPARE(picture->styleSheet().simplified(),
                 "QLabel { border-width: 0.1px; border: 1px solid; border-color: #C0C0C0; "
                 "background-color: rgb(255, 255, 255) }");
    }

    void tipIsAtThePosition()
    {
        // In the middle of the screen and at its edges: it may extend beyond the right and the bottom.
        for (const QPoint position :
             {somewhere, QPoint(0, 200), QPoint(300, 30), QPoint(790, 200), QPoint(300, 790)})
            QCOMPARE(shownAt(position)->pos() + QPoint(0, 25), position);
    }

    void marginsFlipNearTheBottom()
    {
        auto *screen = new ScreenElsewhere;
        QWindowSystemInterface::handleScreenAdded(screen, true);
        const QPoint corner = screen->geometry().topLeft();
        const int x = corner.x() + 100;
        const int lowest = lowestUnflipped(shownAt(corner + QPoint(100, 100)));
        const QMargins margins = shownAt(QPoint(x, lowest))->contentsMargins();
        const QMargins flipped = shownAt(QPoint(x, lowest + 1))->contentsMargins();
        const QPoint movedIn = shownAt(QPoint(-1, 200))->pos(); // on no screen
        QBalloonTip::hideBalloon();
        drainEvents();
        QWindowSystemInterface::handleScreenRemoved(screen);
        QCOMPARE(margins, QMargins(4, 21, 4, 3));
        QCOMPARE(flipped, QMargins(4, 3, 4, 21)); // the height counts, and not where the screen ends
        QCOMPARE(movedIn, QPoint(corner.x(), 175));
    }

    void outlineAlwaysHasAPointer()
    {
        QBalloonTip *balloon = nullptr;
        for (const bool showArrow : {false, true}) {
            const QPoint position(300, showArrow ? 200 : 790); // there the margins are flipped
            balloon = shownAt(position, greenPicture(), 1000, showArrow);
            QBitmap mask(balloon->size());
            mask.fill(Qt::color0);
            drawOutline(&mask, mask.rect(), Qt::color1, Qt::color1);
            QCOMPARE(balloon->mask(), QRegion(mask));

            QImage image(balloon->size(), QImage::Format_ARGB32_Premultiplied);
            image.fill(Qt::transparent);
            QImage expected = image;
            const QWidget::RenderFlags alone; // without its children
            balloon->render(&image, balloon->mask().boundingRect().topLeft(), balloon->mask(), alone);
            // The border is the background, darker by 1.6.
            drawOutline(&expected, balloon->mask(), QColor(155, 155, 155), QColor(248, 248, 248));
            QCOMPARE(image, expected);
        }

        // It is drawn for this size; in another one it is stretched.
        balloon->layout()->setSizeConstraint(QLayout::SetNoConstraint);
        balloon->setMinimumSize(0, 0);
        balloon->setMaximumSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
        balloon->resize(balloon->width() * 2, balloon->height());
        const QImage wide = balloon->grab().toImage();
        QCOMPARE(wide.pixelColor(2 * 38, 80), QColor(155, 155, 155));
        QCOMPARE(wide.pixelColor(2 * 38 + 1, 80), QColor(155, 155, 155));
        QCOMPARE(wide.pixelColor(2 * 39 + 2, 80), QColor(248, 248, 248));
    }
};

TEST_CLASS(tst_BalloonTip);
#include "tst_balloontip.moc"
