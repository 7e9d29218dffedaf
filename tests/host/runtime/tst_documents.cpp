// SPDX-License-Identifier: MIT
#include "host/runtime/documents/DocumentManager.h"

#include "host/runtime/recent/RecentFiles.h"
#include "tests/support/DocumentListener.h"
#include "tests/support/TestCase.h"
#include "tests/support/bytes/BytesOfPng.h"
#include "tests/support/bytes/BytesOfPreview.h"
#include "tests/support/real/RealHost.h"

#include <CFxPreviewBitmap.h>
#include <sdkhost/Strings.h>

#include <QDir>
#include <QFileInfo>
#include <QSignalSpy>

#include <future>
#include <memory>
#include <stdexcept>
#include <vector>

using fxhost::Document;
using fxhost::DocumentManager;
using namespace testbytes;

namespace {

//! A host, and its notifications about drawings.
struct ListenedHost : RealHost
{
    std::size_t openCount() const { return documents.documents().size(); }
    QStringList recent() { return host.recentFiles().paths(); }

    DocumentManager &documents = host.documents();
    DocumentListener listener{host};
};

QImage storedPicture()
{
    return patternPicture(32, 160, 100);
}

QByteArray drawingWithAPicture(bool isPng = false)
{
    return drawingWith(isPng ? pngEntry(pngOf(storedPicture()))
                             : bitmapEntry(patternBitmap(32, 160, 100).bytes()))
        .bytes();
}

QImage readAsAModuleDoes(const QString &path)
{
    const std::unique_ptr<CFxPreviewBitmap> preview(CFxPreviewBitmap::Create());
    QImage image;
    if (preview->Load(path) && preview->IsValid())
        preview->ToImage(image);
    return image;
}

} // namespace

class tst_Documents : public TestCase
{
    Q_OBJECT

private slots:
    void initTestCase() { qRegisterMetaType<Document *>("fxhost::Document*"); }

    void reactorsAreNotifiedOfEachStepOfANewDrawing()
    {
        ListenedHost running;
        running.documents.AddReactor(&running.listener); // is added only once
        const QObject scope; // the host closes its drawings after the listener is deleted
        connect(&running.documents, &DocumentManager::documentAdded, &scope,
                [&](Document *d) { running.listener.events << "documentAdded " + d->title(); });
        connect(&running.documents, &DocumentManager::currentChanged, &scope,
                [&](Document *d) { running.listener.events << "currentChanged " + d->title(); });

        const Document *document = running.documents.newDocument();

        QCOMPARE(running.listener.events,
                 QStringList({"CreateStarted Drawing1", "DatabaseAttached Drawing1", "documentAdded Drawing1",
                              "Created Drawing1", "ToBeActivated Drawing1", "Activated Drawing1",
                              "BecameCurrent Drawing1", "ActivationModified 1", "currentChanged Drawing1"}));
        QCOMPARE(running.documents.current(), document);
        QVERIFY(document->isNew());
        QCOMPARE(running.recent(), QStringList());
    }

    void openedDrawingIsListedBeforeReactorsAreNotified()
    {
        ListenedHost running;
        const QString path = running.makeFile("plan.dwg", drawingWithAPicture());
        QStringList listed;
        running.listener.on("Created", [&](CFxDocument *) { listed = running.recent(); });

        QCOMPARE(running.documents.open(path).reason(), QString());

        QCOMPARE(listed, QStringList(path));
        QCOMPARE(running.listener.events.first(), "PreOpen " + path);
        QCOMPARE(running.logged(), QStringList("open " + path + " ok"));
        QCOMPARE(running.messages, QStringList());
        QCOMPARE(QString(running.documents.current()->path()), path);
        const fxhost::DrawingFile &file = running.documents.current()->file();
        QCOMPARE(file.version, QByteArray("AC1032"));
        QCOMPARE(file.size, QFileInfo(path).size());
        QCOMPARE(file.modified, QFileInfo(path).lastModified());
        QCOMPARE(file.preview, storedPicture());
    }

