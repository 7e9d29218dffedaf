// SPDX-License-Identifier: MIT
#include "module/RecentDocumentBrowser.h"
#include "state/FolderPinButton.h"
#include "tests/support/Browser.h"
#include "tests/support/TestCase.h"
#include "ui/RecentDocDialog.h"
#include "ui/RecentDocMainWindow.h"

#include <QCursor>
#include <QDesktopServices>
#include <QDropEvent>
#include <QLabel>
#include <QMimeData>
#include <QPointer>
#include <QUrl>

#include <functional>
#include <memory>

//! Takes the place of the desktop's web browser.
class WebBrowser : public QObject
{
    Q_OBJECT
public:
    WebBrowser() { QDesktopServices::setUrlHandler(QStringLiteral("http"), this, "open"); }
    ~WebBrowser() override { QDesktopServices::unsetUrlHandler(QStringLiteral("http")); }

    QList<QUrl> opened;

public slots:
    void open(const QUrl &url) { opened.append(url); }
};

namespace {

void loseFocus(QWidget *widget)
{
    QFocusEvent event(QEvent::FocusOut, Qt::OtherFocusReason);
    QCoreApplication::sendEvent(widget, &event);
}

void send(QWidget *widget, QEvent::Type type)
{
    QEvent event(type);
    QCoreApplication::sendEvent(widget, &event);
}

//! Two popups over the same documents, the newer of which is gone: the registry's tiles are.
struct Survivor
{
    explicit Survivor(int documents) : browser(documents)
    {
        browser.createDocument();
        popup = browser.openPopup();
        tiles = browser.tiles();
        QCursor::setPos(popup->geometry().center()); // else losing the focus would close it
        const QPointer<RecentDocMainWindow> newer = browser.openPopup();
        newer->done(0);
        drainEvents();
        newerIsGone = !newer;
        popup->activateWindow();
        isActive = waitForActive(popup);
    }

    Browser browser;
    QPointer<RecentDocMainWindow> popup;
    QList<RecentDocDialog *> tiles;
    bool newerIsGone = false;
    bool isActive = false;
};

} // namespace

using SurvivorEvent = std::function<void(const Survivor &)>;
Q_DECLARE_METATYPE(SurvivorEvent)

class TestPopupLife : public TestCase
{
    Q_OBJECT

private slots:
    void closesWhenTheFocusLeavesWithThePointerOutside_data();
    void closesWhenTheFocusLeavesWithThePointerOutside();
    void closesWhenAnotherWindowIsActivated();
    void staysWhileCollapsed();
    void forgetsTheDraggedTileWithTheFocus_data();
    void forgetsTheDraggedTileWithTheFocus();
    void closesWithEscape();
    void takesItsTilesAlongButLeavesTheLists();
    void goesWithTheMainWindow();
    void leavingItWithThePointerKeepsIt();
    void takesNothingThatIsDroppedOnIt();
    void tabMovesNoFocus_data();
    void tabMovesNoFocus();
    void helpOpensTheOnlinePage();
    void theOlderPopupTakesOverWithItsFirstEvent_data();
    void theOlderPopupTakesOverWithItsFirstEvent();
    void aPinInTheOlderOfTwoReachesTheNewerAndTheMenu();
    void doubleClickInTheOlderPopupOpensThere();
    void theNextPopupStartsAfresh();
};

void TestPopupLife::closesWhenTheFocusLeavesWithThePointerOutside_data()
{
    QTest::addColumn<QPoint>("pointer");
    QTest::addColumn<bool>("closes");
    // The popup: one row of four columns in the middle of 1300 x 801.
    const QRect popup(288, 300, 724, 201);
    QTest::newRow("in the middle") << popup.center() << false;
    QTest::newRow("on the first pixel") << popup.topLeft() << false;
    QTest::newRow("on the last pixel") << popup.bottomRight() << false;
    QTest::newRow("left of it") << popup.topLeft() - QPoint(1, 0) << true;
    QTest::newRow("above it") << popup.topLeft() - QPoint(0, 1) << true;
    QTest::newRow("right of it") << popup.bottomRight() + QPoint(1, 0) << true;
    QTest::newRow("below it") << popup.bottomRight() + QPoint(0, 1) << true;
    QTest::newRow("far away") << QPoint(5, 5) << true;
}

