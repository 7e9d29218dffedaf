// SPDX-License-Identifier: MIT
#include "tests/support/Browser.h"
#include "tests/support/TestCase.h"
#include "ui/RecentDocDialog.h"
#include "ui/RecentDocMainWindow.h"

#include <QEventLoop>
#include <QMouseEvent>
#include <QPointer>
#include <QTimer>

namespace {

//! The second press of a double-click, alone: what it calls may delete the widget.
void sendDoubleClick(QWidget *widget, Qt::MouseButton button = Qt::LeftButton)
{
    QMouseEvent event(QEvent::MouseButtonDblClick, QPointF(80, 60), button, button, Qt::NoModifier);
    QCoreApplication::sendEvent(widget, &event);
}

//! An open popup, or what is left of it.
struct OpenPopup
{
    explicit OpenPopup(const QStringList &names) : browser(names)
    {
        browser.createDocument();
        popup = browser.openPopup();
    }
    OpenPopup() : OpenPopup({QStringLiteral("a.dwg"), QStringLiteral("b.dwg"), QStringLiteral("c.dwg")}) {}
    RecentDocDialog *tile(int index) const { return browser.tiles().at(index); }

    Browser browser;
    QPointer<RecentDocMainWindow> popup;
};

} // namespace

class TestTileOpening : public TestCase
{
    Q_OBJECT

private slots:
    void doubleClickOpensThatTilesDocument();
    void aRealDoubleClickOpensOnce();
    void popupIsClosedBeforeTheDocumentOpens();
    void askingTheHostIsPlain();
    void pathsReachTheHostUnchanged_data();
    void pathsReachTheHostUnchanged();
    void openingMayDeleteThePopup();
    void openingMayRunEvents();
    void withoutADocumentServiceThePopupClosesAllTheSame_data();
    void withoutADocumentServiceThePopupClosesAllTheSame();
    void openingATileByItselfKeepsThePopup();
};

void TestTileOpening::doubleClickOpensThatTilesDocument()
{
    const OpenPopup open;
    sendDoubleClick(open.tile(1));
    QCOMPARE(open.browser.host.openedPaths(), QStringList(open.browser.path(1)));
    drainEvents();
    QVERIFY(!open.popup);
}

void TestTileOpening::aRealDoubleClickOpensOnce()
{
    const OpenPopup open;
    QTest::mouseDClick(open.tile(2), Qt::LeftButton); // press, release, press, double-click
    QCOMPARE(open.browser.host.openedPaths(), QStringList(open.browser.path(2)));
    drainEvents();
    QVERIFY(!open.popup);
}

void TestTileOpening::popupIsClosedBeforeTheDocumentOpens()
{
    OpenPopup open;
    const QSignalSpy finished(open.popup, &QDialog::finished);
    bool wasVisible = true;
    int finishedBefore = 0;
    open.browser.host.onOpen = [&](const QString & /*path*/) {
        wasVisible = open.popup && open.popup->isVisible();
        finishedBefore = finished.count();
    };
    sendDoubleClick(open.tile(0));
    QVERIFY(!wasVisible);
    QCOMPARE(finishedBefore, 1);
    QCOMPARE(finished.count(), 1);
    QCOMPARE(finished.first().first().toInt(), 0);
}

void TestTileOpening::askingTheHostIsPlain()
{
    const OpenPopup open;
    open.tile(1)->OpenDocument();
    QCOMPARE(open.browser.host.opened.size(), std::size_t(1));
    const FakeHost::OpenCall &call = open.browser.host.opened.front();
    QCOMPARE(call.path, open.browser.path(1));
    QCOMPARE(call.mode, 0);
    QCOMPARE(call.flags, 0);
    QVERIFY(call.resultWasEmpty);
}

void TestTileOpening::pathsReachTheHostUnchanged_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("umlauts") << QString::fromUtf8("Ölpumpe.dwg");
    QTest::newRow("another script") << QString::fromUtf8("図面.dwg");
    QTest::newRow("beyond the first plane") << QString::fromUtf8("\xF0\x9F\x93\x90 plan.dwg");
    QTest::newRow("blanks and quotes") << QStringLiteral("a \"b\" & 'c'.dwg");
    QTest::newRow("a name that its tile cuts") << QStringLiteral("a drawing with quite a long name.dwg");
}

void TestTileOpening::pathsReachTheHostUnchanged()
{
    QFETCH(QString, name);
    const OpenPopup open({name});
    sendDoubleClick(open.tile(0));
    QCOMPARE(open.browser.host.openedPaths(), QStringList(open.browser.path(0)));
    QVERIFY(open.browser.path(0).endsWith(name));
}

void TestTileOpening::openingMayDeleteThePopup()
{
    OpenPopup open;
    const QPointer<RecentDocDialog> tile = open.tile(1);
    open.browser.host.onOpen = [&](const QString & /*path*/) { delete open.popup; };
    sendDoubleClick(tile);
    QVERIFY(!tile);
    QCOMPARE(open.browser.host.openedPaths(), QStringList(open.browser.path(1)));
}

void TestTileOpening::openingMayRunEvents()
{
    OpenPopup open;
    bool wasDeleted = false;
    open.browser.host.onOpen = [&](const QString & /*path*/) {
        QEventLoop loop; // a progress dialog, say
        QTimer::singleShot(0, &loop, &QEventLoop::quit);
        loop.exec();
        drainEvents();
        wasDeleted = !open.popup;
    };
    sendDoubleClick(open.tile(1));
    QVERIFY(wasDeleted); // while its tile was still at work
    QCOMPARE(open.browser.host.openedPaths(), QStringList(open.browser.path(1)));
}

void TestTileOpening::withoutADocumentServiceThePopupClosesAllTheSame_data()
{
    QTest::addColumn<bool>("hasServices");
    QTest::newRow("no services") << false;
    QTest::newRow("no document service") << true;
}

void TestTileOpening::withoutADocumentServiceThePopupClosesAllTheSame()
{
    QFETCH(bool, hasServices);
    OpenPopup open;
    open.browser.host.hasServices = hasServices;
    open.browser.host.hasDocumentManager = false;
    sendDoubleClick(open.tile(1));
    drainEvents();
    QVERIFY(!open.popup);
    QCOMPARE(open.browser.host.openedPaths(), QStringList());
}

void TestTileOpening::openingATileByItselfKeepsThePopup()
{
    const OpenPopup open;
    open.tile(1)->OpenDocument();
    drainEvents();
    QVERIFY(open.popup);
    QVERIFY(open.popup->isVisible());
}

QTEST_MAIN(TestTileOpening)
#include "tst_tileopening.moc"
