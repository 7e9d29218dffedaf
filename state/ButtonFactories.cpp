// SPDX-License-Identifier: MIT
#include "module/RecentDocumentBrowser.h"
#include "state/FolderPinButton.h"
#include "state/SharedIcons.h"

#include <QIcon>

namespace {

//! Positions of the buttons in their parent until a layout moves them, in pixels.
constexpr int pinButtonLeft = 130;
constexpr int folderButtonLeft = 100;

FolderPinButton *createButton(QWidget *parent, QString &path, const QString &name, int left)
{
    auto *button = new FolderPinButton(parent, path);
    button->setObjectName(name);
    button->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    button->setGeometry(QRect(QPoint(left, 0), SharedIcons::size));
    button->setCursor(Qt::PointingHandCursor);
    return button;
}

} // namespace

FolderPinButton *RecentDocumentBrowser::CreatePinButton(QWidget *parent, QString &path)
{
    FolderPinButton *button = createButton(parent, path, QStringLiteral("pinButton"), pinButtonLeft);
    button->setCheckable(true);
    button->setIcon(SharedIcons::pin());
    button->setTipText(QObject::tr("Pin this document to the Recent Documents list"));
    return button;
}

FolderPinButton *RecentDocumentBrowser::CreateFolderButton(QWidget *parent, QString &path)
{
    FolderPinButton *button = createButton(parent, path, QStringLiteral("folderButton"), folderButtonLeft);
    button->setEnabled(true);
    button->setIcon(SharedIcons::folder());
    button->setTipText(QObject::tr("Show in Folder"));
    return button;
}