void TestPopupLife::closesWhenTheFocusLeavesWithThePointerOutside()
{
    QFETCH(QPoint, pointer);
    QFETCH(bool, closes);
    Browser browser(3);
    browser.host.mainWindow().setGeometry(0, 0, 1300, 801);
    browser.createDocument();
    const QPointer<RecentDocMainWindow> popup = browser.openPopup();
    const QSignalSpy finished(popup, &QDialog::finished);
    drainEvents();
    QCursor::setPos(pointer);
    loseFocus(popup);
    QCOMPARE(popup->isVisible(), !closes);
    QCOMPARE(finished.count(), closes ? 1 : 0);
    if (closes)
        QCOMPARE(finished.first().first().toInt(), int(QDialog::Rejected));
    drainEvents();
    QCOMPARE(popup.isNull(), closes); // deletes itself
}

void TestPopupLife::closesWhenAnotherWindowIsActivated()
{
    Browser browser(1);
    browser.createDocument();
    const QPointer<RecentDocMainWindow> popup = browser.openPopup();
    popup->setFocus();
    QVERIFY(waitForActive(popup));
    QCOMPARE(QApplication::focusWidget(), popup.data());
    QCursor::setPos(5, 5);
    QWidget other;
    other.show();
    other.activateWindow();
    QTRY_VERIFY(!popup);
}

void TestPopupLife::staysWhileCollapsed()
{
    Browser browser(1);
    browser.createDocument();
    const QPointer<RecentDocMainWindow> popup = browser.openPopup();
    popup->isCollapsed = true;
    QCursor::setPos(5, 5);
    loseFocus(popup);
    drainEvents();
    QVERIFY(popup);
    QVERIFY(popup->isVisible());
}

void TestPopupLife::forgetsTheDraggedTileWithTheFocus_data()
{
    QTest::addColumn<bool>("collapsed");
    QTest::addColumn<bool>("pointerIsInside");
    QTest::newRow("collapsed") << true << false;
    QTest::newRow("pointer inside") << false << true;
    QTest::newRow("closing") << false << false;
}

void TestPopupLife::forgetsTheDraggedTileWithTheFocus()
{
    QFETCH(bool, collapsed);
    QFETCH(bool, pointerIsInside);
    Browser browser(1);
    browser.createDocument();
    RecentDocMainWindow *popup = browser.openPopup();
    popup->dragDialog = browser.tiles().at(0);
    popup->isCollapsed = collapsed;
    QCursor::setPos(pointerIsInside ? popup->geometry().center() : QPoint(5, 5));
    loseFocus(popup);
    QVERIFY(!popup->dragDialog);
}

void TestPopupLife::closesWithEscape()
{
    Browser browser(1);
    browser.createDocument();
    const QPointer<RecentDocMainWindow> popup = browser.openPopup();
    QTest::keyClick(popup, Qt::Key_Escape);
    QTRY_VERIFY(!popup);
}

void TestPopupLife::takesItsTilesAlongButLeavesTheLists()
{
    Browser browser(2);
    browser.createDocument();
    RecentDocMainWindow *popup = browser.openPopup();
    const QPointer<RecentDocDialog> tile = browser.tiles().at(0);
    popup->done(0);
    drainEvents();
    QVERIFY(!tile);
    QCOMPARE(browser.tiles().size(), 2); // not to be looked into
    QCOMPARE(RecentDocumentBrowser::docPinButtonList.size(), 2);
    QVERIFY(!RecentDocumentBrowser::getHighlightedRecentDoc());
    QVERIFY(RecentDocumentBrowser::getHighlightedRecentDocPathList().isEmpty());
}

void TestPopupLife::goesWithTheMainWindow()
{
    Browser browser(1);
    browser.createDocument();
    auto mainWindow = std::make_unique<QWidget>();
    const QPointer<RecentDocMainWindow> popup = new RecentDocMainWindow(mainWindow.get());
    popup->show();
    mainWindow.reset();
    QVERIFY(!popup);
}

