// SPDX-License-Identifier: MIT
#include "state/FolderPinButton.h"

#include "module/HostAccess.h"
#include "module/RecentDocumentBrowser.h"
#include "state/TileOwner.h"
#include "ui/QBalloonTip.h"
#include "ui/RecentDocMainWindow.h"

#include <QDialog>
#include <QFileInfo>
#include <QPointer>
#include <QProcess>
#include <QTimer>

namespace {

//! How long the pointer must rest on a button, in milliseconds.
constexpr int hoverDelay = 500;
//! From a menu entry's lower edge up to where its balloon's tip would be, in pixels.
constexpr int menuTipRise = 11;

} // namespace

FolderPinButton::FolderPinButton(QWidget *parent, QString &path) : QToolButton(parent), m_path(path)
{
    setAttribute(Qt::WA_MouseTracking);
    setStyleSheet(QStringLiteral("border: none;\nmargin: 0px;\npadding: 0px;"));
    setToolButtonStyle(Qt::ToolButtonIconOnly);
    // The factories name the button later and make it checkable themselves.
    if (objectName() == QLatin1String("pinButton"))
        setCheckable(true);
    connect(this, SIGNAL(clicked()), this, SLOT(pinDown())); // clazy:exclude=old-style-connect
}

FolderPinButton::~FolderPinButton() = default;

QString FolderPinButton::pathInMenuText(const QString &text)
{
    return text.mid(text.indexOf(QLatin1Char(' ')) + 1);
}

QWidget *FolderPinButton::grandparent() const
{
    return parentWidget() ? parentWidget()->parentWidget() : nullptr;
}

//! A tile has a name; the widget that carries a menu entry has none.
bool FolderPinButton::isInTile() const
{
    return parentWidget() && !parentWidget()->objectName().isEmpty();
}

void FolderPinButton::giveFocusToGrandparent()
{
    if (QWidget *popup = grandparent())
        popup->setFocus(Qt::OtherFocusReason);
}

void FolderPinButton::enterEvent(QEvent * /*event*/)
{
    giveFocusToGrandparent();
    m_hoverTimer = new QTimer(this);
    m_hoverTimer->setInterval(hoverDelay);
    m_hoverTimer->setSingleShot(true);
    connect(m_hoverTimer, SIGNAL(timeout()), this, SLOT(showBalloonTip())); // clazy:exclude=old-style-connect
    m_hoverTimer->start();
}

void FolderPinButton::leaveEvent(QEvent * /*event*/)
{
    if (m_hoverTimer)
        m_hoverTimer->stop();
    if (QBalloonTip::isBalloonVisible())
        QBalloonTip::hideBalloon();
}

FolderPinButton::BalloonContent FolderPinButton::prepareBalloon()
{
    BalloonContent balloon;
    balloon.message = m_tipText;
    balloon.position = mapToGlobal(QPoint((width() - 1) / 2, (height() - 1) / 2));
    if (objectName() == QLatin1String("menuTextButton")) {
        const QString document = pathInMenuText(text());
        balloon.image = RecentDocumentBrowser::recentFileImageMap.value(document);
        m_tipText = QFileInfo(document).fileName();
        balloon.message = m_tipText;
        if (const QWidget *entry = parentWidget())
            balloon.position = mapToGlobal(QPoint(entry->width() - 1, entry->height() - menuTipRise));
    }
    if (isChecked())
        balloon.message = QObject::tr("Unpin this document from the Recent Documents list");
    return balloon;
}

void FolderPinButton::showBalloonTip()
{
    // On purpose no balloon: over so small a button it would cover the neighbouring tiles.
    prepareBalloon();
}

void FolderPinButton::OpenExplorer(QString &path)
{
    // The path stands between quotes as it is: one that holds a quote breaks the command, and only that.
    QStringList arguments =
        QProcess::splitCommand(QStringLiteral(BROWSER_FILE_MANAGER " \"") + path + QLatin1Char('"'));
    const QString program = arguments.takeFirst();
    QProcess::execute(program, arguments);
}

void FolderPinButton::OpenDocument(QString &path)
{
    HostAccess::openDocument(path);
}

void FolderPinButton::pinDown()
{
    const QPointer<FolderPinButton> self(this); // opening a document may delete us

    if (objectName() == QLatin1String("menuTextButton")) {
        QString document = pathInMenuText(text());
        OpenDocument(document);
    }
    if (!self)
        return;
    if (objectName() == QLatin1String("pinButton")) {
        if (isInTile()) {
            takeOverPinsOfTiles();
            giveFocusToGrandparent();
        } else {
            QString unused;
            RecentDocumentBrowser::UpdatePin(unused);
        }
    }
    if (objectName() == QLatin1String("folderButton")) {
        OpenExplorer(m_path);
        if (QBalloonTip::isBalloonVisible())
            QBalloonTip::hideBalloon();
        if (isInTile()) {
            giveFocusToGrandparent();
            if (auto *popup = qobject_cast<QDialog *>(grandparent()))
                popup->done(0);
        }
    }
}

//! Gives the menu's pin buttons the state of the tiles' ones. A menu button is listed again for each tile of
//! its document, so one without a tile leaves the list.
void FolderPinButton::takeOverPinsOfTiles()
{
    if (auto *popup = qobject_cast<RecentDocMainWindow *>(grandparent()))
        popup->haveTilesListed();
    if (!TileOwner::tilesExist())
        return;
    const QList<FolderPinButton *> menuButtons = RecentDocumentBrowser::menuPinButtonList;
    const QList<FolderPinButton *> tileButtons = RecentDocumentBrowser::docPinButtonList;
    if (!tileButtons.contains(this)) {
        // The newest popup's are listed, and this one is in an older popup.
        for (FolderPinButton *tileButton : tileButtons) {
            if (tileButton && tileButton->m_path == m_path)
                tileButton->setChecked(isChecked());
        }
    }
    RecentDocumentBrowser::menuPinButtonList.clear();
    for (FolderPinButton *menuButton : menuButtons) {
        for (const FolderPinButton *tileButton : tileButtons) {
            if (menuButton && tileButton && tileButton->m_path == menuButton->m_path) {
                menuButton->setChecked(tileButton->isChecked());
                RecentDocumentBrowser::AddInToMenuPinButtonList(menuButton);
            }
        }
    }
}
