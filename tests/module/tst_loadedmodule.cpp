// SPDX-License-Identifier: MIT
#include "host/runtime/FxHost.h"
#include "host/runtime/documents/DocumentManager.h"
#include "host/runtime/modules/ModuleManager.h"
#include "tests/support/RealBrowser.h"
#include "tests/support/TestCase.h"

#include <QApplication>
#include <QDialog>
#include <QFile>
#include <QMenu>
#include <QPixmap>
#include <QPointer>
#include <QToolButton>

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
    void hundredLoadsAndUnloadsLeaveNothingBehind();
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

void tst_LoadedModule::hundredLoadsAndUnloadsLeaveNothingBehind()
{
    for (int round = 0; round < 100; ++round) {
        RealBrowser browser(3, usualFrame);
        QMenu menu;
        browser.addRecentFiles(&menu, nullptr);
        menu.popup(QPoint());
        browser.host().documents().newDocument(); // the entries of the menu count no longer
        QDialog *popup = browser.openPopup();
        QVERIFY(popup);
        QCOMPARE(RealBrowser::tiles(popup).size(), 3);
        QCursor::setPos(popup->geometry().center());
        QTest::mouseMove(RealBrowser::button(RealBrowser::tiles(popup).at(1), "pinButton"));
        RealBrowser::button(RealBrowser::tiles(popup).at(1), "pinButton")->click();
        menu.close();
        if (round % 2)
            popup->close(); // else it goes with the main window
        browser.host().documents().newDocument();
    }
    QVERIFY(!libraryIsLoaded());
    // Whatever of the module were left would hear of these, in code that is gone.
    QFont font = QApplication::font();
    font.setPointSize(font.pointSize() + 1);
    QApplication::setFont(font);
    QApplication::setPalette(QPalette(Qt::darkGray));
    qApp->setStyleSheet(QStringLiteral("QWidget { color: black; }"));
    drainEvents();
    qApp->setStyleSheet(QString());
    drainEvents();
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
