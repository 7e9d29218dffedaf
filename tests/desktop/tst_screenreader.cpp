// SPDX-License-Identifier: MIT
#include "tests/desktop/Hand.h"
#include "tests/support/TestCase.h"
#include "tests/support/process/ProgramOnScreen.h"

//! The program with a screen reader attached, over the desktop's own accessibility bus.
class tst_ScreenReader : public TestCase
{
    Q_OBJECT

private slots:
    void browserIsReadAfterEachLoad()
    {
        ProgramOnScreen program({"a name of many letters.dwg", "roof.dwg"});
        QFile file(program.path("output"));
        const auto read = [&] { return QString::fromUtf8(file.readAll()).split('\n', Qt::SkipEmptyParts); };
        QStringList lines; // since the last request
        const auto reports = [&](const QString &last) {
            return waitUntil([&] { return (lines += read()).contains(last); });
        };
        const auto ask = [&](const char *request) {
            lines.clear();
            program.process().write(request);
            program.process().write("\n");
        };
        const auto typed = [&](const QString &command, const QString &result) {
            const int count = program.log().size();
            ProgramOnScreen::type(command);
            return waitUntil([&] { return program.log().mid(count).contains(result); });
        };
        const QString unload = "_MODULEUNLOAD RecentDocumentBrowser";
        const QString load = QString("_MODULELOAD ") + MODULE_FILE;
        const QString module = QString("module %1 ").arg(MODULE_FILE);

        // The script unloads the module with its popup open.
        QVERIFY(program.start({"_NEW", "_RECENT", unload, load, "_NEW"},
                              ProgramOnScreen::freshSession("screen-reader-home")
                                  << "env"
                                  << "QT_LINUX_ACCESSIBILITY_ALWAYS_ON=1" << SCREEN_READER
                                  << file.fileName()));
        QVERIFY(file.open(QIODevice::ReadOnly));
        QVERIFY(reports("attached"));
        const QString tiles[] = {"a name of many letters.dwg", "roof.dwg"};
        const QString pin = "check box: Pin this document to the Recent Documents list () []";
        for (int round = 0; round < 2; ++round) {
            lines.clear();
            Hand::key("F4");
            QVERIFY(reports("focused " + tiles[0]));
            Hand::key("Right");
            QVERIFY(reports("focused " + tiles[1]));
            QVERIFY(reports("unselected " + tiles[0]));
            QVERIFY(reports("selected " + tiles[1]));
            ask("do Pin this document to the Recent Documents list");
            QVERIFY(reports("named Unpin this document from the Recent Documents list"));
            ask("tree");
            QVERIFY(reports(pin));
            QCOMPARE(
                lines.filter(QRegularExpression("^(?!label|image)")),
                QStringList(
                    {"dialog: Recent Documents () []", "push button: Help () []",
                     "list: Recent Documents () []",
                     QString("list item: %1 (%2) []").arg(tiles[0], program.paths().at(0)),
                     "push button: Show in Folder () []",
                     "check box: Unpin this document from the Recent Documents list () [checked]",
                     QString("list item: %1 (%2) [focused, selected]").arg(tiles[1], program.paths().at(1)),
                     "push button: Show in Folder () []", pin}));
            const int items = lines.size();
            ask("old");
            QVERIFY(reports(QString("%1 answer").arg(items)));
            Hand::keepScreenshot(QString("screen-reader-%1").arg(round));
            Hand::key("Escape");
            QTRY_VERIFY(ProgramOnScreen::activeTitle().startsWith("fxhost"));
            QVERIFY(typed(unload, module + "unloaded"));
            ask("old");
            QVERIFY(reports("0 answer"));
            QVERIFY(typed(load, module + "loaded"));
            QVERIFY(typed("_NEW", "command _NEW 5100"));
        }
        QVERIFY(program.quit());
    }
};

TEST_CLASS(tst_ScreenReader);
#include "tst_screenreader.moc"
