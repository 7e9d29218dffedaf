// SPDX-License-Identifier: MIT
#include "module/RecentDocumentBrowser.h"
#include "module/RecentFileAction.h"
#include "state/FolderPinButton.h"
#include "tests/support/FocusReasons.h"
#include "tests/support/TestCase.h"
#include "tests/support/fake/FakeBrowser.h"
#include "tests/support/process/ProgramStandIn.h"
#include "ui/QBalloonTip.h"
#include "ui/RecentDocDialog.h"
#include "ui/RecentDocMainWindow.h"

#include <QPointer>
#include <QWindow>

//! "Show in Folder".
class tst_FolderButton : public TestCase
{
    Q_OBJECT

private slots:
    void cleanup()
    {
        QBalloonTip::hideBalloon();
        drainEvents();
        TestCase::cleanup();
    }

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

    void inATileItShowsTheFileAndClosesThePopup()
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

    void inAMenuItShowsTheFileAndClosesNothing()
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

    void aBalloonIsHidden_data()
    {
        QTest::addColumn<bool>("isInTile");
        QTest::newRow("in a tile") << true;
        QTest::newRow("in a menu") << false;
    }

    void aBalloonIsHidden()
    {
        QFETCH(bool, isInTile);
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

TEST_CLASS(tst_FolderButton);
#include "tst_folderbutton.moc"
