// SPDX-License-Identifier: MIT
#pragma once

#include <ui_RecentDocMainWindow.h>

#include <CFxDialog.h>

#include <QPoint>
#include <QPointer>
#include <QSize>

class QGridLayout;
class QLabel;
class QSpacerItem;
class RecentDocDialog;

//! The browser's popup: a header with title, help icon and path line above a grid of tiles, one for each
//! recent document. It closes when it loses the focus while the pointer is outside, and deletes itself when
//! closed. GUI thread.
class RecentDocMainWindow : public CFxDialog, public Ui_RecentDocMainWindow
{
    Q_OBJECT
public:
    //! Creates the popup with all tiles and places it. Blocks until the pictures are read, if they are not
    //! cached.
    //! \param parent the host's main window, which owns the popup; may be null
    explicit RecentDocMainWindow(QWidget *parent);
    ~RecentDocMainWindow() override;

    // Moving the highlight (ui/RecentDocMainWindowKeys.cpp). These do nothing if there are no tiles, or if
    // the listed tiles belong to a popup that was deleted.
    //! Moves the highlight to the next or previous tile in display order, wrapping around. A run of several
    //! highlighted tiles is replaced by the tile after it, or before it.
    void gotoNextDialog();
    void gotoPreviousDialog();
    //! Moves the highlight of the first highlighted tile one row down or up, wrapping around in the column.
    //! Other tiles stay highlighted.
    void goDownNextDialog();
    void goUpPreviousDialog();
    //! Extends the highlighted run by one tile at its end, or its start. After a step in the other
    //! direction, shortens it instead.
    void selectForwardMultiDoc();
    void selectBackwardMultiDoc();
    //! Closes the popup and requests that the host open every highlighted document, in display order. Does
    //! nothing if no tile is highlighted. The host may run an event loop, in which the popup may be deleted.
    void multiDocumentOpen();

    //! Lists this popup's tiles in the registry if those of the newest popup were deleted. An older popup
    //! that outlives the newest one thus works like a single one from its next event on.
    void haveTilesListed();

    //! The grid column of the first highlighted tile; -1 if none is highlighted.
    int getColumnPosition() const;

    //! The path line of the newest popup; null if that popup was deleted.
    static QPointer<QLabel> docPathLabel;

    // Lengths in pixels, positions in global coordinates unless said otherwise.
    QGridLayout *gridLayout = nullptr; //!< the tiles; null if the host has no list of recent documents
    int tileColumns = 0;
    int tileRows = 0;
    QPointer<RecentDocDialog> dragDialog; //!< the tile under the last press; may be null
    QSpacerItem *horizontalSpacer = nullptr;
    QSpacerItem *verticalSpacer = nullptr;
    int popupWidth = 0; //!< the computed size, which is restored after a drag
    int popupHeight = 0;
    bool isCollapsed = false; //!< shrunk to the header while a tile is dragged outside
    int popupX = 0;
    int popupY = 0;
    QPoint pressPoint;                    //!< of the last left press, in the popup's own coordinates
    bool backwardSelectionActive = false; //!< the last step of a keyboard selection was to the left
    bool forwardSelectionActive = false;  //!< or to the right

public Q_SLOTS:
    //! Opens the browser's online help page in the desktop's web browser.
    void help();

protected:
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void leaveEvent(QEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dragMoveEvent(QDragMoveEvent *event) override;
    void dragLeaveEvent(QDragLeaveEvent *event) override;
    void dropEvent(QDropEvent *event) override;
    bool focusNextPrevChild(bool next) override;

private:
    // The grid's initial sizes, which are restored after a drag; in pixels.
    static constexpr int gridMargin = 11;
    static constexpr QSize horizontalSpace{40, 20};
    static constexpr QSize verticalSpace{20, 40};

    void buildHeader();
    void computeSize(int frameWidth, int documentCount);
    void computePosition(const QRect &frame);
    void buildGrid();
    RecentDocDialog *tileAt(int row, int column) const;
    void moveAlongColumn(int step);
    void collapse();
    void restore();
    void formStrip();
    void setGridSpace(int margin, const QSize &horizontal, const QSize &vertical) const;
    QList<QWidget *> widgetsInGrid() const;

    //! The height that the content needs, in pixels, if that exceeds popupHeight, as with larger text;
    //! otherwise 0.
    int m_leastHeight = 0;
};