    void reactorsAreNotifiedOfEachStepOfClosing()
    {
        ListenedHost running;
        running.documents.newDocument();
        Document *const second = running.documents.newDocument();
        running.listener.events.clear();
        running.documents.close(second);
        QCOMPARE(running.listener.events,
                 QStringList({"ToBeDeactivated Drawing2", "ToBeDestroyed Drawing2",
                              "DatabaseDetached Drawing2", "Destroyed ", "ToBeActivated Drawing1",
                              "Activated Drawing1", "BecameCurrent Drawing1", "ActivationModified 1"}));
        running.listener.events.clear();
        QSignalSpy currentChanged(&running.documents, &DocumentManager::currentChanged);
        running.documents.closeAll();
        QCOMPARE(running.listener.events,
                 QStringList({"ToBeDeactivated Drawing1", "ToBeDestroyed Drawing1",
                              "DatabaseDetached Drawing1", "Destroyed ", "ActivationModified 0"}));
        QCOMPARE(running.documents.current(), nullptr);
        QCOMPARE(currentChanged.size(), 1);
        QCOMPARE(QString(running.documents.newDocument()->title()), QString("Drawing3"));
    }

    void reactorMayCloseTheDrawingOfItsEvent_data()
    {
        QTest::addColumn<QString>("event");
        for (const char *event : {"Created", "ToBeActivated", "Activated", "BecameCurrent"})
            QTest::newRow(event) << QString(event);
    }

    void reactorMayCloseTheDrawingOfItsEvent()
    {
        QFETCH(QString, event);
        ListenedHost running;
        running.listener.on(event,
                            [&](CFxDocument *d) { running.documents.close(static_cast<Document *>(d)); });
        DocumentListener late(running.host); // is notified after the drawing is closed

        QCOMPARE(running.documents.newDocument(), nullptr);

        QCOMPARE(running.openCount(), std::size_t(0));
        QCOMPARE(running.documents.current(), nullptr);
        QVERIFY(late.events.contains(event + " Drawing1"));
    }

    void closingTwiceAtOnceClosesOnce()
    {
        ListenedHost running;
        Document *const document = running.documents.newDocument();
        running.listener.on("ToBeDestroyed", [&](CFxDocument *) { running.documents.close(document); });
        running.documents.close(document);
        QCOMPARE(running.listener.events.count("ToBeDestroyed Drawing1"), 1);
        QCOMPARE(running.openCount(), std::size_t(0));
    }

    void aReactorMayOpenADrawingWhileOneIsClosed()
    {
        ListenedHost running;
        running.documents.newDocument();
        running.listener.on("ToBeDestroyed", [&](CFxDocument *) { running.documents.newDocument(); });
        running.documents.closeAll();
        QCOMPARE(running.openCount(), std::size_t(1));
        QCOMPARE(QString(running.documents.current()->title()), QString("Drawing2"));
    }

    void reactorsMayBeAddedAndRemovedDuringAnEvent()
    {
        ListenedHost running;
        auto second = std::make_unique<DocumentListener>(running.host);
        std::unique_ptr<DocumentListener> third;
        running.listener.on("CreateStarted", [&](CFxDocument *) {
            third = std::make_unique<DocumentListener>(running.host);
            second.reset();
        });
        running.documents.newDocument();
        QCOMPARE(third->events.first(), QString("DatabaseAttached Drawing1"));
    }

    void othersAreNotifiedAfterAReactorThatThrows()
    {
        ListenedHost running;
        DocumentListener other(running.host);
        running.listener.on("Created", [](CFxDocument *) { throw std::runtime_error("out of ink"); });
        running.documents.newDocument();
        QVERIFY(other.events.contains("Created Drawing1"));
        QCOMPARE(running.messages.size(), 1);
        QVERIFY2(running.messages.first().contains("out of ink"), qPrintable(running.messages.first()));
        running.listener.on("Created", [](CFxDocument *) { throw 1; });
        running.documents.newDocument();
        QCOMPARE(running.messages.size(), 2);
    }

