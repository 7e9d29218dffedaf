// SPDX-License-Identifier: MIT
#include "module/RecentDocumentBrowser.h"
#include "state/FolderPinButton.h"
#include "tests/support/FocusReasons.h"
#include "tests/support/TestCase.h"
#include "ui/QBalloonTip.h"

#include <QApplication>
#include <QTimer>

namespace {

const QString menuText = QStringLiteral("&3 /my drawings/a plan.dwg");
const QString menuPath = QStringLiteral("/my drawings/a plan.dwg");

//! A button in a tile in a window.
struct ButtonInTile
{
    explicit ButtonInTile(const QString &name = QStringLiteral("pinButton"))
    {
        tile->setObjectName(QStringLiteral("RecentDocDialog"));
        tile->setGeometry(30, 40, 161, 131);
        button->setObjectName(name);
        button->setGeometry(7, 9, 21, 21);
        button->setTipText(QStringLiteral("a tip"));
        button->setText(menuText);
        window.setGeometry(0, 0, 300, 200);
    }
    void enter() const { send(QEvent::Enter); }
    void leave() const { send(QEvent::Leave); }
    QList<QTimer *> timers() const { return button->findChildren<QTimer *>(); }

    QString path = menuPath;
    QWidget window;
    QWidget *tile = new QWidget(&window);
    FolderPinButton *button = new FolderPinButton(tile, path);

private:
    void send(QEvent::Type type) const
    {
        QEvent event(type);
        QCoreApplication::sendEvent(button, &event);
    }
};

bool anyBalloonExists()
{
    const QWidgetList windows = QApplication::topLevelWidgets();
    return std::any_of(windows.begin(), windows.end(),
                       [](const QWidget *window) { return qobject_cast<const QBalloonTip *>(window); });
}

} // namespace

//! What a pointer over a button does, and the balloon that is prepared and never shown.
class tst_ButtonHover : public TestCase
{
    Q_OBJECT

private slots:
    void cleanup();

    void enteringGivesTheFocusToTheGrandparent();
    void enteringAButtonWithoutGrandparentIsHarmless();
    void enteringStartsATimerOfHalfASecond();
    void everyEntryStartsATimerOfItsOwn();
    void leavingStopsTheLatestTimer();
    void leavingBeforeEverEnteringIsHarmless();
    void leavingHidesWhateverBalloonIsUp();
    void restingOnAButtonShowsNoBalloon_data();
    void restingOnAButtonShowsNoBalloon();
    void restingOnAMenuTextMakesTheFileNameItsTip();
    void aBalloonOfAPlainButtonWouldShowItsTip_data();
    void aBalloonOfAPlainButtonWouldShowItsTip();
    void aBalloonOfAMenuTextWouldShowNameAndPicture_data();
    void aBalloonOfAMenuTextWouldShowNameAndPicture();
    void aBalloonOfACheckedButtonWouldOfferToUnpin_data();
    void aBalloonOfACheckedButtonWouldOfferToUnpin();
};

void tst_ButtonHover::cleanup()
{
    QBalloonTip::hideBalloon();
    drainEvents();
    RecentDocumentBrowser::recentFileImageMap.clear();
    TestCase::cleanup();
}

void tst_ButtonHover::enteringGivesTheFocusToTheGrandparent()
{
    ButtonInTile hovered;
    hovered.window.show();
    QVERIFY(waitForActive(&hovered.window));
    hovered.button->setFocus();
    const FocusReasons focus(hovered.window);
    hovered.enter();
    QCOMPARE(QApplication::focusWidget(), &hovered.window);
    QCOMPARE(focus.reasons, QList<Qt::FocusReason>{Qt::OtherFocusReason});
}

void tst_ButtonHover::enteringAButtonWithoutGrandparentIsHarmless()
{
    QString path = menuPath;
    FolderPinButton orphan(nullptr, path);
    QWidget parent;
    FolderPinButton child(&parent, path);
    for (FolderPinButton *button : {&orphan, &child}) {
        QEvent event(QEvent::Enter);
        QCoreApplication::sendEvent(button, &event);
        QCOMPARE(button->findChildren<QTimer *>().size(), 1);
        QVERIFY(QMetaObject::invokeMethod(button, "showBalloonTip"));
    }
}

