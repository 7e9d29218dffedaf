// SPDX-License-Identifier: MIT
#include "ui/QBalloonTip.h"

#include "tests/support/TestCase.h"

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QGridLayout>
#include <QLabel>
#include <QMouseEvent>
#include <QPointer>
#include <QTranslator>

namespace {

const QString title = QStringLiteral("Gear");
const QString message = QStringLiteral("Pin this document to the Recent Documents list");

QImage picture()
{
    QImage image(64, 48, QImage::Format_RGB32);
    image.fill(Qt::darkGreen);
    return image;
}

//! The balloons that exist, deleted ones that are still waiting for it included.
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

//! Leaves no balloon behind.
void clear()
{
    QBalloonTip::hideBalloon();
    drainEvents();
}

//! Shows a balloon in place of all before and returns it; null when there is not exactly one.
QBalloonTip *show(const QImage &icon = picture())
{
    clear();
    QBalloonTip::showBalloon(icon, title, message, QPoint(100, 100), 1000, true);
    return balloons().size() == 1 ? balloons().at(0) : nullptr;
}

QLabel *labelWithText(const QWidget *balloon, const QString &text)
{
    const QList<QLabel *> labels = balloon->findChildren<QLabel *>();
    for (QLabel *label : labels) {
        if (label->text() == text)
            return label;
    }
    return nullptr;
}

//! What stands in a cell of the balloon's layout: "label", "spacer", each with its extent and alignment.
QStringList contentOf(const QWidget *balloon, int atRow, int atColumn)
{
    QStringList content;
    auto *layout = qobject_cast<QGridLayout *>(balloon->layout());
    for (int i = 0; layout && i < layout->count(); ++i) {
        int row = 0;
        int column = 0;
        int rows = 0;
        int columns = 0;
        layout->getItemPosition(i, &row, &column, &rows, &columns);
        if (row == atRow && column == atColumn) {
            QLayoutItem *item = layout->itemAt(i);
            content.append(QStringLiteral("%1 %2x%3 0x%4")
                               .arg(item->spacerItem() ? QLatin1String("spacer") : QLatin1String("label"))
                               .arg(rows)
                               .arg(columns)
                               .arg(static_cast<int>(item->alignment()), 0, 16));
        }
    }
    return content;
}

QWidget *widgetAt(const QWidget *balloon, int row, int column)
{
    const auto *layout = qobject_cast<QGridLayout *>(balloon->layout());
    QLayoutItem *item = layout ? layout->itemAtPosition(row, column) : nullptr;
    return item ? item->widget() : nullptr;
}

} // namespace

class TestBalloonTip : public TestCase
{
    Q_OBJECT

private slots:
    void cleanupTestCase();
    void noBalloonAtFirst();
    void isATooltipWindowOfItsOwn();
    void offersNothingThroughItsMetaObject();
    void showsWithTitleOrMessage_data();
    void showsWithTitleOrMessage();
    void withoutTextItOnlyHidesTheFormer();
    void hidingDeletesIt();
    void hidingNothingIsHarmless();
    void thereIsOneAtATime();
    void closingItOtherwiseIsNoticed();
    void hidingItsWindowIsNoticed();
    void noTimeoutHidesIt_data();
    void noTimeoutHidesIt();
    void clicksEndInIt();
    void titleIsBold();
    void messageHasAFixedWidth();
    void textsAreNoMarkup();
    void pictureHasAFixedSize();
    void cellsWithAPicture();
    void cellsWithoutAPicture();
    void layoutHasItsMeasures();
    void paletteIsPale();
};

void TestBalloonTip::cleanupTestCase()
{
    clear();
}

void TestBalloonTip::noBalloonAtFirst()
{
    QVERIFY(!QBalloonTip::isBalloonVisible());
}

void TestBalloonTip::isATooltipWindowOfItsOwn()
{
    const QBalloonTip *balloon = show();
    QVERIFY(balloon);
    QVERIFY(QBalloonTip::isBalloonVisible());
    QVERIFY(balloon->isVisible());
    QVERIFY(!balloon->parentWidget());
    QCOMPARE(balloon->windowFlags() & Qt::WindowType_Mask, Qt::WindowFlags(Qt::ToolTip));
    QVERIFY(balloon->testAttribute(Qt::WA_DeleteOnClose));
}

void TestBalloonTip::offersNothingThroughItsMetaObject()
{
    const QMetaObject &meta = QBalloonTip::staticMetaObject;
    QCOMPARE(meta.className(), "QBalloonTip");
    QCOMPARE(meta.superClass(), &QWidget::staticMetaObject);
    QCOMPARE(meta.methodCount(), meta.methodOffset());
    QCOMPARE(meta.propertyCount(), meta.propertyOffset());
}

void TestBalloonTip::showsWithTitleOrMessage_data()
{
    QTest::addColumn<QString>("titleText");
    QTest::addColumn<QString>("messageText");
    QTest::addColumn<bool>("shows");
    QTest::newRow("both") << title << message << true;
    QTest::newRow("title alone") << title << QString() << true;
    QTest::newRow("message alone") << QString() << message << true;
    QTest::newRow("a blank") << QString() << QStringLiteral(" ") << true;
    QTest::newRow("neither") << QString() << QString() << false;
    QTest::newRow("empty texts") << QString(QLatin1String("")) << QString(QLatin1String("")) << false;
}

