// SPDX-License-Identifier: MIT
#include "module/RecentDocumentBrowser.h"
#include "module/RecentFileAction.h"
#include "state/FolderPinButton.h"
#include "tests/support/Browser.h"
#include "tests/support/FocusReasons.h"
#include "tests/support/TestCase.h"
#include "ui/RecentDocDialog.h"
#include "ui/RecentDocMainWindow.h"

#include <QApplication>
#include <QMenu>
#include <QPointer>

namespace {

QList<bool> statesOf(const QList<FolderPinButton *> &buttons)
{
    QList<bool> states;
    for (const FolderPinButton *button : buttons)
        states.append(button->isChecked());
    return states;
}

RecentFileAction *entry(int index)
{
    return qobject_cast<RecentFileAction *>(RecentDocumentBrowser::recentDocActionList.at(index));
}

//! A menu text button outside of any menu.
FolderPinButton *menuTextButton(QWidget *parent, const QString &text)
{
    QString path = QStringLiteral("/drawings/not this one.dwg");
    auto *button = new FolderPinButton(parent, path);
    button->setObjectName(QStringLiteral("menuTextButton"));
    button->setText(text);
    return button;
}

} // namespace

//! What a click on a menu's text or on a pin does.
class tst_ButtonClicks : public TestCase
{
    Q_OBJECT

private slots:
    void aMenuTextOpensThePathBehindItsNumber_data();
    void aMenuTextOpensThePathBehindItsNumber();
    void anEntrysTextOpensItsDocument();
    void aMenuTextMayBeDeletedByWhatItOpens();
    void whatTheHostLacksIsNotOpened_data();
    void whatTheHostLacksIsNotOpened();
    void anyDocumentCanBeOpenedThroughAButton();
    void aTilesPinSetsTheMenusPin();
    void theMouseClicksAPin();
    void aTilesPinGivesTheFocusToThePopup();
    void aTilesPinDoesNothingElse();
    void aTilesPinBringsAllMenuPinsInStep();
    void aMenuPinWithoutATileLeavesTheList();
    void menuPinsKeepTheirOrder();
    void aMenuPinIsListedOnceForEachTile();
    void emptyPlacesInTheListsAreSkipped();
    void pathsOfDifferentCaseAreDifferentDocuments();
    void aMenusPinTouchesNoTile();
    void aButtonWithoutANameDoesNothing();
    void theRoleIsThatOfTheNameAtTheClick();
};

void tst_ButtonClicks::aMenuTextOpensThePathBehindItsNumber_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("path");
    QTest::newRow("a plain path") << QStringLiteral("&1 /d/a.dwg") << QStringLiteral("/d/a.dwg");
    QTest::newRow("a path with blanks")
        << QStringLiteral("&10 /my d/a plan.dwg") << QStringLiteral("/my d/a plan.dwg");
    QTest::newRow("no blank") << QStringLiteral("/d/a.dwg") << QStringLiteral("/d/a.dwg");
    QTest::newRow("letters of all planes") << QStringLiteral("&1 /d/\u00e9\u6f22\U0001D538.dwg")
                                           << QStringLiteral("/d/\u00e9\u6f22\U0001D538.dwg");
    QTest::newRow("a number alone") << QStringLiteral("&1 ") << QString();
}

void tst_ButtonClicks::aMenuTextOpensThePathBehindItsNumber()
{
    QFETCH(QString, text);
    QFETCH(QString, path);
    const FakeHost host;
    QWidget parent;
    menuTextButton(&parent, text)->click();
    QCOMPARE(host.opened.size(), std::size_t(1));
    const FakeHost::OpenCall &call = host.opened.front();
    QCOMPARE(call.path, path);
    QCOMPARE(call.mode, 0);
    QCOMPARE(call.flags, 0);
    QVERIFY(call.resultWasEmpty);
}

void tst_ButtonClicks::anEntrysTextOpensItsDocument()
{
    Browser browser(12);
    browser.createDocument();
    entry(10)->textButton->click();
    entry(0)->textButton->click();
    QCOMPARE(browser.host.openedPaths(), QStringList({browser.path(10), browser.path(0)}));
}

void tst_ButtonClicks::aMenuTextMayBeDeletedByWhatItOpens()
{
    FakeHost host;
    auto *parent = new QWidget;
    const QPointer<FolderPinButton> button = menuTextButton(parent, QStringLiteral("&1 /d/a.dwg"));
    host.onOpen = [&](const QString & /*path*/) { delete parent; };
    button->click();
    QVERIFY(!button);
    QCOMPARE(host.openedPaths(), QStringList(QStringLiteral("/d/a.dwg")));
}

void tst_ButtonClicks::whatTheHostLacksIsNotOpened_data()
{
    QTest::addColumn<bool>("services");
    QTest::addColumn<bool>("documentManager");
    QTest::newRow("no services") << false << true;
    QTest::newRow("no document manager") << true << false;
}

