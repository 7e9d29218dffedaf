// SPDX-License-Identifier: MIT
#include "tests/state/PinMenu.h"
#include "tests/support/FocusReasons.h"
#include "tests/support/TestCase.h"
#include "tests/support/fake/FakeBrowser.h"
#include "tests/support/process/ProgramStandIn.h"
#include "ui/QBalloonTip.h"
#include "ui/RecentDocDialog.h"
#include "ui/RecentDocMainWindow.h"

#include <QApplication>
#include <QPointer>
#include <QWindow>

#include <algorithm>
#include <functional>

using ListChange = std::function<void()>;
Q_DECLARE_METATYPE(ListChange)

namespace {

//! For each listed menu pin its document's letter, with a star if it is checked.
QString menuPins()
{
    QStringList pins;
    for (const FolderPinButton *pin : qAsConst(RecentDocumentBrowser::menuPinButtonList))
        pins.append(pin->path().section(QLatin1Char('/'), -1).at(0) + QString(pin->isChecked() ? "*" : ""));
    return pins.join(QLatin1Char(' '));
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

//! What a click on a menu's text, on a tile's pin or on a folder button does; tst_pinproperties tests many in
//! sequence.
class tst_ButtonClicks : public TestCase
{
    Q_OBJECT

private slots:
    void cleanup()
    {
        QBalloonTip::hideBalloon();
        drainEvents();
        TestCase::cleanup();
    }

    void aMenuTextOpensThePathAfterItsNumber()
    {
        const FakeHost host;
        QWidget parent;
        const QString path = QStringLiteral("/my d/\u00e9\u6f22\U0001D538 plan.dwg");
        FolderPinButton *button = menuTextButton(&parent, QStringLiteral("&10 ") + path);
        button->click();
        QString another = QStringLiteral("/d/another one.dwg");
        button->OpenDocument(another);
        QCOMPARE(host.openedPaths(), QStringList({path, another}));
        const FakeHost::OpenCall &call = host.opened.front();
        QVERIFY(call.mode == 0 && call.flags == 0 && call.resultWasEmpty);
    }

    void theNameAtTheClickDecidesWhatAButtonDoes()
    {
        PinMenu pins({QStringLiteral("W"), QStringLiteral("X")});
        const QStringList before = displayed(pins.menu);
        pins.setPinned(1); // what the next ordering would show
        FolderPinButton *button = pins.entry(0).textButton;
        for (const char *name : {"", "menuTextButton"}) {
            button->setObjectName(QLatin1String(name));
            button->click();
            QCOMPARE(pins.host.openedPaths().join(QLatin1Char(' ')), QLatin1String(*name ? "W" : ""));
            QCOMPARE(displayed(pins.menu), before);
        }
        button->setObjectName(QStringLiteral("pinButton"));
        button->click();
        QCOMPARE(pins.host.opened.size(), std::size_t(1));
        QCOMPARE(pins.displayedEntries(), QStringList({"New", "&1 X", "&2 W", "Quit"}));
    }

    void menuPinsFollowTheListedTiles_data()
    {
        QTest::addColumn<ListChange>("change");
        QTest::addColumn<QString>("pins"); // after a click on the pin of b
        QList<FolderPinButton *> &menuPins = RecentDocumentBrowser::menuPinButtonList;
        QList<FolderPinButton *> &tilePins = RecentDocumentBrowser::docPinButtonList;
        QTest::newRow("paths differ in case") << ListChange([] {}) << QStringLiteral("a b* B");
        QTest::newRow("others that were changed in one of the lists") << ListChange([&] {
            menuPins.at(0)->setChecked(true);
            tilePins.at(2)->setChecked(true); // by itself it notifies nothing
        }) << QStringLiteral("a b* B*");
        QTest::newRow("one without a tile leaves the list")
            << ListChange([&] { tilePins.removeFirst(); }) << QStringLiteral("b* B");
        QTest::newRow("one of two tiles is listed twice")
            << ListChange([&] { tilePins.append(tilePins.at(0)); }) << QStringLiteral("a a b* B");
        QTest::newRow("they keep their own order")
            << ListChange([&] { std::reverse(menuPins.begin(), menuPins.end()); })
            << QStringLiteral("B b* a");
        QTest::newRow("null entries are skipped") << ListChange([&] {
            menuPins.insert(1, nullptr);
            tilePins.prepend(nullptr);
        }) << QStringLiteral("a b* B");
    }

    void menuPinsFollowTheListedTiles()
    {
        QFETCH(ListChange, change);
        QFETCH(QString, pins);
        FakeBrowser browser(QStringList({QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("B")}));
        browser.createDocument();
        browser.openPopup();
        change();
        FakeBrowser::button(browser.tiles().at(1), "pinButton")->click();
        QCOMPARE(menuPins(), pins);
    }

    void aTilesPinGivesTheFocusToThePopup()
    {
        FakeBrowser browser(2);
        browser.createDocument();
        const QPointer<RecentDocMainWindow> popup = browser.openPopup();
        QCursor::setPos(popup->geometry().center()); // or it would close when it loses the focus
        QVERIFY(waitForActive(popup));
        FolderPinButton *pin = FakeBrowser::button(browser.tiles().at(0), "pinButton");
        pin->setFocus();
        QCOMPARE(QApplication::focusWidget(), pin);
        const QWidget *focusInStep = nullptr;
        connect(RecentDocumentBrowser::menuPinButtonList.at(0), &FolderPinButton::toggled, pin,
                [&] { focusInStep = QApplication::focusWidget(); });
        const FocusReasons focus(*popup);
        browser.host.calls.clear();
        pin->click();
        QCOMPARE(focusInStep, pin); // the pins are changed first
        QCOMPARE(QApplication::focusWidget(), popup.data());
        QCOMPARE(focus.reasons, QList<Qt::FocusReason>{Qt::OtherFocusReason});
        drainEvents();
        QVERIFY(popup && popup->isVisible());
        QCOMPARE(browser.host.calls, QStringList());
    }

    // "Show in Folder".
    void theFileManagerGetsTheFullPath_data()
    {
        QTest::addColumn<QString>("path");
        QTest::addColumn<QStringList>("arguments");
        const auto row = [](const char *name, const QString &path) {
            QTest::newRow(name) << path << QStringList(path);
        };
        row("a plain path", "/drawings/a.dwg");
        row("blanks", "/my drawings/a  plan .dwg");
        row("what a shell would expand", "/d/$HOME `id` $(id);a&b|c>d*'.dwg");
        row("a backslash", "/d\\ a.dwg");
        row("percent signs", "/d/100%1%20.dwg");
        row("letters of all planes", QStringLiteral("/d/\u00e9\u6f22\U0001D538.dwg"));
        row("a line break", "/d/a\nb.dwg");
        row("a leading dash", "-h /d/--help");
        row("4096 characters", "/" + QString(4095, QLatin1Char('d')));
        QTest::newRow("a quote splits the argument")
            << "/d/a\" b.dwg" << QStringList({QStringLiteral("/d/a"), QStringLiteral("b.dwg")});
    }

    void theFileManagerGetsTheFullPath()
    {
        QFETCH(QString, path);
        QFETCH(QStringList, arguments);
        const ProgramStandIn fileManager;
        QString other = QStringLiteral("/not this one.dwg");
        FolderPinButton button(nullptr, other);
        button.OpenExplorer(path);
        QCOMPARE(fileManager.starts(), QVector<QStringList>{arguments});
    }

    void folderInATileShowsTheFileAndClosesThePopup()
    {
        const ProgramStandIn fileManager(3); // its failure is ignored
        FakeBrowser browser(2);
        browser.createDocument();
        const QPointer<RecentDocMainWindow> popup = browser.openPopup();
        QCursor::setPos(popup->geometry().center()); // or it would close when it loses the focus
        QVERIFY(waitForActive(popup));
        inTile(browser, 1)->setFocus();
        const FocusReasons focus(*popup);
        const QSignalSpy finished(popup, &QDialog::finished);
        int startsAtClose = -1;
        // It closes within the click below, if at all.
        connect(popup, &QDialog::finished, this, [&] {
            startsAtClose = fileManager.starts().size(); // clazy:exclude=lambda-in-connect
        });
        QVERIFY(QFile::remove(browser.path(1))); // a missing file is left to the file manager
        inTile(browser, 1)->click();
        QCOMPARE(fileManager.starts(), QVector<QStringList>{QStringList(browser.path(1))});
        QCOMPARE(startsAtClose, 1); // after the command has ended
        QCOMPARE(finished, QList<QList<QVariant>>{{0}});
        QCOMPARE(focus.reasons, QList<Qt::FocusReason>{Qt::OtherFocusReason});
        drainEvents();
        QVERIFY(!popup);
        QVERIFY(browser.host.opened.empty());
    }

    void folderInAMenuShowsTheFileAndClosesNothing()
    {
        const ProgramStandIn fileManager;
        FakeBrowser browser(2);
        browser.createDocument();
        const QPointer<RecentDocMainWindow> popup = browser.openPopup();
        QWidget *entry = inMenu(1)->parentWidget();
        QDialog around; // which must stay open
        entry->setParent(&around);
        around.show();
        FakeBrowser::button(entry, "folderButton")->click();
        QCOMPARE(fileManager.starts(), QVector<QStringList>{QStringList(browser.path(1))});
        drainEvents();
        QVERIFY(popup && popup->isVisible());
        QVERIFY(around.isVisible());
        entry->setParent(nullptr);
    }

    void folderHidesABalloon()
    {
        for (const bool isInTile : {false, true}) {
            const ProgramStandIn fileManager;
            FakeBrowser browser(1);
            browser.createDocument();
            browser.openPopup();
            QBalloonTip::showBalloon(QImage(), QStringLiteral("title"), QStringLiteral("text"), QPoint(), 0,
                                     true);
            QVERIFY(QBalloonTip::isBalloonVisible());
            int startsAtHiding = -1;
            const QWindowList windows = QGuiApplication::topLevelWindows();
            for (const QWindow *window : windows) {
                if (window->type() == Qt::ToolTip)
                    connect(window, &QWindow::visibleChanged, &browser.host.mainWindow(), [&] {
                        startsAtHiding = fileManager.starts().size(); // clazy:exclude=lambda-in-connect
                    });
            }
            (isInTile ? inTile(browser, 0) : inMenu(0))->click();
            QVERIFY(!QBalloonTip::isBalloonVisible());
            QCOMPARE(startsAtHiding, 1);
        }
    }

    void thePopupClosesWithoutAFileManagerToo()
    {
        const ProgramStandIn fileManager;
        fileManager.uninstall();
        FakeBrowser browser(1);
        browser.createDocument();
        const QPointer<RecentDocMainWindow> popup = browser.openPopup();
        inTile(browser, 0)->click();
        drainEvents();
        QVERIFY(!popup);
    }

private:
    //! The folder button of the recent-files menu's entry at index.
    static FolderPinButton *inMenu(int index)
    {
        const auto *entry =
            qobject_cast<RecentFileAction *>(RecentDocumentBrowser::recentDocActionList.at(index));
        return FakeBrowser::button(entry->defaultWidget(), "folderButton");
    }
    //! That of the popup's tile.
    static FolderPinButton *inTile(const FakeBrowser &browser, int index)
    {
        return FakeBrowser::button(browser.tiles().at(index), "folderButton");
    }
};

TEST_CLASS(tst_ButtonClicks);
#include "tst_buttonclicks.moc"