    void noExceptionReachesTheModuleThatOpens_data()
    {
        QTest::addColumn<bool>("isException");
        QTest::newRow("a std::exception") << true;
        QTest::newRow("something else") << false;
    }

    void noExceptionReachesTheModuleThatOpens()
    {
        QFETCH(bool, isException);
        RealHost running;
        QString message;
        const auto fail = [&](const QString &text) {
            message = text;
            if (isException)
                throw std::runtime_error("out of paper");
            throw 7;
        };
        DocumentManager documents(running.host, running.host.recentFiles(), running.host.fileProbe(),
                                  running.host.log(), fail);
        OdString result;
        QVERIFY(!documents.OpenDocument(L"/missing.dwg", 0, 0, result));
        QVERIFY(!result.isEmpty());
        const QString reason =
            isException ? "The host failed: out of paper" : "The host failed: unknown exception";
        QCOMPARE(fxhost::fromOdString(result), reason);
        QVERIFY2(message.contains(reason), qPrintable(message));

        QVERIFY(documents.OpenDocument(running.makeDrawing("plan.dwg"), 0, 0, result));
        QVERIFY(result.isEmpty());
    }

    void failedOpenChangesNothing_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<int>("mode");
        QTest::addColumn<int>("flags");
        QTest::newRow("missing") << "missing.dwg" << 0 << 0;
        QTest::newRow("a directory") << "." << 0 << 0;
        QTest::newRow("not a drawing") << "text.dwg" << 0 << 0;
        QTest::newRow("an empty file") << "empty.dwg" << 0 << 0;
        QTest::newRow("a name with argument markers") << "missing %1 %2.dwg" << 0 << 0;
        QTest::newRow("an empty path") << QString() << 0 << 0;
        QTest::newRow("a reserved mode") << "plan.dwg" << 1 << 0;
        QTest::newRow("a reserved flag") << "plan.dwg" << 0 << 1;
    }

    void failedOpenChangesNothing()
    {
        QFETCH(QString, name);
        QFETCH(int, mode);
        QFETCH(int, flags);
        ListenedHost running;
        running.makeDrawing("plan.dwg");
        running.makeFile("text.dwg", "this is a letter");
        running.makeFile("empty.dwg", QByteArray());
        const QString path = name.isEmpty() ? name : running.path(name);

        OdString result;
        QVERIFY(!running.documents.OpenDocument(path, mode, flags, result));

        QVERIFY(!result.isEmpty());
        QCOMPARE(running.messages.size(), 1);
        QVERIFY2(running.messages.first().contains(path), qPrintable(running.messages.first()));
        QVERIFY(running.messages.first().endsWith(QString::fromWCharArray(result.c_str())));
        QCOMPARE(running.openCount(), std::size_t(0));
        QCOMPARE(running.recent(), QStringList());
        QCOMPARE(running.logged(), QStringList("open " + path + " failed"));
        const bool isTried = mode == 0 && flags == 0 && !name.isEmpty();
        QCOMPARE(running.listener.events, (isTried ? QStringList("PreOpen " + path) : QStringList()) +
                                              QStringList("cancelDwgOpen " + path));
        QVERIFY(running.documents.OpenDocument(running.path("plan.dwg"), 0, 0, result));
        QVERIFY(result.isEmpty());
    }

    void openDrawingIsBroughtToTheFront_data()
    {
        QTest::addColumn<bool>("isLink");
        QTest::addColumn<bool>("isDeleted");
        QTest::newRow("by its path") << false << false;
        QTest::newRow("by a link") << true << false;
        QTest::newRow("when it was deleted") << false << true;
    }

    void openDrawingIsBroughtToTheFront()
    {
        QFETCH(bool, isLink);
        QFETCH(bool, isDeleted);
        ListenedHost running;
        const QString first = running.makeDrawing("first.dwg");
        const QString second = running.makeDrawing("second.dwg");
        const QString link = running.path("link.dwg");
        QVERIFY(QFile::link(first, link));
        running.documents.open(first);
        Document *const document = running.documents.current();
        running.documents.open(second);
        QVERIFY(!isDeleted || QFile::remove(first));
        QSignalSpy activateRequested(&running.documents, &DocumentManager::activateRequested);

        QCOMPARE(running.documents.open(isLink ? link : first).reason(), QString());

        QCOMPARE(running.openCount(), std::size_t(2));
        QCOMPARE(running.documents.current(), document);
        QCOMPARE(activateRequested.size(), 1);
        QCOMPARE(running.recent(), QStringList({first, second}));
    }

    void fullPathsAreKeptAsTheyWereGiven()
    {
        ListenedHost running;
        const QString path = running.makeDrawing("plan.dwg");
        const QString odd = running.path("") + "//./plan.dwg";
        running.documents.open(odd);
        QCOMPARE(running.recent(), QStringList(odd));
        QCOMPARE(QString(running.documents.current()->path()), odd);
        QCOMPARE(QString(running.documents.current()->title()), QString("plan.dwg"));
        running.documents.closeAll();

        const QString former = QDir::currentPath();
        QVERIFY(QDir::setCurrent(running.path("")));
        running.documents.open("plan.dwg");
        QDir::setCurrent(former);
        QCOMPARE(running.recent(), QStringList({path, odd}));
    }

    void closingWhatIsNotOpenDoesNothing()
    {
        ListenedHost running;
        Document stranger("stranger");
        running.documents.close(nullptr);
        running.documents.close(&stranger);
        running.documents.setCurrent(&stranger);
        running.documents.bringToFront(&stranger);
        QCOMPARE(running.listener.events, QStringList());
    }

    void closingWindowMayMakeAnotherCurrent()
    {
        RealHost running;
        DocumentManager &documents = running.host.documents();
        Document *const first = documents.newDocument();
        documents.newDocument();
        Document *const third = documents.newDocument();
        // As a window area that shows another window as soon as one is removed.
        connect(&documents, &DocumentManager::documentAboutToClose, &documents,
                [&] { documents.setCurrent(first); });
        QSignalSpy currentChanged(&documents, &DocumentManager::currentChanged);
        documents.close(third);
        QCOMPARE(documents.current(), first);
        QCOMPARE(currentChanged.size(), 1);
    }

    // Pictures, as modules read them.

    void threadsReadTheSamePictures()
    {
        RealHost running;
        const QString bitmap = running.makeFile("bitmap.dwg", drawingWithAPicture());
        const QString png = running.makeFile("png.dwg", drawingWithAPicture(true));
        std::vector<std::future<QImage>> images;
        for (int i = 0; i < 64; ++i)
            images.push_back(std::async(std::launch::async, readAsAModuleDoes, i % 2 ? bitmap : png));
        for (std::future<QImage> &image : images)
            QCOMPARE(image.get(), storedPicture());
    }

    void noPictureIsReadWhereThereIsNone()
    {
        RealHost running;
        const std::unique_ptr<CFxPreviewBitmap> preview(CFxPreviewBitmap::Create());
        QVERIFY(!preview->IsValid());
        QVERIFY(preview->Load(running.makeFile("plan.dwg", drawingWithAPicture())));
        QVERIFY(!preview->Load(running.makeDrawing("bare.dwg")));
        QVERIFY(!preview->IsValid()); // the former picture is not kept
        QVERIFY(!preview->Load(running.path("missing.dwg")));
        QImage image(1, 1, QImage::Format_RGB32);
        preview->ToImage(image);
        QVERIFY(image.isNull());
    }
};

TEST_CLASS(tst_Documents);
#include "tst_documents.moc"