void tst_ButtonClicks::whatTheHostLacksIsNotOpened()
{
    QFETCH(bool, services);
    QFETCH(bool, documentManager);
    FakeHost host;
    host.hasServices = services;
    host.hasDocumentManager = documentManager;
    QWidget parent;
    menuTextButton(&parent, QStringLiteral("&1 /d/a.dwg"))->click();
    QVERIFY(host.opened.empty());
}

void tst_ButtonClicks::anyDocumentCanBeOpenedThroughAButton()
{
    const FakeHost host;
    QWidget parent;
    QString path = QStringLiteral("/d/another one.dwg");
    menuTextButton(&parent, QStringLiteral("&1 /d/a.dwg"))->OpenDocument(path);
    QCOMPARE(host.openedPaths(), QStringList(path));
}

void tst_ButtonClicks::aTilesPinSetsTheMenusPin()
{
    Browser browser(3);
    browser.createDocument();
    browser.openPopup();
    FolderPinButton *pin = Browser::button(browser.tiles().at(1), "pinButton");
    pin->click();
    QVERIFY(pin->isChecked());
    QCOMPARE(statesOf(RecentDocumentBrowser::menuPinButtonList), QList<bool>({false, true, false}));
    pin->click();
    QVERIFY(!pin->isChecked());
    QCOMPARE(statesOf(RecentDocumentBrowser::menuPinButtonList), QList<bool>({false, false, false}));
}

void tst_ButtonClicks::theMouseClicksAPin()
{
    Browser browser(2);
    browser.createDocument();
    browser.openPopup();
    FolderPinButton *pin = Browser::button(browser.tiles().at(0), "pinButton");
    QTest::mouseClick(pin, Qt::LeftButton);
    QVERIFY(pin->isChecked());
    QCOMPARE(statesOf(RecentDocumentBrowser::menuPinButtonList), QList<bool>({true, false}));
    QTest::mouseClick(pin, Qt::RightButton);
    QVERIFY(pin->isChecked());
}

void tst_ButtonClicks::aTilesPinGivesTheFocusToThePopup()
{
    Browser browser(2);
    browser.createDocument();
    RecentDocMainWindow *popup = browser.openPopup();
    QCursor::setPos(popup->geometry().center()); // with the pointer outside it closes when it loses the focus
    QVERIFY(waitForActive(popup));
    FolderPinButton *pin = Browser::button(browser.tiles().at(0), "pinButton");
    pin->setFocus();
    QCOMPARE(QApplication::focusWidget(), pin);
    const QWidget *focusInStep = nullptr;
    connect(RecentDocumentBrowser::menuPinButtonList.at(0), &FolderPinButton::toggled, pin,
            [&] { focusInStep = QApplication::focusWidget(); });
    const FocusReasons focus(*popup);
    pin->click();
    QCOMPARE(focusInStep, pin); // the pins come first
    QCOMPARE(QApplication::focusWidget(), popup);
    QCOMPARE(focus.reasons, QList<Qt::FocusReason>{Qt::OtherFocusReason});
}

void tst_ButtonClicks::aTilesPinDoesNothingElse()
{
    Browser browser(2);
    browser.createDocument();
    const QPointer<RecentDocMainWindow> popup = browser.openPopup();
    const QList<RecentDocDialog *> tiles = browser.tiles();
    const QList<FolderPinButton *> tilePins = RecentDocumentBrowser::docPinButtonList;
    browser.host.calls.clear();
    Browser::button(tiles.at(1), "pinButton")->click();
    drainEvents();
    QCOMPARE(browser.host.calls, QStringList());
    QVERIFY(popup && popup->isVisible());
    QCOMPARE(browser.tiles(), tiles); // the new order is for the next popup
    QCOMPARE(RecentDocumentBrowser::docPinButtonList, tilePins);
}

void tst_ButtonClicks::aTilesPinBringsAllMenuPinsInStep()
{
    Browser browser(3);
    browser.createDocument();
    browser.openPopup();
    Browser::button(browser.tiles().at(2), "pinButton")->setChecked(true); // by itself it tells nobody
    RecentDocumentBrowser::menuPinButtonList.at(0)->setChecked(true);
    Browser::button(browser.tiles().at(1), "pinButton")->click();
    QCOMPARE(statesOf(RecentDocumentBrowser::menuPinButtonList), QList<bool>({false, true, true}));
}

void tst_ButtonClicks::aMenuPinWithoutATileLeavesTheList()
{
    Browser browser(3);
    browser.createDocument();
    RecentDocumentBrowser::recentFileImageMap.insert(browser.path(0), QImage());
    RecentDocumentBrowser::recentFileImageMap.insert(browser.path(2), QImage());
    browser.openPopup(); // shows what is cached
    const QList<FolderPinButton *> menuPins = RecentDocumentBrowser::menuPinButtonList;
    QCOMPARE(menuPins.size(), 3);
    Browser::button(browser.tiles().at(0), "pinButton")->click();
    QCOMPARE(RecentDocumentBrowser::menuPinButtonList,
             QList<FolderPinButton *>({menuPins.at(0), menuPins.at(2)}));
    QVERIFY(!menuPins.at(1)->isChecked());
}