void tst_ButtonHover::enteringStartsATimerOfHalfASecond()
{
    const ButtonInTile hovered;
    QVERIFY(hovered.timers().isEmpty());
    hovered.enter();
    QCOMPARE(hovered.timers().size(), 1);
    const QTimer *timer = hovered.timers().constFirst();
    QVERIFY(timer->isActive());
    QVERIFY(timer->isSingleShot());
    QCOMPARE(timer->interval(), 500);
}

void tst_ButtonHover::everyEntryStartsATimerOfItsOwn()
{
    const ButtonInTile hovered;
    hovered.enter();
    QTimer *first = hovered.timers().constFirst();
    hovered.enter();
    QCOMPARE(hovered.timers().size(), 2);
    QVERIFY(hovered.timers().contains(first));
    QVERIFY(first->isActive()); // the former one is left to run out
}

void tst_ButtonHover::leavingStopsTheLatestTimer()
{
    const ButtonInTile hovered;
    hovered.enter();
    const QTimer *first = hovered.timers().constFirst();
    hovered.enter();
    hovered.leave();
    const QList<QTimer *> timers = hovered.timers();
    QCOMPARE(timers.size(), 2);
    for (const QTimer *timer : timers)
        QCOMPARE(timer->isActive(), timer == first);
}

void tst_ButtonHover::leavingBeforeEverEnteringIsHarmless()
{
    const ButtonInTile hovered;
    hovered.leave();
    QVERIFY(hovered.timers().isEmpty());
}

void tst_ButtonHover::leavingHidesWhateverBalloonIsUp()
{
    const ButtonInTile hovered;
    hovered.enter();
    QBalloonTip::showBalloon(QImage(), QStringLiteral("title"), QStringLiteral("text"), QPoint(50, 50), 0,
                             true);
    QVERIFY(QBalloonTip::isBalloonVisible());
    hovered.leave();
    QVERIFY(!QBalloonTip::isBalloonVisible());
}

void tst_ButtonHover::restingOnAButtonShowsNoBalloon_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("checked");
    QTest::newRow("a pin") << QStringLiteral("pinButton") << false;
    QTest::newRow("a pin that is down") << QStringLiteral("pinButton") << true;
    QTest::newRow("a folder") << QStringLiteral("folderButton") << false;
    QTest::newRow("a menu text") << QStringLiteral("menuTextButton") << false;
}

void tst_ButtonHover::restingOnAButtonShowsNoBalloon()
{
    QFETCH(QString, name);
    QFETCH(bool, checked);
    const ButtonInTile hovered(name);
    hovered.button->setCheckable(checked);
    hovered.button->setChecked(checked);
    hovered.enter();
    QSignalSpy timeout(hovered.timers().constFirst(), &QTimer::timeout);
    QVERIFY(timeout.wait(patience));
    drainEvents();
    QVERIFY(!anyBalloonExists());
    QVERIFY(!hovered.timers().constFirst()->isActive());
}

void tst_ButtonHover::restingOnAMenuTextMakesTheFileNameItsTip()
{
    const ButtonInTile hovered(QStringLiteral("menuTextButton"));
    hovered.enter();
    QTRY_COMPARE(hovered.button->tipText(), QStringLiteral("a plan.dwg"));
    QCOMPARE(hovered.button->path(), menuPath);
}

void tst_ButtonHover::aBalloonOfAPlainButtonWouldShowItsTip_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QSize>("size");
    QTest::addColumn<QPoint>("centre");
    QTest::newRow("a pin") << QStringLiteral("pinButton") << QSize(21, 21) << QPoint(10, 10);
    QTest::newRow("a folder") << QStringLiteral("folderButton") << QSize(21, 21) << QPoint(10, 10);
    QTest::newRow("even lengths") << QStringLiteral("pinButton") << QSize(20, 32) << QPoint(9, 15);
    QTest::newRow("one pixel") << QStringLiteral("pinButton") << QSize(1, 1) << QPoint(0, 0);
}

