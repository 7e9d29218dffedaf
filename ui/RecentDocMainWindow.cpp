// SPDX-License-Identifier: MIT
#include "ui/RecentDocMainWindow.h"

#include "module/HostAccess.h"
#include "module/RecentDocumentBrowser.h"
#include "state/TileOwner.h"
#include "ui/Accessibility.h"
#include "ui/HelpLabel.h"
#include "ui/HighlightEffect.h"
#include "ui/RecentDocDialog.h"
#include "ui/StyledGrounds.h"

#include <QCursor>
#include <QDesktopServices>
#include <QGridLayout>
#include <QUrl>

namespace {

//! Width of a column and height of a row of tiles; a popup with one row is slightly higher. In pixels.
constexpr int columnWidth = 181;
constexpr int rowHeight = 175;
constexpr int singleRowHeight = 201;
//! Narrow and medium main windows get a fixed number of columns, wider ones a column per frameWidthPerColumn.
//! In pixels.
constexpr int narrowFrame = 585;
constexpr int narrowColumns = 4;
constexpr int mediumFrame = 900;
constexpr int mediumColumns = 3;
constexpr int frameWidthPerColumn = 322;
//! A popup whose computed position is at or before this pixel is moved to the main window's corner.
constexpr int leastPosition = 1;

void paintGround(QWidget *widget, const QPalette &palette)
{
    widget->setAutoFillBackground(true);
    widget->setPalette(palette);
    // Polishing by a style sheet disables the background filling and paints the background itself, so it must
    // be enabled again. The style sheet stores the palette that it finds: a palette that is set after
    // polishing would be lost when the application's style changes.
    widget->ensurePolished();
    widget->setAutoFillBackground(true);
}

//! How much the layout may shorten each row if there is not enough space, in pixels. Tiles keep their size,
//! so those in the last row extend into the grid's lower margin by as much. A highlighted tile needs 3 pixels
//! of that margin.
constexpr int spareHeight = 8;

} // namespace

QPointer<QLabel> RecentDocMainWindow::docPathLabel;

// NOLINTNEXTLINE(cppcoreguidelines-pro-type-member-init): setupUi() initialises the form's members
RecentDocMainWindow::RecentDocMainWindow(QWidget *parent) : CFxDialog(parent, false, Qt::FramelessWindowHint)
{
    Accessibility::begin();
    StyledGrounds::clear();
    setupUi(this);
    activateWindow();
    setAcceptDrops(true);
    setAttribute(Qt::WA_MouseTracking);
    setAttribute(Qt::WA_DeleteOnClose);
    // The tiles' colours are fixed, and the border of a highlighted one is only visible on a light
    // background.
    QPalette ground;
    ground.setBrush(QPalette::Window, QColor(240, 240, 240));
    setPalette(ground);

    if (RecentDocumentBrowser::recentFileImageMap.isEmpty())
        RecentDocumentBrowser::CreateRecentFileImageMap();
    QString unused;
    RecentDocumentBrowser::UpdatePin(unused);
    buildHeader();

    const auto recent = HostAccess::recentFiles();
    if (!recent)
        return; // only the header
    const QWidget *mainFrame = HostAccess::mainFrame();
    const QRect frame = mainFrame ? mainFrame->geometry() : QRect(0, 0, 0, 0);
    computeSize(frame.width(), static_cast<int>(recent->size()));
    computePosition(frame);
    // The layout's minimum size would make the window larger than computed, and a window that grows while the
    // window manager maps it reports a wrong position.
    verticalLayout->setSizeConstraint(QLayout::SetNoConstraint);
    setGeometry(popupX, popupY, popupWidth, popupHeight);
    buildGrid();
    m_leastHeight = verticalLayout->minimumSize().height() - tileRows * spareHeight;
    if (m_leastHeight <= popupHeight)
        m_leastHeight = 0;
    setMinimumHeight(m_leastHeight);
}

RecentDocMainWindow::~RecentDocMainWindow()
{
    dragDialog = nullptr;
}

void RecentDocMainWindow::buildHeader()
{
    QPalette title = main_label_title->palette();
    title.setBrush(QPalette::Window, QColor(51, 51, 102));
    paintGround(main_label_title, title);

    auto *helpLabel = new HelpLabel(this);
    helpLabel->setPixmap(QPixmap(QStringLiteral(":/Images/Resources/help_32x-20.svg")));
    helpLabel->setCursor(Qt::PointingHandCursor);
    helpLabel->setPalette(title);
    horizontalLayout->addWidget(helpLabel);

    QPalette path = main_label_path->palette();
    path.setBrush(QPalette::Window, QColor(0, 0, 94));
    path.setBrush(QPalette::WindowText, QColor(188, 188, 253));
    paintGround(main_label_path, path);
    main_label_path->setTextFormat(Qt::PlainText); // a folder may be called <b>
    docPathLabel = main_label_path;
}