void TestBalloonTip::showsWithTitleOrMessage()
{
    QFETCH(QString, titleText);
    QFETCH(QString, messageText);
    QFETCH(bool, shows);
    clear();
    QBalloonTip::showBalloon(picture(), titleText, messageText, QPoint(100, 100), 1000, true);
    QCOMPARE(QBalloonTip::isBalloonVisible(), shows);
    QCOMPARE(balloons().size(), shows ? 1 : 0);
}

void TestBalloonTip::withoutTextItOnlyHidesTheFormer()
{
    const QPointer<QBalloonTip> former = show();
    QBalloonTip::showBalloon(picture(), QString(), QString(), QPoint(100, 100), 1000, true);
    QVERIFY(!QBalloonTip::isBalloonVisible());
    drainEvents();
    QVERIFY(!former);
    QVERIFY(balloons().isEmpty());
}

void TestBalloonTip::hidingDeletesIt()
{
    const QPointer<QBalloonTip> balloon = show();
    QBalloonTip::hideBalloon();
    QVERIFY(!QBalloonTip::isBalloonVisible());
    QVERIFY(!balloon->isVisible());
    drainEvents();
    QVERIFY(!balloon);
    QVERIFY(!QBalloonTip::isBalloonVisible());
}

void TestBalloonTip::hidingNothingIsHarmless()
{
    clear();
    QBalloonTip::hideBalloon();
    QVERIFY(!QBalloonTip::isBalloonVisible());
    show();
    QBalloonTip::hideBalloon();
    QBalloonTip::hideBalloon();
    QVERIFY(!QBalloonTip::isBalloonVisible());
}

void TestBalloonTip::thereIsOneAtATime()
{
    const QPointer<QBalloonTip> former = show();
    QBalloonTip::showBalloon(picture(), title, message, QPoint(300, 200), 1000, true);
    QVERIFY(!former->isVisible());
    QVERIFY(QBalloonTip::isBalloonVisible());
    drainEvents(); // the former is deleted now, when the next one is up
    QVERIFY(!former);
    QVERIFY(QBalloonTip::isBalloonVisible());
    QCOMPARE(balloons().size(), 1);
    QBalloonTip::hideBalloon();
    drainEvents();
    QVERIFY(balloons().isEmpty());
}

void TestBalloonTip::closingItOtherwiseIsNoticed()
{
    const QPointer<QBalloonTip> balloon = show();
    balloon->close();
    QVERIFY(!QBalloonTip::isBalloonVisible());
    drainEvents();
    QVERIFY(!balloon);
    QVERIFY(!QBalloonTip::isBalloonVisible());
    QBalloonTip::hideBalloon(); // nothing is left to hide

    delete show();
    QVERIFY(!QBalloonTip::isBalloonVisible());
    QBalloonTip::hideBalloon();
    QVERIFY(show());
}

void TestBalloonTip::hidingItsWindowIsNoticed()
{
    QBalloonTip *balloon = show();
    balloon->hide();
    QVERIFY(!QBalloonTip::isBalloonVisible());
    balloon->show();
    QVERIFY(QBalloonTip::isBalloonVisible());
}

void TestBalloonTip::noTimeoutHidesIt_data()
{
    QTest::addColumn<int>("timeout");
    QTest::newRow("at once") << 0;
    QTest::newRow("soon") << 1;
    QTest::newRow("negative") << -1;
}

void TestBalloonTip::noTimeoutHidesIt()
{
    QFETCH(int, timeout);
    clear();
    QBalloonTip::showBalloon(picture(), title, message, QPoint(100, 100), timeout, true);
    QVERIFY(QAbstractEventDispatcher::instance()->registeredTimers(balloons().at(0)).isEmpty());
    QVERIFY(balloons().at(0)->findChildren<QTimer *>().isEmpty());
    QTimerEvent event(1);
    QCoreApplication::sendEvent(balloons().at(0), &event); // not even a timer of somebody's
    drainEvents();
    QVERIFY(QBalloonTip::isBalloonVisible());
}

void TestBalloonTip::clicksEndInIt()
{
    QBalloonTip *balloon = show();
    for (const Qt::MouseButton button : {Qt::LeftButton, Qt::RightButton}) {
        QMouseEvent press(QEvent::MouseButtonPress, QPointF(60, 40), button, button, Qt::NoModifier);
        QCoreApplication::sendEvent(balloon, &press);
        QVERIFY(press.isAccepted());
        QTest::mouseClick(balloon, button);
    }
    drainEvents();
    QVERIFY(QBalloonTip::isBalloonVisible());
    QCOMPARE(balloons(), QList<QBalloonTip *>({balloon}));
}

void TestBalloonTip::titleIsBold()
{
    const QBalloonTip *balloon = show();
    const QLabel *label = labelWithText(balloon, title);
    QVERIFY(label);
    QCOMPARE(label->parentWidget(), balloon);
    QVERIFY(label->wordWrap());
    QFont bold = QLabel().font();
    bold.setWeight(75);
    QCOMPARE(label->font(), bold);
}

