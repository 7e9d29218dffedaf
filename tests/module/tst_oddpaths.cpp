// SPDX-License-Identifier: MIT
#include "host/runtime/Paths.h"
#include "host/runtime/documents/DocumentManager.h"
#include "host/runtime/recent/RecentFiles.h"
#include "tests/support/TestCase.h"
#include "tests/support/bytes/BytesOfSpecialFiles.h"
#include "tests/support/process/ProgramStandIn.h"
#include "tests/support/real/RealBrowser.h"

#include <QDialog>
#include <QLabel>
#include <QToolButton>

#include <climits>

using fxhost::pathBytes;
using fxhost::pathFromBytes;

namespace {

constexpr int longestPath = 4095; // bytes, with the zero byte 4096

//! Opens the file through the host, finds it as the first tile, shows it in its folder, and opens it again
//! from the popup.
void useEverywhere(RealBrowser &browser, const QString &path)
{
    const ProgramStandIn fileManager;
    QCOMPARE(browser.host().documents().open(path).reason(), QString());
    QPointer<QDialog> popup = browser.openPopup();
    QVERIFY(popup);
    QDialog *tile = RealBrowser::tiles(popup).constFirst();
    QVERIFY(!tile->findChild<QLabel *>("image_label")->pixmap(Qt::ReturnByValue).isNull());
    QString line = RealBrowser::pathLine(popup);
    if (line != path && line.endsWith("...")) // it is shortened
        line.chop(3);
    QVERIFY2(!line.isEmpty() && path.startsWith(line), qPrintable(line));
    RealBrowser::button(tile, "folderButton")->click();
    QTRY_VERIFY(!popup);
    QStringList words = QStringList(path); // in quotes, so that only quotes in the path split it
    if (path.contains('"'))
        words = QProcess::splitCommand(QLatin1Char('"') + path + QLatin1Char('"'));
    QCOMPARE(fileManager.starts(), QVector<QStringList>{words});

    browser.host().documents().close(browser.host().documents().current());
    popup = browser.openPopup();
    QVERIFY(popup);
    QTest::keyClick(popup, Qt::Key_Return);
    QTRY_VERIFY(!popup);
    QVERIFY(browser.host().documents().current());
    QCOMPARE(pathBytes(browser.host().documents().current()->path()), pathBytes(path));
    QCOMPARE(browser.storedPaths().constFirst(), path);
}

} // namespace

//! Recent documents with unusual names, and special files, through the built module and the real host.
class tst_OddPaths : public TestCase
{
    Q_OBJECT

private slots:
    void initTestCase() { fxhost::keepBytesOfPaths(); }
    void everyByteOfANameIsKept_data()
    {
        QTest::addColumn<QByteArray>("name");
        QTest::newRow("line breaks") << QByteArray("a\nb\r\n.dwg");
        QTest::newRow("Latin 1") << QByteArray("gr\xfcn.dwg");
        QTest::newRow("bytes that are not UTF-8") << QByteArray("\xff\xfe\xc3.dwg");
        QTest::newRow("UTF-8 and bytes that are not") << QByteArray("\xc3\xa4 \xe4.dwg");
        QTest::newRow("right to left") << QByteArray("\xd7\x90\xd7\x91\xe2\x80\xae gwd\xe2\x80\xac.dwg");
        QTest::newRow("%n and its like") << QByteArray("%n %s %1 %20 %%.dwg");
        QTest::newRow("apostrophes") << QByteArray("a'b'.dwg");
        QTest::newRow("double quotes") << QByteArray("a \"b\" c.dwg");
        QTest::newRow("shell commands") << QByteArray("$(touch x) `touch x`; touch x #.dwg");
        QTest::newRow("leading dashes") << QByteArray("--help.dwg");
        QTest::newRow("blanks at both ends") << QByteArray(" a.dwg ");
        QTest::newRow("a tab and a bell") << QByteArray("\ta\a.dwg");
        QTest::newRow("only dots") << QByteArray("...");
        QTest::newRow("a backslash") << QByteArray("a\\nb.dwg");
        QTest::newRow("markup") << QByteArray("<b>&amp;.dwg");
        QTest::newRow("255 bytes") << QByteArray(255, 'n');
    }

    void everyByteOfANameIsKept()
    {
        QFETCH(QByteArray, name);
        RealBrowser browser(1);
        const QString path = QFileInfo(browser.paths().constFirst()).path() + '/' + pathFromBytes(name);
        QVERIFY(QFile::copy(browser.paths().constFirst(), path));
        const QStringList before = QDir(QFileInfo(path).path()).entryList(QDir::AllEntries | QDir::Hidden);
        useEverywhere(browser, path);
        if (QTest::currentTestFailed())
            return;
        QCOMPARE(QDir(QFileInfo(path).path()).entryList(QDir::AllEntries | QDir::Hidden),
                 before); // touch has not made x
    }

    void aPathMayHaveTheMaximumLength()
    {
        RealBrowser browser(1);
        QString folder = QFileInfo(browser.paths().constFirst()).path();
        while (folder.size() + 2 < longestPath - NAME_MAX)
            folder += '/' + QString(qMin(NAME_MAX, longestPath - NAME_MAX - folder.size() - 1), 'd');
        QVERIFY(QDir().mkpath(folder));
        const QString path = folder + '/' + QString(longestPath - folder.size() - 1, 'n');
        QCOMPARE(path.size(), longestPath);
        QVERIFY(QFile::copy(browser.paths().constFirst(), path));
        useEverywhere(browser, path);

        // One byte more cannot be a file, but may be listed.
        browser.host().recentFiles().add(path + 'n');
        QCOMPARE(browser.storedPaths().constFirst().size(), longestPath + 1);
        browser.host().documents().newDocument();
        QVERIFY(browser.openPopup());
    }

    void anySpecialFileLetsThePopupOpen_data() { addSpecialFileRows(); }
    void anySpecialFileLetsThePopupOpen()
    {
        QFETCH(SpecialFile, kind);
        allowWarning("Broken filename passed to function"); // Qt's warning on null characters
        const BytesOfSpecialFiles files;
        RealBrowser browser(2);
        const QStringList paths = {files.path(kind), browser.paths().at(0), "/proc/self/mem", "/dev/tty",
                                   browser.paths().at(1)};
        browser.host().recentFiles().setPaths(paths);
        const Alarm alarm;
        browser.host().documents().newDocument();
        const QDialog *popup = browser.openPopup();
        QVERIFY(popup);
        const bool isListed = !files.path(kind).isEmpty();
        QCOMPARE(RealBrowser::tiles(popup).size(), isListed ? 5 : 4); // most of them blank
    }
};

TEST_CLASS(tst_OddPaths);
#include "tst_oddpaths.moc"