void RecentDocMainWindow::computeSize(int frameWidth, int documentCount)
{
    if (frameWidth <= narrowFrame)
        tileColumns = narrowColumns;
    else if (frameWidth <= mediumFrame)
        tileColumns = mediumColumns;
    else
        tileColumns = frameWidth / frameWidthPerColumn;
    tileRows = (documentCount + tileColumns - 1) / tileColumns;
    popupWidth = tileColumns * columnWidth;
    popupHeight = tileRows == 1 ? singleRowHeight : tileRows * rowHeight;
}

//! Centres the popup as if the main window were at the screen's top left corner. If there is not enough
//! space, the position of the main window is used, with left and top swapped if only one side is too long.
void RecentDocMainWindow::computePosition(const QRect &frame)
{
    popupX = (frame.width() - popupWidth) / 2;
    popupY = (frame.height() - popupHeight) / 2;
    if (popupX <= leastPosition && popupY <= leastPosition) {
        popupX = frame.left();
        popupY = frame.top();
    }
    if (popupX <= leastPosition)
        popupX = frame.top();
    if (popupY <= leastPosition)
        popupY = frame.left();
}

void RecentDocMainWindow::buildGrid()
{
    gridLayout = new QGridLayout;
    gridLayout->setSpacing(20);
    gridLayout->setContentsMargins(gridMargin, gridMargin, gridMargin, gridMargin);
    gridLayout->setObjectName(QStringLiteral("gridLayout"));
    // The spacers are after the last column and row, so that the tiles stay at the upper left.
    horizontalSpacer = new QSpacerItem(horizontalSpace.width(), horizontalSpace.height(),
                                       QSizePolicy::Expanding, QSizePolicy::Minimum);
    gridLayout->addItem(horizontalSpacer, 0, tileColumns + 1);
    verticalSpacer = new QSpacerItem(verticalSpace.width(), verticalSpace.height(), QSizePolicy::Minimum,
                                     QSizePolicy::Expanding);
    gridLayout->addItem(verticalSpacer, tileRows, 0);

    RecentDocumentBrowser::docPinButtonList = {};
    RecentDocumentBrowser::CreateRecentDocList(this);
    const QList<RecentDocDialog *> tiles = RecentDocumentBrowser::recentDocDialogList;
    const int cells = qMin(tiles.size(), tileRows * tileColumns);
    for (int i = 0; i < cells; ++i)
        gridLayout->addWidget(tiles.at(i), i / tileColumns, i % tileColumns);
    if (cells > 0) {
        tiles.first()->setHighlightEffect(new HighlightEffect(HighlightEffect::tileOffset));
        tiles.first()->setMainWindowDocPathLabel(tiles.first()->path());
    }
    verticalLayout->addLayout(gridLayout);
    verticalLayout->setContentsMargins(0, 0, 0, 0);
}

void RecentDocMainWindow::haveTilesListed()
{
    if (TileOwner::listTilesOf(this))
        docPathLabel = main_label_path;
}

int RecentDocMainWindow::getColumnPosition() const
{
    const RecentDocDialog *highlighted = RecentDocumentBrowser::getHighlightedRecentDoc();
    if (!highlighted)
        return -1;
    for (int column = 0; column < tileColumns; ++column) {
        for (int row = 0; row < tileRows; ++row) {
            const RecentDocDialog *tile = tileAt(row, column);
            if (tile && tile->path() == highlighted->path())
                return column;
        }
    }
    return -1;
}

void RecentDocMainWindow::help()
{
    const QString server = QStringLiteral(BROWSER_HELP_SERVER);
    if (server.isEmpty()) // whoever built the module has no such page
        return;
    QDesktopServices::openUrl(
        QUrl(QStringLiteral("http://%1/2014/english/Pelorin/pelorapp/c_browsing_recent_and_open_documents.htm"
                            "?rid=141131")
                 .arg(server),
             QUrl::TolerantMode));
}

void RecentDocMainWindow::focusOutEvent(QFocusEvent * /*event*/)
{
    dragDialog = nullptr;
    if (!isCollapsed && !geometry().contains(QCursor::pos()))
        done(0);
}

void RecentDocMainWindow::leaveEvent(QEvent * /*event*/) {}

void RecentDocMainWindow::dropEvent(QDropEvent * /*event*/) {}

bool RecentDocMainWindow::focusNextPrevChild(bool /*next*/)
{
    return false;
}
