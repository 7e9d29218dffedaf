// SPDX-License-Identifier: MIT
#include "tests/support/fake/FakeOpening.h"

#include "module/CFxRecentDocCommand.h"
#include "module/OdRxUnixModuleRecentDocumentBrowser.h"
#include "state/FolderPinButton.h"
#include "tests/support/TestCase.h"
#include "ui/RecentDocDialog.h"
#include "ui/RecentDocMainWindow.h"

#include <OdStaticRxObject.h>

#include <QCursor>
#include <QMouseEvent>

FakeOpening::FakeOpening() : menu(new QMenu)
{
    browser.module().initApp();
    browser.createDocument();
    RecentDocumentBrowser::AddRecentFiles(menu, nullptr);
    popup = browser.openPopup();
    drainEvents();
    QCursor::setPos(popup->geometry().center()); // so that it stays open when the menu takes the focus
    menu->popup(popup->geometry().topLeft() + QPoint(5, 5));
}

QStringList FakeOpening::open(Way way) const
{
    switch (way) {
    case Way::Enter:
        QTest::keyClick(popup, Qt::Key_Right, Qt::ShiftModifier);
        QTest::keyClick(popup, Qt::Key_Return);
        return {browser.path(0), browser.path(1)};
    case Way::TwoClicks:
        QTest::mouseDClick(tile(1), Qt::LeftButton, Qt::NoModifier, QPoint(5, 5));
        return {browser.path(1)};
    case Way::MenuEntry:
        QTest::mouseClick(FakeBrowser::button(menu, "menuTextButton"), Qt::LeftButton);
        return {browser.path(0)};
    case Way::DragOut:
        break;
    }
    tile(2)->highlight();
    hold(tile(1));
    popup->isCollapsed = true;
    QMouseEvent move(QEvent::MouseMove, popup->pressPoint + QPoint(40, 0), Qt::NoButton, Qt::LeftButton,
                     Qt::NoModifier);
    QCoreApplication::sendEvent(popup, &move);
    return {browser.path(0), browser.path(2)};
}

void FakeOpening::hold(const RecentDocDialog *tile) const
{
    QMouseEvent press(QEvent::MouseButtonPress, tile->geometry().center(), Qt::LeftButton, Qt::LeftButton,
                      Qt::NoModifier);
    QCoreApplication::sendEvent(popup, &press);
}

RecentDocMainWindow *FakeOpening::runRecent()
{
    const QList<RecentDocMainWindow *> before = FakeBrowser::popups();
    OdStaticRxObject<CFxRecentDocCommand> command;
    command.Execute(nullptr);
    const QList<RecentDocMainWindow *> after = FakeBrowser::popups();
    for (RecentDocMainWindow *popup : after) {
        if (!before.contains(popup))
            return popup;
    }
    return nullptr;
}
