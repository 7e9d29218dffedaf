// SPDX-License-Identifier: MIT
#include "module/RecentDocumentBrowser.h"
#include "module/RecentFileAction.h"
#include "state/FolderPinButton.h"
#include "tests/support/Browser.h"
#include "tests/support/FileManager.h"
#include "tests/support/FocusReasons.h"
#include "tests/support/TestCase.h"
#include "ui/QBalloonTip.h"
#include "ui/RecentDocDialog.h"
#include "ui/RecentDocMainWindow.h"

#include <QApplication>
#include <QFile>
#include <QPointer>
#include <QWindow>

namespace {

//! The popup's tile at index whose folder button is clicked.
FolderPinButton *folderButton(const Browser &browser, int index)
{
    return Browser::button(browser.tiles().at(index), "folderButton");
}

} // namespace

//! "Show in Folder".
class tst_FolderButton : public TestCase
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanup();

    void theFileManagerGetsTheFullPath_data();
    void theFileManagerGetsTheFullPath();
    void aQuoteInThePathBreaksTheCommandAndNoMore();
    void inATileItShowsTheFileAndClosesThePopup();
    void thePopupStaysUntilTheCommandHasEnded();
    void theFocusGoesToThePopupBeforeItCloses();
    void inAMenuItShowsTheFileAndClosesNothing();
    void aBalloonIsHidden_data();
    void aBalloonIsHidden();
    void howTheCommandEndsIsIgnored();
    void withoutAFileManagerThePopupClosesAllTheSame();
    void aVanishedDocumentIsShownAllTheSame();
};

void tst_FolderButton::initTestCase()
{
    QVERIFY2(QFile::exists(QStringLiteral("/bin/sh")), "the stand-in for the file manager is a shell script");
}

void tst_FolderButton::cleanup()
{
    QBalloonTip::hideBalloon();
    drainEvents();
    TestCase::cleanup();
}

void tst_FolderButton::theFileManagerGetsTheFullPath_data()
{
    QTest::addColumn<QString>("path");
    QTest::newRow("a plain path") << QStringLiteral("/drawings/a.dwg");
    QTest::newRow("blanks") << QStringLiteral("/my drawings/a  plan .dwg");
    QTest::newRow("what a shell would take for itself")
        << QStringLiteral("/d/$HOME `id` $(id);a&b|c>d*'.dwg");
    QTest::newRow("a backslash") << QStringLiteral("/d\\ a.dwg");
    QTest::newRow("percent signs") << QStringLiteral("/d/100%1%20.dwg");
    QTest::newRow("letters of all planes") << QStringLiteral("/d/\u00e9\u6f22\U0001D538.dwg");
    QTest::newRow("a line's end") << QStringLiteral("/d/a\nb.dwg");
    QTest::newRow("a leading dash") << QStringLiteral("-h /d/--help");
    QTest::newRow("right to left") << QStringLiteral("/d/\u05d0\u202e.dwg");
    QTest::newRow("4096 characters") << QStringLiteral("/") + QString(4095, QLatin1Char('d'));
}

void tst_FolderButton::theFileManagerGetsTheFullPath()
{
    QFETCH(QString, path);
    const FileManager fileManager;
    QString other = QStringLiteral("/not this one.dwg");
    FolderPinButton button(nullptr, other);
    button.OpenExplorer(path);
    QCOMPARE(fileManager.starts(), QVector<QStringList>{QStringList(path)});
}

void tst_FolderButton::aQuoteInThePathBreaksTheCommandAndNoMore()
{
    const FileManager fileManager;
    QString path = QStringLiteral("/d/a\" b.dwg");
    FolderPinButton button(nullptr, path);
    button.OpenExplorer(path);
    QCOMPARE(fileManager.starts(),
             QVector<QStringList>{QStringList({QStringLiteral("/d/a"), QStringLiteral("b.dwg")})});
}

void tst_FolderButton::inATileItShowsTheFileAndClosesThePopup()
{
    const FileManager fileManager;
    Browser browser(3);
    browser.createDocument();
    const QPointer<RecentDocMainWindow> popup = browser.openPopup();
    QSignalSpy finished(popup, &QDialog::finished);
    folderButton(browser, 1)->click();
    QCOMPARE(fileManager.starts(), QVector<QStringList>{QStringList(browser.path(1))});
    QCOMPARE(finished.size(), 1);
    QCOMPARE(finished.first().first().toInt(), 0);
    drainEvents();
    QVERIFY(!popup);
    QVERIFY(browser.host.opened.empty());
}