void tst_ButtonHover::aBalloonOfAPlainButtonWouldShowItsTip()
{
    QFETCH(QString, name);
    QFETCH(QSize, size);
    QFETCH(QPoint, centre);
    const ButtonInTile hovered(name);
    hovered.button->resize(size);
    RecentDocumentBrowser::recentFileImageMap.insert(menuPath, QImage(2, 2, QImage::Format_RGB32));
    const FolderPinButton::BalloonContent balloon = hovered.button->prepareBalloon();
    QVERIFY(balloon.image.isNull());
    QVERIFY(balloon.title.isEmpty());
    QCOMPARE(balloon.message, QStringLiteral("a tip"));
    QCOMPARE(balloon.position, hovered.button->mapToGlobal(centre));
    QCOMPARE(hovered.button->tipText(), QStringLiteral("a tip"));
}

void tst_ButtonHover::aBalloonOfAMenuTextWouldShowNameAndPicture_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("cachedPath");
    QTest::addColumn<QString>("name");
    QTest::newRow("a cached document") << menuText << menuPath << QStringLiteral("a plan.dwg");
    QTest::newRow("a document that is not cached") << menuText << QString() << QStringLiteral("a plan.dwg");
    QTest::newRow("two digits") << QStringLiteral("&12 /d/b.dwg") << QStringLiteral("/d/b.dwg")
                                << QStringLiteral("b.dwg");
    QTest::newRow("no blank") << QStringLiteral("/d/b.dwg") << QStringLiteral("/d/b.dwg")
                              << QStringLiteral("b.dwg");
    QTest::newRow("a folder's path") << QStringLiteral("&1 /d/") << QString() << QString();
}

void tst_ButtonHover::aBalloonOfAMenuTextWouldShowNameAndPicture()
{
    QFETCH(QString, text);
    QFETCH(QString, cachedPath);
    QFETCH(QString, name);
    const ButtonInTile hovered(QStringLiteral("menuTextButton"));
    hovered.button->setText(text);
    QImage picture(2, 3, QImage::Format_RGB32);
    picture.fill(Qt::green);
    if (!cachedPath.isEmpty())
        RecentDocumentBrowser::recentFileImageMap.insert(cachedPath, picture);
    const FolderPinButton::BalloonContent balloon = hovered.button->prepareBalloon();
    QCOMPARE(balloon.image, cachedPath.isEmpty() ? QImage() : picture);
    QVERIFY(balloon.title.isEmpty());
    QCOMPARE(balloon.message, name);
    QCOMPARE(hovered.button->tipText(), name);
    // The entry's lower right, but measured from the button.
    QCOMPARE(balloon.position, hovered.button->mapToGlobal(QPoint(161 - 1, 131 - 11)));
    QCOMPARE(RecentDocumentBrowser::recentFileImageMap.size(), cachedPath.isEmpty() ? 0 : 1);
}

void tst_ButtonHover::aBalloonOfACheckedButtonWouldOfferToUnpin_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("tip");
    QTest::newRow("a pin") << QStringLiteral("pinButton") << QStringLiteral("a tip");
    QTest::newRow("a menu text") << QStringLiteral("menuTextButton") << QStringLiteral("a plan.dwg");
}

void tst_ButtonHover::aBalloonOfACheckedButtonWouldOfferToUnpin()
{
    QFETCH(QString, name);
    QFETCH(QString, tip);
    const ButtonInTile hovered(name);
    hovered.button->setCheckable(true);
    hovered.button->setChecked(true);
    QCOMPARE(hovered.button->prepareBalloon().message,
             QStringLiteral("Unpin this document from the Recent Documents list"));
    QCOMPARE(hovered.button->tipText(), tip);
}

QTEST_MAIN(tst_ButtonHover)
#include "tst_buttonhover.moc"
