// SPDX-License-Identifier: MIT
#include "module/HostAccess.h"
#include "state/FolderPinButton.h"
#include "tests/support/OpeningHost.h"
#include "tests/support/TestCase.h"
#include "ui/RecentDocDialog.h"
#include "ui/RecentDocMainWindow.h"

#include <QLabel>

#include <functional>
#include <stdexcept>

//! A host whose operations throw, where no whole life is needed to see what comes of it.
class tst_ThrowingHost : public TestCase
{
    Q_OBJECT

private slots:
    void whatOpeningThrowsPassesThrough_data();
    void whatOpeningThrowsPassesThrough();
    void whatRunningACommandThrowsPassesThrough();
    void picturesThatCannotBeReadLeaveTheOthersAlone_data();
    void picturesThatCannotBeReadLeaveTheOthersAlone();
};

namespace {

void throwSomething(bool isException)
{
    if (isException)
        throw std::runtime_error("the host gives up");
    throw 7;
}

void rowsForBothKinds()
{
    QTest::addColumn<bool>("isException");
    QTest::newRow("a std::exception") << true;
    QTest::newRow("something else") << false;
}

} // namespace

void tst_ThrowingHost::whatOpeningThrowsPassesThrough_data()
{
    rowsForBothKinds();
}

//! Called directly: an exception may not pass through Qt, so a host throws none where Qt has called the
//! module.
void tst_ThrowingHost::whatOpeningThrowsPassesThrough()
{
    QFETCH(bool, isException);
    OpeningHost scene;
    scene.host.onOpen = [&](const QString &) { throwSomething(isException); };
    QString path = scene.browser.path(2);
    const std::function<void()> openings[] = {
        [&] { scene.tile(1)->OpenDocument(); },
        [&] { Browser::button(scene.menu, "menuTextButton")->OpenDocument(path); },
        [&] {
            scene.tile(1)->highlight();
            scene.popup->multiDocumentOpen();
        },
    };
    for (const auto &open : openings) {
        bool hasThrown = false;
        try {
            open();
        } catch (const std::runtime_error &) {
            hasThrown = isException;
        } catch (int) {
            hasThrown = !isException;
        }
        QVERIFY(hasThrown);
    }
    // The popup had closed before the first of its two, and the second was not tried.
    QCOMPARE(scene.host.openedPaths(), QStringList({scene.browser.path(1), path, scene.browser.path(0)}));
    drainEvents();
    QVERIFY(!scene.popup);
    QCOMPARE(scene.host.openReferences, 0);

    scene.host.onOpen = nullptr;
    QTest::keyClick(OpeningHost::runRecent(), Qt::Key_Return);
    QCOMPARE(scene.host.openedPaths().constLast(), scene.browser.path(0));
}

void tst_ThrowingHost::whatRunningACommandThrowsPassesThrough()
{
    FakeHost host;
    host.onRunCommand = [](const QString &) { throw std::runtime_error("no such command"); };
    QVERIFY_EXCEPTION_THROWN(HostAccess::runCommand(L"_RHELP"), std::runtime_error);
    QCOMPARE(host.openReferences, 0);
}

void tst_ThrowingHost::picturesThatCannotBeReadLeaveTheOthersAlone_data()
{
    rowsForBothKinds();
}

void tst_ThrowingHost::picturesThatCannotBeReadLeaveTheOthersAlone()
{
    QFETCH(bool, isException);
    Browser browser(4);
    browser.host.onLoadPreview = [&](const QString &path, QImage &image) {
        if (path == browser.path(0) || path == browser.path(2))
            throwSomething(isException);
        image = pictureOf(path);
        return true;
    };
    browser.createDocument();
    browser.openPopup();
    QList<bool> arePictures;
    const QList<RecentDocDialog *> tiles = browser.tiles();
    for (const RecentDocDialog *tile : tiles) {
        const auto *label = tile->findChild<QLabel *>(QStringLiteral("image_label"));
        arePictures << (label->pixmap(Qt::ReturnByValue).toImage().convertToFormat(QImage::Format_RGB32) ==
                        pictureOf(tile->path()));
    }
    QCOMPARE(arePictures, QList<bool>({false, true, false, true}));
    QCOMPARE(browser.host.previewsAlive(), 0);
}

QTEST_MAIN(tst_ThrowingHost)
#include "tst_throwinghost.moc"
