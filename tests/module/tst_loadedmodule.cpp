// SPDX-License-Identifier: MIT
#include "host/runtime/FxHost.h"
#include "host/runtime/modules/ModuleManager.h"
#include "tests/support/RealBrowser.h"
#include "tests/support/TestCase.h"

#include <QDialog>
#include <QFile>
#include <QImage>
#include <QPointer>

#include <dlfcn.h>

//! The built library in the real host runtime: it comes, is used, and goes without a trace.
class tst_LoadedModule : public TestCase
{
    Q_OBJECT

private slots:
    void imagesComeAndGoWithTheLibrary();
    void commandsComeAndGoWithTheMainWindow();
    void openPopupGoesWithTheModule();
    void codeThatItsWorkersRunStays();
    void drawingOpenedByDoubleClickIsLogged();
};

namespace {

const QRect usualFrame(0, 0, 1300, 800);

bool libraryIsLoaded(const char *name = MODULE_FILE)
{
    void *library = dlopen(name, RTLD_NOW | RTLD_NOLOAD);
    if (library)
        dlclose(library);
    return library != nullptr;
}

const QString typeIcon = QStringLiteral(":/Images/Resources/VELA_DWG.png");

} // namespace

void tst_LoadedModule::imagesComeAndGoWithTheLibrary()
{
    QVERIFY(!QFile::exists(typeIcon));
    {
        const RealBrowser browser(1, usualFrame);
        QVERIFY(libraryIsLoaded());
        QCOMPARE(QImage(typeIcon).size(), QSize(16, 16));
    }
    QVERIFY(!libraryIsLoaded());
    QVERIFY(!QFile::exists(typeIcon));
}

void tst_LoadedModule::commandsComeAndGoWithTheMainWindow()
{
    RealBrowser browser(1, usualFrame);
    QVERIFY(browser.openPopup());
    const QList<QDialog *> popups = RealBrowser::popups();
    for (QDialog *popup : popups)
        popup->close();
    browser.host().setMainWindow(nullptr);
    QVERIFY(!browser.openPopup());
    QCOMPARE(browser.log().constLast(), QStringLiteral("command _RECENT unknown"));
}

void tst_LoadedModule::openPopupGoesWithTheModule()
{
    RealBrowser browser(3, usualFrame);
    const QPointer<QDialog> popup = browser.openPopup();
    QVERIFY(popup);
    QVERIFY(browser.host().modules().unload(QStringLiteral(MODULE_FILE)));
    QVERIFY(!popup);
    QVERIFY(!libraryIsLoaded());
}

void tst_LoadedModule::codeThatItsWorkersRunStays()
{
    const char *const workersLibrary = "libQt5Concurrent.so.5";
    {
        RealBrowser browser(3, usualFrame);
        QVERIFY(browser.openPopup());
        QVERIFY(libraryIsLoaded(workersLibrary));
    }
    // Only the module uses it here, and a worker thread may still be on its way out of it.
    QVERIFY(!libraryIsLoaded());
    QVERIFY(libraryIsLoaded(workersLibrary));
}

void tst_LoadedModule::drawingOpenedByDoubleClickIsLogged()
{
    RealBrowser browser(3, usualFrame);
    const QPointer<QDialog> popup = browser.openPopup();
    QVERIFY(popup);
    QDialog *tile = RealBrowser::tiles(popup).at(2);
    QTest::mouseDClick(tile, Qt::LeftButton, Qt::NoModifier, QPoint(5, 5));
    QTRY_VERIFY(!popup);
    QCOMPARE(browser.log().constLast(), QStringLiteral("open %1 ok").arg(browser.paths().at(2)));
}

QTEST_MAIN(tst_LoadedModule)
#include "tst_loadedmodule.moc"