void tst_FolderButton::thePopupStaysUntilTheCommandHasEnded()
{
    const FileManager fileManager;
    Browser browser(1);
    browser.createDocument();
    const RecentDocMainWindow *popup = browser.openPopup();
    int startsAtClose = -1;
    // It closes within the click below, if at all.
    connect(popup, &QDialog::finished, this, [&] {
        startsAtClose = fileManager.starts().size(); // clazy:exclude=lambda-in-connect
    });
    folderButton(browser, 0)->click();
    QCOMPARE(startsAtClose, 1);
}

void tst_FolderButton::theFocusGoesToThePopupBeforeItCloses()
{
    const FileManager fileManager;
    Browser browser(1);
    browser.createDocument();
    RecentDocMainWindow *popup = browser.openPopup();
    QCursor::setPos(popup->geometry().center()); // with the pointer outside it closes when it loses the focus
    QVERIFY(waitForActive(popup));
    FolderPinButton *folder = folderButton(browser, 0);
    folder->setFocus();
    QCOMPARE(popup->focusWidget(), folder);
    const FocusReasons focus(*popup);
    folder->click();
    QCOMPARE(focus.reasons, QList<Qt::FocusReason>{Qt::OtherFocusReason});
}

void tst_FolderButton::inAMenuItShowsTheFileAndClosesNothing()
{
    const FileManager fileManager;
    Browser browser(2);
    browser.createDocument();
    const QPointer<RecentDocMainWindow> popup = browser.openPopup();
    QWidget *entry =
        qobject_cast<RecentFileAction *>(RecentDocumentBrowser::recentDocActionList.at(1))->defaultWidget();
    QDialog around; // what a careless click would close
    entry->setParent(&around);
    around.show();
    Browser::button(entry, "folderButton")->click();
    QCOMPARE(fileManager.starts(), QVector<QStringList>{QStringList(browser.path(1))});
    drainEvents();
    QVERIFY(popup && popup->isVisible());
    QVERIFY(around.isVisible());
    entry->setParent(nullptr);
}

void tst_FolderButton::aBalloonIsHidden_data()
{
    QTest::addColumn<bool>("inTile");
    QTest::newRow("in a tile") << true;
    QTest::newRow("in a menu") << false;
}

void tst_FolderButton::aBalloonIsHidden()
{
    QFETCH(bool, inTile);
    const FileManager fileManager;
    Browser browser(1);
    browser.createDocument();
    browser.openPopup();
    QBalloonTip::showBalloon(QImage(), QStringLiteral("title"), QStringLiteral("text"), QPoint(), 0, true);
    QVERIFY(QBalloonTip::isBalloonVisible());
    int startsAtHiding = -1;
    const QWindowList windows = QGuiApplication::topLevelWindows();
    for (const QWindow *window : windows) {
        if (window->type() == Qt::ToolTip)
            connect(window, &QWindow::visibleChanged, &browser.host.mainWindow(), [&] {
                startsAtHiding = fileManager.starts().size(); // clazy:exclude=lambda-in-connect
            });
    }
    const QWidget *entry =
        qobject_cast<RecentFileAction *>(RecentDocumentBrowser::recentDocActionList.at(0))->defaultWidget();
    (inTile ? folderButton(browser, 0) : Browser::button(entry, "folderButton"))->click();
    QVERIFY(!QBalloonTip::isBalloonVisible());
    QCOMPARE(startsAtHiding, 1);
}

void tst_FolderButton::howTheCommandEndsIsIgnored()
{
    const FileManager fileManager(3);
    Browser browser(1);
    browser.createDocument();
    const QPointer<RecentDocMainWindow> popup = browser.openPopup();
    folderButton(browser, 0)->click();
    QCOMPARE(fileManager.starts().size(), 1);
    drainEvents();
    QVERIFY(!popup);
}

void tst_FolderButton::withoutAFileManagerThePopupClosesAllTheSame()
{
    const FileManager fileManager;
    fileManager.uninstall();
    Browser browser(1);
    browser.createDocument();
    const QPointer<RecentDocMainWindow> popup = browser.openPopup();
    folderButton(browser, 0)->click();
    drainEvents();
    QVERIFY(!popup);
}

void tst_FolderButton::aVanishedDocumentIsShownAllTheSame()
{
    const FileManager fileManager;
    Browser browser(1);
    browser.createDocument();
    browser.openPopup();
    QVERIFY(QFile::remove(browser.path(0)));
    folderButton(browser, 0)->click();
    QCOMPARE(fileManager.starts(), QVector<QStringList>{QStringList(browser.path(0))});
}

QTEST_MAIN(tst_FolderButton)
#include "tst_folderbutton.moc"
