// SPDX-License-Identifier: MIT
#include "state/FolderPinButton.h"

#include "module/HostAccess.h"
#include "module/RecentDocumentBrowser.h"
#include "state/TileOwner.h"
#include "ui/QBalloonTip.h"
#include "ui/RecentDocMainWindow.h"

#include <QDialog>
#include <QFileInfo>
#include <QHash>
#include <QPointer>
#include <QProcess>
#include <QTimer>

#include <chrono>

namespace {

//! How long the pointer must stay on a button.
constexpr std::chrono::milliseconds hoverDelay(500);
//! From a menu entry's lower edge up to where its balloon's tip would be, in pixels.
constexpr int menuTipRise = 11;

} // namespace

FolderPinButton::FolderPinButton(QWidget *parent, QString &path) : QToolButton(parent), m_path(path)
{
    setAttribute(Qt::WA_MouseTracking);
    setStyleSheet(QStringLiteral("border: none;\nmargin: 0px;\npadding: 0px;"));
    setToolButtonStyle(Qt::ToolButtonIconOnly);
    // The factories set the object name later and make the button checkable themselves.
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

//! A tile has an object name; the widget of a menu entry has none.
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
    // Deliberately shows no balloon: over such a small button it would cover the neighbouring tiles.
    prepareBalloon();
}

void FolderPinButton::OpenExplorer(QString &path)
{
    // The path is quoted without escaping. A path that contains a quote only breaks this command.
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
    const QPointer<FolderPinButton> self(this); // opening a document may delete this button

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

//! Copies the state of the tiles' pin buttons to those of the menu. The menu's list is rebuilt with one item
//! per tile, so a menu button without a tile is removed from it.
void FolderPinButton::takeOverPinsOfTiles()
{
    if (auto *popup = qobject_cast<RecentDocMainWindow *>(grandparent()))
        popup->haveTilesListed();
    if (!TileOwner::tilesExist())
        return;
    const QList<FolderPinButton *> menuButtons = RecentDocumentBrowser::menuPinButtonList;
    const QList<FolderPinButton *> tileButtons = RecentDocumentBrowser::docPinButtonList;
    QHash<QString, QList<FolderPinButton *>> tileButtonsOf; // of a path, in the list's order
    for (FolderPinButton *tileButton : tileButtons) {
        if (tileButton)
            tileButtonsOf[tileButton->m_path].append(tileButton);
    }
    const QList<FolderPinButton *> newest = tileButtonsOf.value(m_path);
    if (!newest.contains(this)) { // this button is in an older popup; the list contains the newest popup's
        for (FolderPinButton *tileButton : newest)
            tileButton->setChecked(isChecked());
    }
    RecentDocumentBrowser::menuPinButtonList.clear();
    for (FolderPinButton *menuButton : menuButtons) {
        if (!menuButton)
            continue;
        const QList<FolderPinButton *> samePath = tileButtonsOf.value(menuButton->m_path);
        for (const FolderPinButton *tileButton : samePath) {
            menuButton->setChecked(tileButton->isChecked());
            RecentDocumentBrowser::AddInToMenuPinButtonList(menuButton);
        }
    }
}
