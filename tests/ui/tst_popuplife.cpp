// SPDX-License-Identifier: MIT
#include "state/FolderPinButton.h"
#include "tests/ui/OpenGrid.h"

#include <QDesktopServices>
#include <QDropEvent>
#include <QMimeData>
#include <QUrl>

#include <functional>
#include <memory>

//! Replaces the desktop's web browser.
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

//! The older of two popups over the same documents, after the newer one and its tiles in the registry were
//! deleted.
struct SurvivingPopup : OpenGrid
{
    explicit SurvivingPopup(int documents) : OpenGrid(documents)
    {
        QCursor::setPos(popup->geometry().center()); // else losing the focus would close it
        const QPointer<RecentDocMainWindow> newer = browser.openPopup();
        newer->done(0);
        drainEvents();
        popup->activateWindow();
        isReady = !newer && waitForActive(popup);
    }
    bool isReady = false;
};

} // namespace

using SurvivorEvent = std::function<void(const SurvivingPopup &)>;
Q_DECLARE_METATYPE(SurvivorEvent)

//! When the popup closes, what is deleted with it, and how an older one continues.
class tst_PopupLife : public TestCase
{
    Q_OBJECT

private slots:
    void closesWhenTheFocusLeavesWithThePointerOutside_data()
    {
        QTest::addColumn<QPoint>("pointer");
        QTest::addColumn<bool>("isCollapsed");
        QTest::addColumn<bool>("closes");
        // The popup: one row of four columns in the middle of 1300 x 801.
        const QRect popup(288, 300, 724, 201);
        QTest::newRow("on the first pixel") << popup.topLeft() << false << false;
        QTest::newRow("on the last pixel") << popup.bottomRight() << false << false;
        QTest::newRow("left of it") << popup.topLeft() - QPoint(1, 0) << false << true;
        QTest::newRow("above it") << popup.topLeft() - QPoint(0, 1) << false << true;
        QTest::newRow("right of it") << popup.bottomRight() + QPoint(1, 0) << false << true;
        QTest::newRow("below it") << popup.bottomRight() + QPoint(0, 1) << false << true;
        QTest::newRow("outside of the strip") << QPoint(5, 5) << true << false;
    }

    void closesWhenTheFocusLeavesWithThePointerOutside()
    {
        QFETCH(QPoint, pointer);
        QFETCH(bool, isCollapsed);
        QFETCH(bool, closes);
        const UnshownPopup made(3, QRect(0, 0, 1300, 801));
        made.popup->show();
        const QSignalSpy finished(made.popup, &QDialog::finished);
        drainEvents();
        made.popup->isCollapsed = isCollapsed;
        made.popup->dragDialog = made.tiles.at(0);
        QCursor::setPos(pointer);
        loseFocus(made.popup);
        QVERIFY(!made.popup->dragDialog); // reset in any case
        QCOMPARE(made.popup->isVisible(), !closes);
        QCOMPARE(finished, closes ? QList<QVariantList>{{int(QDialog::Rejected)}} : QList<QVariantList>());
        drainEvents();
        QCOMPARE(made.popup.isNull(), closes); // deletes itself
    }

    void closesWhenAnotherWindowIsActivated()
    {
        const OpenGrid grid(1);
        grid.popup->setFocus();
        QVERIFY(waitForActive(grid.popup));
        QCOMPARE(QApplication::focusWidget(), grid.popup.data());
        QCursor::setPos(5, 5);
        QWidget other;
        other.show();
        other.activateWindow();
        QTRY_VERIFY(!grid.popup);
    }

    void closingDeletesTheTilesButLeavesTheLists()
    {
        const OpenGrid grid(2);
        const QPointer<RecentDocDialog> tile = grid.tiles.at(0);
        grid.popup->done(0);
        drainEvents();
        QVERIFY(!tile);
        QCOMPARE(grid.browser.tiles(), grid.tiles); // the pointers are invalid
        QCOMPARE(RecentDocumentBrowser::docPinButtonList.size(), 2);
        QVERIFY(!RecentDocumentBrowser::getHighlightedRecentDoc());
        QVERIFY(RecentDocumentBrowser::getHighlightedRecentDocPathList().isEmpty());
    }

    void isDeletedWithTheMainWindow()
    {
        const FakeBrowser browser;
        auto mainWindow = std::make_unique<QWidget>();
        const QPointer<RecentDocMainWindow> popup = new RecentDocMainWindow(mainWindow.get());
        popup->show();
        mainWindow.reset();
        QVERIFY(!popup);
    }

    void staysOpenWhenThePointerLeaves()
    {
        const OpenGrid grid(1);
        QCursor::setPos(5, 5);
        sendPlain(grid.popup, QEvent::Leave);
        drainEvents();
        QVERIFY(grid.popup && grid.popup->isVisible());
    }

