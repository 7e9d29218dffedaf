// SPDX-License-Identifier: MIT
#include "module/RecentDocumentBrowser.h"
#include "state/FolderPinButton.h"

#include <QIcon>

namespace {

//! Side of the buttons and of their pictures, in pixels.
constexpr int buttonSide = 21;
//! Where the buttons stand in their parent until a layout moves them, in pixels.
constexpr int pinButtonLeft = 130;
constexpr int folderButtonLeft = 100;

FolderPinButton *createButton(QWidget *parent, QString &path, const QString &name, int left)
{
    auto *button = new FolderPinButton(parent, path);
    button->setObjectName(name);
    button->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    button->setGeometry(left, 0, buttonSide, buttonSide);
    button->setCursor(Qt::PointingHandCursor);
    return button;
}

} // namespace

FolderPinButton *RecentDocumentBrowser::CreatePinButton(QWidget *parent, QString &path)
{
    FolderPinButton *button = createButton(parent, path, QStringLiteral("pinButton"), pinButtonLeft);
    button->setCheckable(true);
    QIcon icon; // the checked state alone chooses the picture
    const QSize size(buttonSide, buttonSide);
    icon.addFile(QStringLiteral(":/Images/Resources/pin_down_hover.png"), size, QIcon::Normal, QIcon::On);
    icon.addFile(QStringLiteral(":/Images/Resources/pin_up_hover.png"), size, QIcon::Normal, QIcon::Off);
    button->setIcon(icon);
    button->setTipText(QObject::tr("Pin this document to the Recent Documents list"));
    return button;
}

FolderPinButton *RecentDocumentBrowser::CreateFolderButton(QWidget *parent, QString &path)
{
    FolderPinButton *button = createButton(parent, path, QStringLiteral("folderButton"), folderButtonLeft);
    button->setEnabled(true);
    QIcon icon;
    icon.addFile(QStringLiteral(":/Images/Resources/Open_32x-32.svg"), QSize(buttonSide, buttonSide),
                 QIcon::Normal, QIcon::On);
    button->setIcon(icon);
    button->setTipText(QObject::tr("Show in Folder"));
    return button;
}
