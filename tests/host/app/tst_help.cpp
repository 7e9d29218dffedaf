// SPDX-License-Identifier: MIT
#include "host/app/AboutWindow.h"
#include "host/app/HelpPage.h"
#include "host/app/HelpWindow.h"
#include "tests/host/app/ShownProgram.h"
#include "tests/support/HelpLinks.h"

#include <QLabel>
#include <QPlainTextEdit>
#include <QTextBrowser>

using namespace fxhost;

//! What the Help menu shows.
class tst_Help : public TestCase
{
    Q_OBJECT

private slots:
    void helpShowsThePageOfATopic()
    {
        ShownProgram program;
        const QPair<const char *, const char *> pages[] = {
            {"_HELP", "_RECENTLIMIT"},
            {"_HELP 3087", "Preview Recent Documents..., or F4"},
            {"_HELP 12", "no help page for topic 12"}};
        for (const auto &page : pages) {
            program.enter(page.first);
            const auto *help = program.window.findChild<HelpWindow *>();
            QVERIFY(help && help->isVisible());
            QVERIFY2(help->text().contains(page.second), qPrintable(help->text()));
        }
        auto *help = program.window.findChild<HelpWindow *>();
        QTRY_COMPARE(QApplication::activeWindow(), help);
        QTest::keyClick(help, Qt::Key_F1); // as in every window
        QTRY_VERIFY(help->text().contains("_RECENTLIMIT"));
        QCOMPARE(brokenHelpLinks(":/help"), QStringList());
    }

    void helpFindsText()
    {
        ShownProgram program;
        program.enter("_HELP");
        auto *help = program.window.findChild<HelpWindow *>();
        auto *wanted = help->findChild<QLineEdit *>();
        const auto *page = help->findChild<QTextBrowser *>();
        QTRY_COMPARE(QApplication::activeWindow(), help);
        QTest::keyClick(help, Qt::Key_F, Qt::ControlModifier);
        QVERIFY(wanted->hasFocus());
        QTest::keyClicks(wanted, "_CASCADE");
        for (int i = 0; i < 2; ++i) { // the only place, so that it is also the next one
            QTest::keyClick(wanted, Qt::Key_Return);
            QCOMPARE(page->textCursor().selectedText(), "_CASCADE");
        }
        const auto isNotFound = [help] {
            const auto labels = help->findChildren<QLabel *>();
            return std::any_of(labels.begin(), labels.end(),
                               [](const QLabel *label) { return label->text() == "Not found"; });
        };
        QVERIFY(!isNotFound());
        QTest::keyClicks(wanted, "X");
        QTest::keyClick(wanted, Qt::Key_Return);
        QVERIFY(isNotFound());
        QTest::keyClick(wanted, Qt::Key_Escape);
        QVERIFY(!help->isVisible());
    }

    void helpIsInTheUsersLanguage_data()
    {
        QTest::addColumn<QStringList>("languages");
        QTest::addColumn<int>("topic");
        QTest::addColumn<QString>("page");
        QTest::newRow("translated") << QStringList{"de-AT", "de", "en"} << 0 << "/de/0.html";
        QTest::newRow("the second language") << QStringList{"fr-FR", "fr", "de-DE"} << 0 << "/de/0.html";
        QTest::newRow("English before others") << QStringList{"en-GB", "de"} << 0 << "/0.html";
        QTest::newRow("not translated") << QStringList{"de-DE", "de"} << 1 << "/1.html";
        QTest::newRow("no page") << QStringList("de") << 2 << QString();
    }

    void helpIsInTheUsersLanguage()
    {
        QFETCH(QStringList, languages);
        QFETCH(int, topic);
        QFETCH(QString, page);
        const QTemporaryDir folder;
        QDir(folder.path()).mkdir("de");
        for (const char *name : {"0.html", "1.html", "de/0.html"})
            testbytes::writeFile(folder.filePath(name), {});
        QCOMPARE(helpPage(folder.path(), topic, languages), page.isEmpty() ? page : folder.path() + page);
    }

    void aboutShowsWhatTheProgramConsistsOf()
    {
        ShownProgram program;
        program.enter("_ABOUT");
        const auto *about = program.window.findChild<AboutWindow *>();
        QVERIFY(about && about->isVisible());
        const auto facts = [about] {
            QString text;
            const auto labels = about->findChildren<QLabel *>();
            for (const QLabel *label : labels)
                text += label->text();
            return text;
        };
        for (const char *fact : {"4.3.2", qVersion(), "none"})
            QVERIFY2(facts().contains(fact), qPrintable(facts()));
        QVERIFY(about->findChild<QPlainTextEdit *>()->toPlainText().contains("Permission is hereby granted"));
        program.enter("_MODULELOAD " PROBE_MODULE);
        program.enter("_ABOUT");
        const QString module = QFileInfo(PROBE_MODULE).fileName();
        QVERIFY2(facts().contains(module), qPrintable(facts()));
    }
};

TEST_CLASS(tst_Help);
#include "tst_help.moc"
