// SPDX-License-Identifier: MIT
#include "host/runtime/documents/DocumentManager.h"
#include "host/runtime/probe/FileProbe.h"
#include "host/runtime/recent/RecentFiles.h"
#include "tests/support/TestCase.h"
#include "tests/support/bytes/BytesInStuckFolder.h"
#include "tests/support/bytes/BytesOfSpecialFiles.h"
#include "tests/support/real/RealBrowser.h"

#include <CFxRecentFileList.h>

#include <QDialog>
#include <QLabel>

#include <chrono>
#include <thread>

namespace {

//! The recent documents that the module gets.
QStringList responsive(RealBrowser &browser)
{
    std::vector<CFxString> paths;
    browser.host().GetApplication()->GetUserProfile()->GetRecentFileList()->GetPaths(paths);
    return QStringList(paths.begin(), paths.end());
}

QStringList titles(const QDialog *popup)
{
    QStringList shown;
    const QList<QDialog *> tiles = RealBrowser::tiles(popup);
    for (const QDialog *tile : tiles)
        shown.append(tile->findChild<QLabel *>("title_label")->text());
    return shown;
}

} // namespace

//! The browser with recent drawings on a server that stops answering. A wait for it hangs, and the test
//! fails.
class tst_UnansweringFiles : public TestCase
{
    Q_OBJECT

private slots:
    void popupShowsResponsiveFiles_data() { addStuckFolderRows(); }
    void popupShowsResponsiveFiles()
    {
        STUCK_FOLDER_OR_SKIP(server);
        RealBrowser browser(2);
        const QStringList listed = {browser.paths().at(0),
                                    server.makeFile("away.dwg", RealBrowser::drawingBytes(0)),
                                    browser.paths().at(1)};
        browser.host().recentFiles().setPaths(listed);
        const QStringList all = {"plan 1.dwg", "away.dwg", "plan 2.dwg"};
        const QStringList local = {all.at(0), all.at(2)};

        const Alarm alarm;
        for (int round = 0; round < 2; ++round) {
            browser.host().documents().newDocument(); // the module reads the list again
            QPointer<QDialog> popup = browser.openPopup();
            QVERIFY(popup);
            QCOMPARE(titles(popup), all);
            server.stopAnswering();
            QTest::keyClick(popup, Qt::Key_Escape); // with the unresponsive file on it
            QTRY_VERIFY(!popup);

            QTRY_VERIFY(!responsive(browser).contains(listed.at(1)));
            browser.host().documents().newDocument();
            popup = browser.openPopup();
            QVERIFY(popup);
            QCOMPARE(titles(popup), local);
            QCOMPARE(browser.host().recentFiles().paths(), listed); // it is still listed
            QTest::keyClick(popup, Qt::Key_Escape);
            QTRY_VERIFY(!popup);
            server.answerAgain();
            QTRY_COMPARE(responsive(browser), listed);
        }
    }

    void unresponsiveFileIsNotOpened_data() { addStuckFolderRows(); }
    void unresponsiveFileIsNotOpened()
    {
        STUCK_FOLDER_OR_SKIP(server);
        RealBrowser browser(1);
        const QString away = server.makeFile("away.dwg", RealBrowser::drawingBytes(0));
        const QString open = server.makeFile("open.dwg", RealBrowser::drawingBytes(0));
        QCOMPARE(browser.host().documents().open(open).reason(), QString());
        browser.host().recentFiles().add(away);
        browser.host().documents().newDocument();
        QPointer<QDialog> popup = browser.openPopup();
        QVERIFY(popup);

        const Alarm alarm;
        server.stopAnswering();
        QTest::keyClick(popup, Qt::Key_Return); // the first tile's file is unresponsive now
        QTRY_VERIFY(!popup);
        QTRY_COMPARE(browser.log().constLast(), QString("open %1 failed").arg(away));
        QVERIFY(browser.host().recentFiles().paths().contains(away)); // it is still listed
        QVERIFY(browser.storedPaths().contains(away));
        // The open drawing on the server does not keep others from being opened.
        QCOMPARE(browser.host().documents().open(browser.paths().at(0)).reason(), QString());
    }

    void openingWaitsForADiskThatWakesUp_data() { addStuckFolderRows(); }
    void openingWaitsForADiskThatWakesUp()
    {
        STUCK_FOLDER_OR_SKIP(disk);
        RealBrowser browser(1);
        const QString path = disk.makeFile("asleep.dwg", RealBrowser::drawingBytes(0));
        disk.stopAnswering();
        // Longer than the list waits for a file.
        std::thread spinningUp([&disk] {
            std::this_thread::sleep_for(std::chrono::milliseconds(3 * fxhost::ProbeWait().deadline.count()));
            disk.answerAgain();
        });
        const QString problem = browser.host().documents().open(path).reason();
        spinningUp.join();
        QCOMPARE(problem, QString());
    }

    void unresponsiveFilesAreAwaitedTogether_data() { addStuckFolderRows(); }
    void unresponsiveFilesAreAwaitedTogether()
    {
        STUCK_FOLDER_OR_SKIP(server);
        RealBrowser browser(1);
        QStringList paths;
        for (int i = 0; i < 40; ++i) // two minutes, one after the other
            paths.append(server.makeFile(QString("away %1.dwg").arg(i), RealBrowser::drawingBytes(0)));
        server.stopAnswering();
        QElapsedTimer clock;
        clock.start();
        browser.host().documents().openAll(paths);
        QVERIFY2(clock.elapsed() < patience, "the files were awaited one after the other");
        for (const QString &path : qAsConst(paths))
            QVERIFY(browser.log().contains(QString("open %1 failed").arg(path)));
    }
};

TEST_CLASS(tst_UnansweringFiles);
#include "tst_unansweringfiles.moc"