void TestPopupLife::leavingItWithThePointerKeepsIt()
{
    Browser browser(1);
    browser.createDocument();
    const QPointer<RecentDocMainWindow> popup = browser.openPopup();
    QCursor::setPos(5, 5);
    send(popup, QEvent::Leave);
    drainEvents();
    QVERIFY(popup);
    QVERIFY(popup->isVisible());
}

void TestPopupLife::takesNothingThatIsDroppedOnIt()
{
    Browser browser(1);
    browser.createDocument();
    const QPointer<RecentDocMainWindow> popup = browser.openPopup();
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(browser.path(0))});
    QDropEvent drop(QPointF(20, 20), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    static_cast<QObject *>(popup)->event(&drop); // the application would ask for the drag that it ends
    drainEvents();
    QVERIFY(!drop.isAccepted());
    QVERIFY(popup->isVisible());
    QCOMPARE(browser.host.openedPaths(), QStringList());
}

void TestPopupLife::tabMovesNoFocus_data()
{
    QTest::addColumn<Qt::Key>("key");
    QTest::addColumn<QString>("focused");
    for (const char *name : {"popup", "tile", "pinButton", "folderButton"}) {
        QTest::addRow("Tab on a %s", name) << Qt::Key_Tab << QString::fromLatin1(name);
        QTest::addRow("Shift+Tab on a %s", name) << Qt::Key_Backtab << QString::fromLatin1(name);
    }
}

void TestPopupLife::tabMovesNoFocus()
{
    QFETCH(Qt::Key, key);
    QFETCH(QString, focused);
    Browser browser(3);
    browser.createDocument();
    RecentDocMainWindow *popup = browser.openPopup();
    QVERIFY(waitForActive(popup));
    RecentDocDialog *tile = browser.tiles().at(1);
    QWidget *widget = tile->findChild<QWidget *>(focused);
    if (focused == QLatin1String("popup"))
        widget = popup;
    else if (focused == QLatin1String("tile"))
        widget = tile;
    QVERIFY(widget);
    widget->setFocus();
    QCOMPARE(QApplication::focusWidget(), widget);
    QTest::keyClick(widget, key);
    drainEvents();
    QCOMPARE(QApplication::focusWidget(), widget);
}

void TestPopupLife::helpOpensTheOnlinePage()
{
    Browser browser;
    RecentDocMainWindow popup(&browser.host.mainWindow());
    WebBrowser web;
    QVERIFY(QMetaObject::invokeMethod(&popup, "help"));
    QCOMPARE(web.opened.size(), 1);
    const QUrl page = web.opened.first();
    QCOMPARE(page.scheme(), QStringLiteral("http"));
    QVERIFY(!page.host().isEmpty());
    QCOMPARE(page.toString(QUrl::RemoveScheme | QUrl::RemoveAuthority),
             QStringLiteral("/2014/english/Pelorin/pelorapp/c_browsing_recent_and_open_documents.htm"
                            "?rid=141131"));
}

void TestPopupLife::theOlderPopupTakesOverWithItsFirstEvent_data()
{
    QTest::addColumn<SurvivorEvent>("event");
    const auto toTile = [](QEvent::Type type) {
        return SurvivorEvent([type](const Survivor &older) { send(older.tiles.at(2), type); });
    };
    QTest::newRow("the pointer on a tile") << toTile(QEvent::Enter);
    QTest::newRow("the pointer leaves a tile") << toTile(QEvent::Leave);
    QTest::newRow("the focus on a tile")
        << SurvivorEvent([](const Survivor &older) { older.tiles.at(2)->setFocus(); });
    QTest::newRow("a press") << SurvivorEvent(
        [](const Survivor &older) { QTest::mousePress(older.tiles.at(2), Qt::LeftButton); });
    QTest::newRow("a release") << SurvivorEvent(
        [](const Survivor &older) { QTest::mouseRelease(older.tiles.at(2), Qt::LeftButton); });
    QTest::newRow("a key") << SurvivorEvent(
        [](const Survivor &older) { QTest::keyClick(older.popup, Qt::Key_F1); });
    QTest::newRow("a pin") << SurvivorEvent(
        [](const Survivor &older) { Browser::button(older.tiles.at(2), "pinButton")->click(); });
}