void tst_ButtonClicks::menuPinsKeepTheirOrder()
{
    Browser browser(4);
    browser.createDocument();
    browser.openPopup();
    // The other way round than the tiles, as a rebuilt menu may be.
    QList<FolderPinButton *> &menuPins = RecentDocumentBrowser::menuPinButtonList;
    std::reverse(menuPins.begin(), menuPins.end());
    const QList<FolderPinButton *> before = menuPins;
    Browser::button(browser.tiles().at(0), "pinButton")->click();
    QCOMPARE(menuPins, before);
    QCOMPARE(statesOf(menuPins), QList<bool>({false, false, false, true}));
}

void tst_ButtonClicks::aMenuPinIsListedOnceForEachTile()
{
    Browser browser(2);
    browser.createDocument();
    browser.openPopup();
    const QList<FolderPinButton *> menuPins = RecentDocumentBrowser::menuPinButtonList;
    RecentDocumentBrowser::AddInToDocPinButtonList(RecentDocumentBrowser::docPinButtonList.first());
    Browser::button(browser.tiles().at(1), "pinButton")->click();
    QCOMPARE(RecentDocumentBrowser::menuPinButtonList,
             QList<FolderPinButton *>({menuPins.at(0), menuPins.at(0), menuPins.at(1)}));
}

void tst_ButtonClicks::emptyPlacesInTheListsAreSkipped()
{
    Browser browser(2);
    browser.createDocument();
    browser.openPopup();
    const QList<FolderPinButton *> menuPins = RecentDocumentBrowser::menuPinButtonList;
    RecentDocumentBrowser::menuPinButtonList.insert(1, nullptr);
    RecentDocumentBrowser::docPinButtonList.prepend(nullptr);
    Browser::button(browser.tiles().at(1), "pinButton")->click();
    QCOMPARE(RecentDocumentBrowser::menuPinButtonList, menuPins);
    QCOMPARE(statesOf(menuPins), QList<bool>({false, true}));
}

void tst_ButtonClicks::pathsOfDifferentCaseAreDifferentDocuments()
{
    Browser browser(QStringList({QStringLiteral("a.dwg"), QStringLiteral("A.dwg")}));
    browser.createDocument();
    browser.openPopup();
    Browser::button(browser.tiles().at(1), "pinButton")->click();
    QCOMPARE(statesOf(RecentDocumentBrowser::menuPinButtonList), QList<bool>({false, true}));
}

void tst_ButtonClicks::aMenusPinTouchesNoTile()
{
    Browser browser(3);
    browser.createDocument();
    const QPointer<RecentDocMainWindow> popup = browser.openPopup();
    FolderPinButton *pin = RecentDocumentBrowser::menuPinButtonList.at(1);
    QVERIFY(pin->parent()->objectName().isEmpty());
    const QList<FolderPinButton *> tilePins = RecentDocumentBrowser::docPinButtonList;
    pin->click();
    QVERIFY(pin->isChecked());
    QCOMPARE(RecentDocumentBrowser::docPinButtonList, tilePins);
    QCOMPARE(statesOf(tilePins), QList<bool>({false, false, false}));
    drainEvents();
    QVERIFY(popup && popup->isVisible());
    QVERIFY(browser.host.opened.empty());
}

void tst_ButtonClicks::aButtonWithoutANameDoesNothing()
{
    Browser browser(1);
    browser.createDocument();
    const QPointer<RecentDocMainWindow> popup = browser.openPopup();
    FolderPinButton *pin = Browser::button(browser.tiles().constFirst(), "pinButton");
    pin->setObjectName(QString());
    pin->setText(QStringLiteral("&1 /d/a.dwg"));
    pin->click();
    QCOMPARE(statesOf(RecentDocumentBrowser::menuPinButtonList), QList<bool>{false});
    QVERIFY(browser.host.opened.empty());
    drainEvents();
    QVERIFY(popup);
}

void tst_ButtonClicks::theRoleIsThatOfTheNameAtTheClick()
{
    const FakeHost host;
    QWidget parent;
    FolderPinButton *button = menuTextButton(&parent, QStringLiteral("&1 /d/a.dwg"));
    button->setObjectName(QStringLiteral("pinButton"));
    button->click();
    QVERIFY(host.opened.empty());
    button->setObjectName(QStringLiteral("menuTextButton"));
    button->click();
    QCOMPARE(host.openedPaths(), QStringList(QStringLiteral("/d/a.dwg")));
}

QTEST_MAIN(tst_ButtonClicks)
#include "tst_buttonclicks.moc"
