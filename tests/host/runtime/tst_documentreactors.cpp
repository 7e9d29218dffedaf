// SPDX-License-Identifier: MIT
#include "host/runtime/documents/DocumentManager.h"
#include "host/runtime/recent/RecentFiles.h"
#include "tests/support/DocumentListener.h"
#include "tests/support/RunningHost.h"
#include "tests/support/TestCase.h"

#include <memory>
#include <stdexcept>

using fxhost::Document;
using fxhost::DocumentManager;

class TestDocumentReactors : public TestCase
{
    Q_OBJECT

private slots:
    void aNewDrawingIsToldStepByStep()
    {
        RunningHost running;
        DocumentListener listener(running.host);
        DocumentManager &documents = running.host.documents();
        const QObject scope; // the host closes its drawings when the listener is gone
        connect(&documents, &DocumentManager::documentAdded, &scope,
                [&](Document *d) { listener.events << "documentAdded " + d->title(); });
        connect(&documents, &DocumentManager::currentChanged, &scope,
                [&](Document *d) { listener.events << "currentChanged " + d->title(); });

        const Document *document = documents.newDocument();

        QCOMPARE(listener.events,
                 QStringList({"CreateStarted Drawing1", "DatabaseAttached Drawing1", "documentAdded Drawing1",
                              "Created Drawing1", "ToBeActivated Drawing1", "Activated Drawing1",
                              "BecameCurrent Drawing1", "ActivationModified 1", "currentChanged Drawing1"}));
        QCOMPARE(documents.current(), document);
        QVERIFY(document->isNew());
        QVERIFY(running.host.recentFiles().paths().isEmpty());
    }

    void anOpenedDrawingIsListedBeforeItIsToldOf()
    {
        RunningHost running;
        DocumentListener listener(running.host);
        const QString path = running.makeDrawing("plan.dwg");
        QStringList listed;
        listener.on("Created", [&](CFxDocument *) { listed = running.host.recentFiles().paths(); });

        QCOMPARE(running.host.documents().open(path), QString());

        QCOMPARE(listed, QStringList(path));
        QCOMPARE(listener.events.first(), "PreOpen " + path);
        QCOMPARE(running.logged(), QStringList(QString("open %1 ok").arg(path)));
        QVERIFY(running.messages.isEmpty());
    }

    void closingIsToldStepByStepAndTheLastOneOpenedTakesOver()
    {
        RunningHost running;
        DocumentManager &documents = running.host.documents();
        documents.newDocument();
        Document *const second = documents.newDocument();
        DocumentListener listener(running.host);

        documents.close(second);

        QCOMPARE(listener.events,
                 QStringList({"ToBeDeactivated Drawing2", "ToBeDestroyed Drawing2",
                              "DatabaseDetached Drawing2", "Destroyed ", "ToBeActivated Drawing1",
                              "Activated Drawing1", "BecameCurrent Drawing1", "ActivationModified 1"}));
    }

    void aReactorMayCloseTheDrawingItHearsOf_data()
    {
        QTest::addColumn<QString>("event");
        for (const char *event : {"Created", "ToBeActivated", "Activated", "BecameCurrent"})
            QTest::newRow(event) << QString(event);
    }

    void aReactorMayCloseTheDrawingItHearsOf()
    {
        QFETCH(QString, event);
        RunningHost running;
        DocumentManager &documents = running.host.documents();
        DocumentListener closer(running.host);
        closer.on(event, [&](CFxDocument *d) { documents.close(static_cast<Document *>(d)); });
        DocumentListener late(running.host); // hears of the event when the drawing is closed already

        QCOMPARE(documents.newDocument(), nullptr);

        QVERIFY(documents.documents().empty());
        QCOMPARE(documents.current(), nullptr);
        QVERIFY(late.events.contains(event + " Drawing1"));
    }

    void closingTwiceAtOnceClosesOnce()
    {
        RunningHost running;
        DocumentManager &documents = running.host.documents();
        Document *const document = documents.newDocument();
        DocumentListener closer(running.host);
        closer.on("ToBeDestroyed", [&](CFxDocument *) { documents.close(document); });
        documents.close(document);
        QCOMPARE(closer.events.count("ToBeDestroyed Drawing1"), 1);
        QVERIFY(documents.documents().empty());
    }

    void aReactorMayOpenADrawingWhileOneIsClosed()
    {
        RunningHost running;
        DocumentManager &documents = running.host.documents();
        documents.newDocument();
        DocumentListener opener(running.host);
        opener.on("ToBeDestroyed", [&](CFxDocument *) { documents.newDocument(); });
        documents.closeAll();
        QCOMPARE(documents.documents().size(), std::size_t(1));
        QCOMPARE(QString(documents.current()->title()), QString("Drawing2"));
    }

    void reactorsMayComeAndGoWhileTheyAreTold()
    {
        RunningHost running;
        DocumentListener first(running.host);
        auto second = std::make_unique<DocumentListener>(running.host);
        std::unique_ptr<DocumentListener> third;
        first.on("CreateStarted", [&](CFxDocument *) {
            third = std::make_unique<DocumentListener>(running.host);
            second.reset();
        });
        running.host.documents().newDocument();
        QCOMPARE(third->events.first(), QString("DatabaseAttached Drawing1"));
    }

    void aReactorIsListedOnce()
    {
        RunningHost running;
        DocumentListener listener(running.host);
        running.host.documents().AddReactor(&listener);
        running.host.documents().newDocument();
        QCOMPARE(listener.events.count("Created Drawing1"), 1);
    }

    void aReactorThatThrowsKeepsTheOthersFromNothing()
    {
        RunningHost running;
        DocumentListener thrower(running.host);
        DocumentListener other(running.host);
        thrower.on("Created", [](CFxDocument *) { throw std::runtime_error("out of ink"); });
        running.host.documents().newDocument();
        QVERIFY(other.events.contains("Created Drawing1"));
        QCOMPARE(running.messages.size(), 1);
        QVERIFY2(running.messages.first().contains("out of ink"), qPrintable(running.messages.first()));
        thrower.on("Created", [](CFxDocument *) { throw 1; });
        running.host.documents().newDocument();
        QCOMPARE(running.messages.size(), 2);
    }
};

QTEST_MAIN(TestDocumentReactors)
#include "tst_documentreactors.moc"