void TestPopupLife::theOlderPopupTakesOverWithItsFirstEvent()
{
    QFETCH(SurvivorEvent, event);
    Survivor older(4);
    QVERIFY(older.newerIsGone && older.isActive);
    QVERIFY(!RecentDocMainWindow::docPathLabel);
    event(older);
    QCOMPARE(RecentDocumentBrowser::recentDocDialogList, older.tiles);
    QList<FolderPinButton *> pins;
    for (const RecentDocDialog *tile : qAsConst(older.tiles))
        pins.append(Browser::button(tile, "pinButton"));
    QCOMPARE(RecentDocumentBrowser::docPinButtonList, pins);
    QCOMPARE(RecentDocMainWindow::docPathLabel.data(), older.popup->main_label_path);

    // From now on it works like an only popup.
    QTest::mouseClick(older.tiles.at(1), Qt::LeftButton);
    QTest::keyClick(older.popup, Qt::Key_Right);
    QCOMPARE(RecentDocumentBrowser::getHighlightedRecentDocPathList(), {older.browser.path(2)});
    QCOMPARE(older.popup->main_label_path->text(), older.browser.path(2));
    Browser::button(older.tiles.at(3), "pinButton")->click();
    QVERIFY(RecentDocumentBrowser::menuPinButtonList.at(3)->isChecked());
    QTest::keyClick(older.popup, Qt::Key_Return);
    QCOMPARE(older.browser.host.openedPaths(), {older.browser.path(2)});
    QTRY_VERIFY(!older.popup);
}

void TestPopupLife::aPinInTheOlderOfTwoReachesTheNewerAndTheMenu()
{
    Browser browser(3);
    browser.createDocument();
    const RecentDocMainWindow *older = browser.openPopup();
    const QList<RecentDocDialog *> tiles = browser.tiles();
    QCursor::setPos(older->geometry().center()); // else losing the focus would close it
    browser.openPopup();
    const auto pinsOf = [](const QList<FolderPinButton *> &buttons) {
        QList<bool> pinned;
        for (const FolderPinButton *button : buttons)
            pinned.append(button->isChecked());
        return pinned;
    };
    RecentDocumentBrowser::docPinButtonList.prepend(nullptr); // which is passed over
    for (const QList<bool> &pinned : {QList<bool>{false, true, false}, QList<bool>{false, false, false}}) {
        Browser::button(tiles.at(1), "pinButton")->click();
        QCOMPARE(pinsOf(RecentDocumentBrowser::docPinButtonList.mid(1)), pinned);
        QCOMPARE(pinsOf(RecentDocumentBrowser::menuPinButtonList), pinned);
    }
}

void TestPopupLife::doubleClickInTheOlderPopupOpensThere()
{
    Survivor older(2);
    QVERIFY(older.newerIsGone);
    QTest::mouseDClick(older.tiles.at(1), Qt::LeftButton);
    QCOMPARE(older.browser.host.openedPaths(), QStringList(older.browser.path(1)));
    QTRY_VERIFY(!older.popup);
}

void TestPopupLife::theNextPopupStartsAfresh()
{
    Survivor older(3);
    QVERIFY(older.newerIsGone);
    RecentDocMainWindow *third = older.browser.openPopup();
    QCOMPARE(RecentDocMainWindow::docPathLabel.data(), third->main_label_path);
    QCOMPARE(RecentDocumentBrowser::getHighlightedRecentDoc(), older.browser.tiles().at(0));
    QCOMPARE(older.browser.tiles().at(0)->parentWidget(), third);
    QCOMPARE(RecentDocumentBrowser::docPinButtonList.size(), 3);
}

QTEST_MAIN(TestPopupLife)
#include "tst_popuplife.moc"