    void takesNothingThatIsDroppedOnIt()
    {
        const OpenGrid grid(1);
        QMimeData data;
        data.setUrls({QUrl::fromLocalFile(grid.browser.path(0))});
        QDropEvent drop(QPointF(20, 20), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        static_cast<QObject *>(grid.popup)
            ->event(&drop); // the application would ask for the drag that it ends
        drainEvents();
        QVERIFY(!drop.isAccepted());
        QVERIFY(grid.popup->isVisible());
        QCOMPARE(grid.browser.host.openedPaths(), QStringList());
    }

    void tabLeavesTheFocus_data()
    {
        QTest::addColumn<QString>("focused");
        for (const char *name : {"RecentDocMainWindow", "RecentDocDialog", "pinButton", "folderButton"})
            QTest::newRow(name) << name;
    }

    void tabLeavesTheFocus()
    {
        QFETCH(QString, focused);
        const OpenGrid grid(3);
        QVERIFY(waitForActive(grid.popup));
        QWidget *widget = grid.popup->findChild<QWidget *>(focused);
        if (!widget)
            widget = grid.popup;
        QCOMPARE(widget->objectName(), focused);
        widget->setFocus();
        for (const Qt::Key key : {Qt::Key_Tab, Qt::Key_Backtab}) {
            QTest::keyClick(widget, key);
            drainEvents();
            QCOMPARE(QApplication::focusWidget(), widget);
        }
    }

    void helpOpensTheOnlinePage()
    {
        const UnshownPopup made;
        WebBrowser web;
        QVERIFY(QMetaObject::invokeMethod(made.popup, "help"));
        QCOMPARE(web.opened.size(), 1);
        const QUrl page = web.opened.first();
        QCOMPARE(page.scheme(), QStringLiteral("http"));
        QVERIFY(!page.host().isEmpty());
        QCOMPARE(page.toString(QUrl::RemoveScheme | QUrl::RemoveAuthority),
                 QStringLiteral("/2014/english/Pelorin/pelorapp/c_browsing_recent_and_open_documents.htm"
                                "?rid=141131"));
    }

    void theOlderPopupTakesOverWithItsFirstEvent_data()
    {
        QTest::addColumn<SurvivorEvent>("event");
        const auto toTile = [](QEvent::Type type) {
            return SurvivorEvent([type](const SurvivingPopup &older) { sendPlain(older.tiles.at(2), type); });
        };
        QTest::newRow("the pointer on a tile") << toTile(QEvent::Enter);
        QTest::newRow("the pointer leaves a tile") << toTile(QEvent::Leave);
        QTest::newRow("the focus on a tile")
            << SurvivorEvent([](const SurvivingPopup &older) { older.tiles.at(2)->setFocus(); });
        QTest::newRow("a press") << SurvivorEvent(
            [](const SurvivingPopup &older) { QTest::mousePress(older.tiles.at(2), Qt::LeftButton); });
        QTest::newRow("a release") << SurvivorEvent(
            [](const SurvivingPopup &older) { QTest::mouseRelease(older.tiles.at(2), Qt::LeftButton); });
        QTest::newRow("a key") << SurvivorEvent(
            [](const SurvivingPopup &older) { QTest::keyClick(older.popup, Qt::Key_F1); });
        QTest::newRow("a pin") << SurvivorEvent([](const SurvivingPopup &older) {
            FakeBrowser::button(older.tiles.at(2), "pinButton")->click();
        });
    }

    void theOlderPopupTakesOverWithItsFirstEvent()
    {
        QFETCH(SurvivorEvent, event);
        const SurvivingPopup older(4);
        QVERIFY(older.isReady);
        QVERIFY(!RecentDocMainWindow::docPathLabel);
        event(older);
        QCOMPARE(RecentDocumentBrowser::recentDocDialogList, older.tiles);
        QList<FolderPinButton *> pins;
        for (const RecentDocDialog *tile : qAsConst(older.tiles))
            pins.append(FakeBrowser::button(tile, "pinButton"));
        QCOMPARE(RecentDocumentBrowser::docPinButtonList, pins);
        QCOMPARE(RecentDocMainWindow::docPathLabel.data(), older.popup->main_label_path);

        // From now on it works like a single popup.
        QTest::mouseClick(older.tiles.at(1), Qt::LeftButton);
        QTest::keyClick(older.popup, Qt::Key_Right);
        QCOMPARE(RecentDocumentBrowser::getHighlightedRecentDocPathList(), {older.browser.path(2)});
        QCOMPARE(older.line(), older.lineOf(2));
        FakeBrowser::button(older.tiles.at(3), "pinButton")->click();
        QVERIFY(RecentDocumentBrowser::menuPinButtonList.at(3)->isChecked());
        QTest::keyClick(older.popup, Qt::Key_Return);
        QCOMPARE(older.browser.host.openedPaths(), {older.browser.path(2)});
        QTRY_VERIFY(!older.popup);
    }

    void aPinInTheOlderOfTwoReachesTheNewerAndTheMenu()
    {
        const TwoPopups two(3);
        const auto pinsOf = [](const QList<FolderPinButton *> &buttons) {
            QList<bool> pinned;
            for (const FolderPinButton *button : buttons)
                pinned.append(button->isChecked());
            return pinned;
        };
        RecentDocumentBrowser::docPinButtonList.prepend(nullptr); // which is skipped
        for (const QList<bool> &pinned :
             {QList<bool>{false, true, false}, QList<bool>{false, false, false}}) {
            FakeBrowser::button(two.older.tiles.at(1), "pinButton")->click();
            QCOMPARE(pinsOf(RecentDocumentBrowser::docPinButtonList.mid(1)), pinned);
            QCOMPARE(pinsOf(RecentDocumentBrowser::menuPinButtonList), pinned);
        }
    }

    void theNextPopupTakesOverFromASurvivor()
    {
        SurvivingPopup older(3);
        QVERIFY(older.isReady);
        const RecentDocMainWindow *third = older.browser.openPopup();
        QCOMPARE(RecentDocMainWindow::docPathLabel.data(), third->main_label_path);
        QCOMPARE(older.browser.tiles(), third->findChildren<RecentDocDialog *>());
        QCOMPARE(RecentDocumentBrowser::getHighlightedRecentDoc(), older.browser.tiles().at(0));
        QCOMPARE(RecentDocumentBrowser::docPinButtonList.size(), 3);
    }
};

TEST_CLASS(tst_PopupLife);
#include "tst_popuplife.moc"
