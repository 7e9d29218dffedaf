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

//! The browser's popup: a header with title, help icon and path line over a grid of tiles, one for each
//! recent document. It closes when the focus leaves it with the pointer outside, and deletes itself when
//! closed. GUI thread.
class RecentDocMainWindow : public CFxDialog, public Ui_RecentDocMainWindow
{
    Q_OBJECT
public:
    //! Builds and places the whole popup, blocking until the pictures are read if they are not cached.
    //! \param parent the host's main window, which owns the popup; may be null
    explicit RecentDocMainWindow(QWidget *parent);
    ~RecentDocMainWindow() override;

    // Moving the highlight (ui/RecentDocMainWindowKeys.cpp). Nothing happens where there are no tiles, or
    // where the tiles are those of a popup that is gone.
    //! One tile on or back in display order, and round the ends. Several highlighted tiles become the one
    //! behind, or in front of, them.
    void gotoNextDialog();
    void gotoPreviousDialog();
    //! One row down or up, round the ends of the column. Only the first highlighted tile moves.
    void goDownNextDialog();
    void goUpPreviousDialog();
    //! Grows the highlighted run at its end or its start, or, after a step the other way, shrinks it.
    void selectForwardMultiDoc();
    void selectBackwardMultiDoc();
    //! Closes the popup and asks the host to open every highlighted document, in display order. The host may
    //! run an event loop meanwhile: the popup may be gone afterwards. Nothing highlighted: nothing happens.
    void multiDocumentOpen();

    //! Has the registry list this popup's tiles if those of the newest popup are gone: an older one that
    //! outlives it works like an only one from its next event on.
    void haveTilesListed();

    //! The grid column of the highlighted tile; -1 when none is highlighted.
    int getColumnPosition() const;

    //! The path line of the popup that was made last; null when that popup is gone.
    static QPointer<QLabel> docPathLabel;

    // Lengths in pixels, positions in global coordinates unless said otherwise.
    QGridLayout *gridLayout = nullptr; //!< the tiles; null when the host keeps no recent documents
    int tileColumns = 0;
    int tileRows = 0;
    QPointer<RecentDocDialog> dragDialog; //!< the tile under the last press; may be null
    QSpacerItem *horizontalSpacer = nullptr;
    QSpacerItem *verticalSpacer = nullptr;
    int popupWidth = 0; //!< as computed; the popup comes back to it after a drag
    int popupHeight = 0;
    bool isCollapsed = false; //!< shrunk to the header while a tile is dragged outside
    int popupX = 0;
    int popupY = 0;
    QPoint pressPoint;                    //!< of the last left press, in the popup's own coordinates
    bool backwardSelectionActive = false; //!< the last step of a keyboard selection went left
    bool forwardSelectionActive = false;  //!< or right

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
    // The grid as built, and as it is again after a drag; in pixels.
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

    //! What the content needs where that is more than popupHeight, as with larger text; else 0. In pixels.
    int m_leastHeight = 0;
};
