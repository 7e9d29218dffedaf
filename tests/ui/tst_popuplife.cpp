// SPDX-License-Identifier: MIT
#include "state/FolderPinButton.h"
#include "tests/ui/OpenGrid.h"
#include "ui/HelpLabel.h"

#include <QDesktopServices>
#include <QUrl>

#include <functional>

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
    QFocusEvent event(QEvent::FocusOut, Qt::ActiveWindowFocusReason);
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

//! An open popup and its help icon.
struct PopupWithHelp : UnshownPopup
{
    PopupWithHelp() : UnshownPopup(2) { popup->show(); }
    //! A press without a release, since what it calls may delete the label.
    void press(Qt::MouseButton button = Qt::LeftButton, Qt::KeyboardModifiers modifiers = {}) const
    {
        QTest::mousePress(label, button, modifiers);
    }
    QPointer<HelpLabel> label = popup->findChild<HelpLabel *>();
};

} // namespace

using SurvivorEvent = std::function<void(const SurvivingPopup &)>;
Q_DECLARE_METATYPE(SurvivorEvent)

//! When the popup closes, by its help icon too, what is deleted with it, and how an older one continues.
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

    void staysOpenWhenThePointerLeaves()
    {
        const OpenGrid grid(1);
        QCursor::setPos(5, 5);
        sendPlain(grid.popup, QEvent::Leave);
        drainEvents();
        QVERIFY(grid.popup && grid.popup->isVisible());
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

    void helpOpensTheOnlinePageIfThereIsOne()
    {
        const UnshownPopup made;
        WebBrowser web;
        QVERIFY(QMetaObject::invokeMethod(made.popup, "help"));
        const QString server = QStringLiteral(BROWSER_HELP_SERVER); // the presets differ
        const QUrl page("http://" + server +
                        "/2014/english/Pelorin/pelorapp/c_browsing_recent_and_open_documents.htm?rid=141131");
        QCOMPARE(web.opened, server.isEmpty() ? QList<QUrl>() : QList<QUrl>{page});
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

    void helpIconIsAPlainLabel()
    {
        QWidget window;
        const HelpLabel label(&window);
        QCOMPARE(label.parentWidget(), &window);
        QCOMPARE(label.objectName(), QStringLiteral("help_label"));
        QCOMPARE(label.sizePolicy(), QSizePolicy(QSizePolicy::Fixed, QSizePolicy::Preferred));
        QCOMPARE(label.frameShadow(), QFrame::Plain);
        QCOMPARE(label.lineWidth(), 0);
        QVERIFY(label.autoFillBackground());

        const QMetaObject &meta = HelpLabel::staticMetaObject;
        QCOMPARE(meta.className(), "HelpLabel");
        QCOMPARE(meta.superClass(), &QLabel::staticMetaObject);
        QCOMPARE(meta.methodCount(), meta.methodOffset());
        QCOMPARE(meta.propertyCount(), meta.propertyOffset());
    }

    void anyButtonOnTheHelpIconRunsTheHelpAndCloses_data()
    {
        QTest::addColumn<int>("button");
        QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
        QTest::newRow("left") << int(Qt::LeftButton) << Qt::KeyboardModifiers();
        QTest::newRow("right") << int(Qt::RightButton) << Qt::KeyboardModifiers();
        QTest::newRow("middle") << int(Qt::MiddleButton) << Qt::KeyboardModifiers();
        QTest::newRow("left with Control")
            << int(Qt::LeftButton) << Qt::KeyboardModifiers(Qt::ControlModifier);
    }

    void anyButtonOnTheHelpIconRunsTheHelpAndCloses()
    {
        QFETCH(int, button);
        QFETCH(Qt::KeyboardModifiers, modifiers);
        PopupWithHelp open;
        QTest::mouseRelease(open.label, Qt::LeftButton); // which does nothing
        QCOMPARE(open.browser.host.commandsRun, QStringList());

        bool wasVisible = false;
        open.browser.host.onRunCommand = [&](const QString & /*name*/) {
            wasVisible = open.popup->isVisible();
        };
        int heldAtTheEnd = -1;
        connect(open.popup, &QDialog::finished, this,
                [&] { heldAtTheEnd = open.browser.host.openReferences; });
        open.press(Qt::MouseButton(button), modifiers);
        QVERIFY(wasVisible); // while the command ran
        QCOMPARE(heldAtTheEnd, 0);
        QCOMPARE(open.browser.host.commandsRun, QStringList(QStringLiteral("_RHELP")));
        QCOMPARE(open.browser.host.calls.filter(QStringLiteral("run ")), // nothing follows the name
                 QStringList({"run _RHELP", "run taken", "run released"}));
        QVERIFY(!open.popup->isVisible());
        drainEvents();
        QVERIFY(!open.popup); // deletes itself
        QCOMPARE(open.browser.host.openedPaths(), QStringList());
    }

    void helpCommandMayDeleteThePopup()
    {
        PopupWithHelp open;
        open.browser.host.onRunCommand = [&](const QString & /*name*/) { delete open.popup; };
        open.press();
        QVERIFY(!open.label);
        QCOMPARE(open.browser.host.openReferences, 0);
    }

    void helpIconClosesAnyParent()
    {
        const FakeBrowser browser;
        QWidget window;
        HelpLabel label(&window);
        window.show();
        QTest::mousePress(&label, Qt::LeftButton);
        QVERIFY(!window.isVisible());
        QCOMPARE(browser.host.commandsRun.size(), 1);
    }
};

TEST_CLASS(tst_PopupLife);
#include "tst_popuplife.moc"
