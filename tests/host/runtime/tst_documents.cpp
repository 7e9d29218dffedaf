// SPDX-License-Identifier: MIT
#include "host/runtime/documents/DocumentManager.h"
#include "host/runtime/recent/RecentFiles.h"
#include "tests/support/DocumentListener.h"
#include "tests/support/RunningHost.h"
#include "tests/support/TestCase.h"

#include <QDir>
#include <QFileInfo>
#include <QSignalSpy>

#include <stdexcept>

using fxhost::Document;
using fxhost::DocumentManager;

class TestDocuments : public TestCase
{
    Q_OBJECT

private slots:
    void initTestCase() { qRegisterMetaType<Document *>("fxhost::Document*"); }

    void newDrawingsAreNumbered()
    {
        RunningHost running;
        running.host.documents().newDocument();
        running.host.documents().close(running.host.documents().current());
        QCOMPARE(QString(running.host.documents().newDocument()->title()), QString("Drawing2"));
    }

    void theFactsAreTheFiles()
    {
        RunningHost running;
        const QString path = running.makeDrawing("plan.dwg");
        running.host.documents().open(path);
        const fxhost::DrawingFacts &facts = running.host.documents().current()->facts();
        QCOMPARE(facts.path, path);
        QCOMPARE(facts.version, QString("AC1015"));
        QCOMPARE(facts.size, QFileInfo(path).size());
        QCOMPARE(facts.modified, QFileInfo(path).lastModified());
        QVERIFY(facts.preview.isNull());
    }

    void noExceptionLeavesTheOpeningForAModule_data()
    {
        QTest::addColumn<bool>("isException");
        QTest::newRow("a std::exception") << true;
        QTest::newRow("something else") << false;
    }

    void noExceptionLeavesTheOpeningForAModule()
    {
        QFETCH(bool, isException);
        RunningHost running;
        QString told;
        DocumentManager documents(running.host.recentFiles(), running.host.fileProbe(), running.host.editor(),
                                  running.host.log(), [&](const QString &text) {
                                      told = text;
                                      if (isException)
                                          throw std::runtime_error("out of paper");
                                      throw 7;
                                  });
        OdString result;
        QVERIFY(!documents.OpenDocument(L"/missing.dwg", 0, 0, result));
        QVERIFY(!result.isEmpty());
        QVERIFY(!isException || result == OdString(L"out of paper"));
        // Whoever can be told hears of it.
        QVERIFY2(told.contains(isException ? "out of paper" : "The host failed"), qPrintable(told));

        const QString path = running.makeDrawing("plan.dwg");
        QVERIFY(documents.OpenDocument(path, 0, 0, result));
        QVERIFY(result.isEmpty());
    }

    void whatCannotBeOpenedOpensNothing_data()
    {
        QTest::addColumn<QString>("name");
        QTest::newRow("missing") << "missing.dwg";
        QTest::newRow("a directory") << ".";
        QTest::newRow("no drawing") << "text.dwg";
        QTest::newRow("an empty file") << "empty.dwg";
        QTest::newRow("a name with argument markers") << "missing %1 %2.dwg";
    }

    void whatCannotBeOpenedOpensNothing()
    {
        QFETCH(QString, name);
        RunningHost running;
        running.makeFile("text.dwg", "this is a letter");
        running.makeFile("empty.dwg", QByteArray());
        const QString path = running.path(name);
        DocumentListener listener(running.host);

        OdString result;
        QVERIFY(!running.host.documents().OpenDocument(path, 0, 0, result));

        QVERIFY(!result.isEmpty());
        QCOMPARE(running.messages.size(), 1);
        QVERIFY2(running.messages.first().contains(path), qPrintable(running.messages.first()));
        QVERIFY(running.messages.first().endsWith(QString::fromWCharArray(result.c_str())));
        QVERIFY(running.host.documents().documents().empty());
        QVERIFY(running.host.recentFiles().paths().isEmpty());
        QCOMPARE(running.logged(), QStringList(QString("open %1 failed").arg(path)));
        QCOMPARE(listener.events, QStringList({"PreOpen " + path, "cancelDwgOpen " + path}));
    }

    void anEmptyPathAndReservedModesAreRefused()
    {
        RunningHost running;
        OdString result;
        QVERIFY(!running.host.documents().OpenDocument(QString(), 0, 0, result));
        QVERIFY(!result.isEmpty());
        const QString path = running.makeDrawing("plan.dwg");
        QVERIFY(!running.host.documents().OpenDocument(path, 1, 0, result));
        QVERIFY(!running.host.documents().OpenDocument(path, 0, 1, result));
        QVERIFY(!result.isEmpty());
        QCOMPARE(running.messages.size(), 3);
        QVERIFY(running.host.documents().OpenDocument(path, 0, 0, result));
        QVERIFY(result.isEmpty());
    }

