// SPDX-License-Identifier: MIT
#include "host/runtime/documents/DocumentManager.h"
#include "host/runtime/probe/FileProbe.h"
#include "host/runtime/recent/RecentFiles.h"
#include "samples/DrawingWriter.h"
#include "tests/support/TestCase.h"
#include "tests/support/bytes/BytesInStuckFolder.h"
#include "tests/support/bytes/BytesOfSpecialFiles.h"
#include "tests/support/real/RealBrowser.h"

#include <CFxRecentFileList.h>

#include <QDialog>
#include <QElapsedTimer>
#include <QLabel>

#include <chrono>
#include <thread>

namespace {

QString titleOf(const QDialog *tile)
{
    return tile->findChild<QLabel *>("title_label")->text();
}

QByteArray drawingWithPicture()
{
    QImage picture(180, 112, QImage::Format_RGB32);
    picture.fill(Qt::darkCyan);
    return fxsamples::drawingFile(picture, {});
}

//! The recent documents as the module gets them.
QStringList answering(RealBrowser &browser)
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
        shown.append(titleOf(tile));
    return shown;
}

} // namespace

//! The browser where some recent drawings are on a server that goes away. Nothing here may wait for it, or
//! the test hangs and fails.
class tst_UnansweringFiles : public TestCase
{
    Q_OBJECT

private slots:
    void popupShowsWhatAnswers_data() { addStuckFolderRows(); }
    void popupShowsWhatAnswers()
    {
        STUCK_FOLDER_OR_SKIP(server);
        RealBrowser browser(2);
        const QStringList listed = {browser.paths().at(0), server.makeFile("away.dwg", drawingWithPicture()),
                                    browser.paths().at(1)};
        browser.host().recentFiles().setPaths(listed);
        const QStringList all = {"plan 1.dwg", "away.dwg", "plan 2.dwg"};
        const QStringList local = {all.at(0), all.at(2)};

        const Alarm alarm;
        for (int round = 0; round < 2; ++round) {
            browser.host().documents().newDocument(); // which makes the module look anew
            QPointer<QDialog> popup = browser.openPopup();
            QVERIFY(popup);
            QCOMPARE(titles(popup), all);
            server.stopAnswering();
            QTest::keyClick(popup, Qt::Key_Escape); // while it shows what is away
            QTRY_VERIFY(!popup);

            QTRY_VERIFY(!answering(browser).contains(listed.at(1)));
            browser.host().documents().newDocument();
            popup = browser.openPopup();
            QVERIFY(popup);
            QCOMPARE(titles(popup), local);
            QCOMPARE(browser.host().recentFiles().paths(), listed); // it is still listed
            QTest::keyClick(popup, Qt::Key_Escape);
            QTRY_VERIFY(!popup);
            server.answerAgain();
            QTRY_COMPARE(answering(browser), listed);
        }
    }

    void nothingIsOpenedThatDoesNotAnswer_data() { addStuckFolderRows(); }
    void nothingIsOpenedThatDoesNotAnswer()
    {
        STUCK_FOLDER_OR_SKIP(server);
        RealBrowser browser(1);
        const QString away = server.makeFile("away.dwg", drawingWithPicture());
        const QString open = server.makeFile("open.dwg", drawingWithPicture());
        QCOMPARE(browser.host().documents().open(open).reason(), QString());
        browser.host().recentFiles().add(away);
        browser.host().documents().newDocument();
        QPointer<QDialog> popup = browser.openPopup();
        QVERIFY(popup);

        const Alarm alarm;
        server.stopAnswering();
        QTest::keyClick(popup, Qt::Key_Return); // the first tile is the one that has gone away since
        QTRY_VERIFY(!popup);
        QTRY_COMPARE(browser.log().constLast(), QStringLiteral("open %1 failed").arg(away));
        QVERIFY(browser.host().recentFiles().paths().contains(away)); // nothing has been forgotten for it
        QVERIFY(browser.storedPaths().contains(away));
        // Nor does the drawing that is open from there keep others from being opened.
        QCOMPARE(browser.host().documents().open(browser.paths().at(0)).reason(), QString());
    }

    void aDiskThatWakesUpIsWaitedFor_data() { addStuckFolderRows(); }
    void aDiskThatWakesUpIsWaitedFor()
    {
        STUCK_FOLDER_OR_SKIP(disk);
        RealBrowser browser(1);
        const QString path = disk.makeFile("asleep.dwg", drawingWithPicture());
        disk.stopAnswering();
        // Longer than a file of the list may take.
        std::thread spinningUp([&disk] {
            std::this_thread::sleep_for(std::chrono::milliseconds(3 * fxhost::ProbeWait().deadline.count()));
            disk.answerAgain();
        });
        const QString problem = browser.host().documents().open(path).reason();
        spinningUp.join();
        QCOMPARE(problem, QString());
    }

    void severalAreWaitedForTogether_data() { addStuckFolderRows(); }
    void severalAreWaitedForTogether()
    {
        STUCK_FOLDER_OR_SKIP(server);
        RealBrowser browser(1);
        QStringList paths;
        for (int i = 0; i < 40; ++i) // which would take two minutes
            paths.append(server.makeFile(QStringLiteral("away %1.dwg").arg(i), drawingWithPicture()));
        server.stopAnswering();
        QElapsedTimer clock;
        clock.start();
        browser.host().documents().openAll(paths);
        QVERIFY2(clock.elapsed() < patience, "each was waited for, three seconds");
        for (const QString &path : qAsConst(paths))
            QVERIFY(browser.log().contains(QStringLiteral("open %1 failed").arg(path)));
    }
};

TEST_CLASS(tst_UnansweringFiles);
#include "tst_unansweringfiles.moc"
