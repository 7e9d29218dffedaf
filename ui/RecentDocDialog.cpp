// SPDX-License-Identifier: MIT
#include "ui/RecentDocDialog.h"

#include "module/HostAccess.h"
#include "module/RecentDocumentBrowser.h"
#include "state/FolderPinButton.h"
#include "state/SharedIcons.h"
#include "ui/Accessibility.h"
#include "ui/HighlightEffect.h"
#include "ui/RecentDocMainWindow.h"
#include "ui/StyledGrounds.h"
#include "ui/TilePictures.h"

#include <QFileInfo>
#include <QFocusEvent>
#include <QFontMetrics>
#include <QIcon>

namespace {

//! Size of a tile, and its position until the grid places it, in pixels.
constexpr QRect tileGeometry(10, 90, 161, 131);
//! Names longer than nameLength characters are cut to keptOfName characters and padded with dots.
constexpr int nameLength = 16;
constexpr int keptOfName = 13;
//! The same for paths that are wider than the popup.
constexpr int pathLength = 100;
constexpr int keptOfPath = 97;
//! The offset of the type icon's corner from the picture's size before the layout is
//! activated, in pixels. It places the icon in the tile's lower right corner.
constexpr QPoint typeIconShift(40, 80);

QString restingSheet()
{
    return QStringLiteral(
        "QDialog {color:lightGray;                         background-color: rgb(248, 248, 248);             "
        " "
        "            border-width: 0.1px;                         border: 1px solid;                         "
        "border-color: #C0C0C0                                  }");
}

QString hoverSheet()
{
    return QStringLiteral(
        "QDialog {color:lightGray;                         background-color: rgb(240, 240, 240);             "
        " "
        "            border-width: 0.1px;                         border: 1px solid;                         "
        "border-color: #C0C0C0                                  }");
}

} // namespace

// NOLINTNEXTLINE(cppcoreguidelines-pro-type-member-init): setupUi() initialises the form's members
RecentDocDialog::RecentDocDialog(QWidget *parent, FolderPinButton *menuPinButton, const QString &path,
                                 QImage &thumbnail, bool /*unused*/)
    : QDialog(parent), m_thumbnail(thumbnail), m_path(path)
{
    setWindowFlags(Qt::FramelessWindowHint); // without Qt::Dialog: a child widget
    setStyleSheet(restingSheet());
    setupUi(this);
    m_nameLabel = title_label;
    m_pictureLabel = image_label;

    setAttribute(Qt::WA_MouseTracking);
    setAttribute(Qt::WA_DeleteOnClose);
    setAttribute(Qt::WA_NoSystemBackground); // the ground is painted in paintEvent()
    setGeometry(tileGeometry);
    setFixedSize(tileGeometry.size());
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);

    buildName();
    buildPicture();
    buildTypeIcon();
    buildButtons(menuPinButton);
}

RecentDocDialog::~RecentDocDialog() = default;

void RecentDocDialog::buildName()
{
    QString name = QFileInfo(m_path).fileName();
    if (name.size() > nameLength)
        name = name.left(keptOfName).leftJustified(nameLength, QLatin1Char('.'));
    m_nameLabel->setTextFormat(Qt::PlainText); // a file may be called <b>.dwg
    m_nameLabel->setText(name);
    // The tile's background is light on every desktop.
    QPalette black;
    black.setBrush(QPalette::WindowText, Qt::black);
    m_nameLabel->setPalette(black);
}

void RecentDocDialog::buildPicture()
{
    m_pictureLabel->setScaledContents(true);
    m_pictureLabel->setPixmap(TilePictures::whole(m_thumbnail));
    m_pictureLabel->setStyleSheet(QStringLiteral(
        "QLabel {                        border-width: 0.1px;                        border: 1px "
        "solid;                        background-color: white;                        "
        "border-color: #C0C0C0                            }"));
}