    void aDrawingThatIsOpenComesToTheFront()
    {
        RunningHost running;
        DocumentManager &documents = running.host.documents();
        const QString first = running.makeDrawing("first.dwg");
        const QString second = running.makeDrawing("second.dwg");
        documents.open(first);
        Document *const document = documents.current();
        documents.open(second);
        QSignalSpy activateRequested(&documents, &DocumentManager::activateRequested);

        QCOMPARE(documents.open(first), QString());

        QCOMPARE(documents.documents().size(), std::size_t(2));
        QCOMPARE(documents.current(), document);
        QCOMPARE(activateRequested.size(), 1);
        QCOMPARE(running.host.recentFiles().paths(), QStringList({first, second}));
    }

    void anotherWayToAnOpenDrawingIsTheSameDrawing()
    {
        RunningHost running;
        const QString path = running.makeDrawing("plan.dwg");
        const QString link = running.path("link.dwg");
        QVERIFY(QFile::link(path, link));
        running.host.documents().open(path);
        QCOMPARE(running.host.documents().open(link), QString());
        QCOMPARE(running.host.documents().documents().size(), std::size_t(1));
        QCOMPARE(running.host.recentFiles().paths(), QStringList(path));
    }

    void aDrawingThatIsOpenAndWasDeletedComesToTheFrontAllTheSame()
    {
        RunningHost running;
        const QString path = running.makeDrawing("plan.dwg");
        running.host.documents().open(path);
        QVERIFY(QFile::remove(path));
        QCOMPARE(running.host.documents().open(path), QString());
        QCOMPARE(running.host.documents().documents().size(), std::size_t(1));
    }

    void pathsAreKeptAsTheyWereGiven()
    {
        RunningHost running;
        running.makeDrawing("plan.dwg");
        const QString odd = running.path(QString()) + "//./plan.dwg";
        running.host.documents().open(odd);
        QCOMPARE(running.host.recentFiles().paths(), QStringList(odd));
        QCOMPARE(QString(running.host.documents().current()->path()), odd);
        QCOMPARE(QString(running.host.documents().current()->title()), QString("plan.dwg"));
    }

    void aRelativePathIsMadeAbsolute()
    {
        RunningHost running;
        const QString path = running.makeDrawing("plan.dwg");
        const QString former = QDir::currentPath();
        QVERIFY(QDir::setCurrent(QFileInfo(path).path()));
        running.host.documents().open("plan.dwg");
        QDir::setCurrent(former);
        QCOMPARE(running.host.recentFiles().paths(), QStringList(path));
    }

    void afterTheLastDrawingNoneIsCurrent()
    {
        RunningHost running;
        DocumentManager &documents = running.host.documents();
        documents.newDocument();
        QSignalSpy currentChanged(&documents, &DocumentManager::currentChanged);
        DocumentListener listener(running.host);
        documents.closeAll();
        QCOMPARE(documents.current(), nullptr);
        QCOMPARE(currentChanged.size(), 1);
        QCOMPARE(listener.events.last(), QString("ActivationModified 0"));
    }

    void closingWhatIsNotOpenDoesNothing()
    {
        RunningHost running;
        Document stranger("stranger", {});
        DocumentListener listener(running.host);
        running.host.documents().close(nullptr);
        running.host.documents().close(&stranger);
        running.host.documents().setCurrent(&stranger);
        running.host.documents().bringToFront(&stranger);
        QVERIFY(listener.events.isEmpty());
    }

    void aWindowThatGoesMayHandTheCurrentPlaceOn()
    {
        RunningHost running;
        DocumentManager &documents = running.host.documents();
        Document *const first = documents.newDocument();
        documents.newDocument();
        Document *const third = documents.newDocument();
        // As a window area does that shows another window as soon as one is taken out.
        connect(&documents, &DocumentManager::documentAboutToClose, &documents,
                [&] { documents.setCurrent(first); });
        QSignalSpy currentChanged(&documents, &DocumentManager::currentChanged);
        documents.close(third);
        QCOMPARE(documents.current(), first);
        QCOMPARE(currentChanged.size(), 1);
    }
};

QTEST_MAIN(TestDocuments)
#include "tst_documents.moc"