void TestBalloonTip::messageHasAFixedWidth()
{
    const QBalloonTip *balloon = show();
    const QLabel *label = labelWithText(balloon, message);
    QVERIFY(label);
    QCOMPARE(label->parentWidget(), balloon);
    QCOMPARE(label->minimumWidth(), 166);
    QCOMPARE(label->maximumWidth(), 166);
    QCOMPARE(label->alignment(), Qt::AlignLeft | Qt::AlignTop);
    QVERIFY(label->wordWrap());
    QCOMPARE(label->indent(), 1);
}

void TestBalloonTip::textsAreNoMarkup()
{
    const QString markup = QStringLiteral("<b>x</b>");
    clear();
    QBalloonTip::showBalloon(picture(), markup, markup + markup, QPoint(100, 100), 1000, true);
    for (const QString &text : {markup, markup + markup}) {
        const QLabel *label = labelWithText(balloons().at(0), text);
        QVERIFY(label);
        QCOMPARE(label->textFormat(), Qt::PlainText);
    }
}

void TestBalloonTip::pictureHasAFixedSize()
{
    const QBalloonTip *balloon = show();
    const auto *label = qobject_cast<QLabel *>(widgetAt(balloon, 1, 1));
    QVERIFY(label);
    QCOMPARE(label->minimumSize(), QSize(161, 91));
    QCOMPARE(label->maximumSize(), QSize(161, 91));
    QVERIFY(label->hasScaledContents());
    QCOMPARE(label->pixmap(Qt::ReturnByValue).toImage(), QPixmap::fromImage(picture()).toImage());
    QCOMPARE(label->styleSheet(), QStringLiteral("QLabel {"
                                                 "                    border-width: 0.1px;"
                                                 "                    border: 1px solid;"
                                                 "                    border-color: #C0C0C0;"
                                                 "                    background-color: rgb(255, 255, 255)"
                                                 "                        }"));
}

void TestBalloonTip::cellsWithAPicture()
{
    const QBalloonTip *balloon = show();
    QVERIFY(balloon->layout());
    QCOMPARE(balloon->layout()->count(), 5);
    QCOMPARE(contentOf(balloon, 0, 0), QStringList({"label 1x1 0x0", "spacer 1x1 0x0"}));
    QCOMPARE(contentOf(balloon, 0, 1), QStringList("label 1x1 0x1")); // Qt::AlignLeft is 1
    QCOMPARE(contentOf(balloon, 1, 1), QStringList("label 1x1 0x1"));
    QCOMPARE(contentOf(balloon, 2, 1), QStringList("label 1x1 0x1"));
    QCOMPARE(widgetAt(balloon, 0, 1), labelWithText(balloon, title));
    QCOMPARE(widgetAt(balloon, 2, 1), labelWithText(balloon, message));
    for (int i = 0; i < balloon->layout()->count(); ++i) {
        if (const QSpacerItem *spacer = balloon->layout()->itemAt(i)->spacerItem()) {
            QCOMPARE(spacer->sizeHint(), QSize(40, 20));
            QCOMPARE(spacer->sizePolicy(), QSizePolicy(QSizePolicy::Expanding, QSizePolicy::Minimum));
        }
    }
}

void TestBalloonTip::cellsWithoutAPicture()
{
    const QBalloonTip *balloon = show(QImage());
    QVERIFY(balloon->layout());
    QCOMPARE(balloon->layout()->count(), 3);
    QCOMPARE(contentOf(balloon, 0, 0), QStringList({"label 1x1 0x0", "spacer 1x1 0x0"}));
    QCOMPARE(contentOf(balloon, 0, 1), QStringList("label 1x2 0x1"));
    QCOMPARE(widgetAt(balloon, 0, 1), labelWithText(balloon, title));
    const QLabel *text = labelWithText(balloon, message); // on the balloon, but not in its layout
    QVERIFY(text);
    QCOMPARE(text->parentWidget(), balloon);
    QCOMPARE(balloon->layout()->indexOf(const_cast<QLabel *>(text)), -1);
    drainEvents();
    QCOMPARE(text->pos(), QPoint(0, 0));
}

void TestBalloonTip::layoutHasItsMeasures()
{
    const QBalloonTip *balloon = show();
    QCOMPARE(balloon->layout()->sizeConstraint(), QLayout::SetFixedSize);
    QCOMPARE(balloon->layout()->contentsMargins(), QMargins(3, 3, 3, 3));
    drainEvents();
    QCOMPARE(balloon->size(), balloon->sizeHint());
}

void TestBalloonTip::paletteIsPale()
{
    const QBalloonTip *balloon = show();
    for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
        QCOMPARE(balloon->palette().brush(group, QPalette::Window), QBrush(QColor(248, 248, 248, 255)));
        QCOMPARE(balloon->palette().brush(group, QPalette::WindowText), QBrush(QColor(0, 0, 0, 255)));
    }
}

QTEST_MAIN(TestBalloonTip)
#include "tst_balloontip.moc"