void RecentDocDialog::buildTypeIcon()
{
    const QSize size = SharedIcons::size;
    auto *label = new QLabel(this);
    label->setObjectName(QStringLiteral("Iconlabel"));
    label->setPixmap(SharedIcons::drawing().pixmap(size));
    label->setGeometry(
        QRect(QPoint(m_pictureLabel->width(), m_pictureLabel->height()) + typeIconShift, size));
}

void RecentDocDialog::buildButtons(const FolderPinButton *menuPinButton)
{
    m_folderButton = RecentDocumentBrowser::CreateFolderButton(this, m_path);
    if (m_folderButton)
        gridLayout->addWidget(m_folderButton, 0, 0);

    m_pinButton = RecentDocumentBrowser::CreatePinButton(this, m_path);
    if (m_pinButton) {
        m_pinButton->setChecked(menuPinButton->isChecked());
        RecentDocumentBrowser::AddInToDocPinButtonList(m_pinButton);
        gridLayout->addWidget(m_pinButton, 0, 1);
    }
}

bool RecentDocDialog::isHighlighted() const
{
    return m_highlightEffect && m_highlightEffect->color == HighlightEffect::highlightColor();
}

void RecentDocDialog::highlight()
{
    setHighlightEffect(new HighlightEffect(HighlightEffect::tileOffset));
    update();
    Accessibility::highlightChanged(this);
}

void RecentDocDialog::clearHighlight()
{
    if (!m_highlightEffect)
        return;
    m_highlightEffect->color = HighlightEffect::restingColor();
    Accessibility::highlightChanged(this);
}

void RecentDocDialog::setHighlightEffect(HighlightEffect *effect)
{
    m_highlightEffect = effect;
    setGraphicsEffect(effect);
}

void RecentDocDialog::OpenDocument()
{
    HostAccess::openDocument(m_path);
}

void RecentDocDialog::setMainWindowDocPathLabel(const QString &path)
{
    // The newest popup may have been deleted while this tile is in an older one.
    if (!RecentDocMainWindow::docPathLabel || !parentWidget())
        return;
    QString text = path;
    // The width is measured in the application's font, not in the label's.
    if (QFontMetrics(QFont()).horizontalAdvance(path) > parentWidget()->width())
        text = path.left(keptOfPath).leftJustified(pathLength, QLatin1Char('.'));
    RecentDocMainWindow::docPathLabel->setText(text);
}

void RecentDocDialog::paintEvent(QPaintEvent * /*event*/)
{
    StyledGrounds::paint(this);
}

void RecentDocDialog::giveFocusToPopup()
{
    if (QWidget *popup = parentWidget())
        popup->setFocus(Qt::OtherFocusReason);
}

void RecentDocDialog::haveTilesListed()
{
    if (auto *popup = qobject_cast<RecentDocMainWindow *>(parentWidget()))
        popup->haveTilesListed();
}

void RecentDocDialog::enterEvent(QEvent * /*event*/)
{
    haveTilesListed();
    setMainWindowDocPathLabel(m_path);
    m_pinButton->show();
    m_folderButton->show();
    setFocusPolicy(Qt::StrongFocus);
    setStyleSheet(hoverSheet());
}

void RecentDocDialog::leaveEvent(QEvent * /*event*/)
{
    haveTilesListed();
    if (const RecentDocDialog *highlighted = RecentDocumentBrowser::getHighlightedRecentDoc())
        setMainWindowDocPathLabel(highlighted->path());
    setStyleSheet(restingSheet());
}

void RecentDocDialog::focusInEvent(QFocusEvent * /*event*/)
{
    // A dialog receives a focus event when it is shown, even if it does not get the focus. Without this
    // check, the path line would show the last tile's path.
    if (!hasFocus())
        return;
    haveTilesListed();
    setMainWindowDocPathLabel(m_path);
}

void RecentDocDialog::focusOutEvent(QFocusEvent *event)
{
    event->ignore();
}

bool RecentDocDialog::focusNextPrevChild(bool /*next*/)
{
    return false;
}
