// SPDX-License-Identifier: MIT
#pragma once

#include <ui_RecentDocMainWindow.h>

#include <CFxDialog.h>

#include <QPoint>
#include <QPointer>

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

    //! The grid column of the highlighted tile; -1 when none is highlighted.
    int getColumnPosition() const;

    //! The path line of the popup that was made last; null when that popup is gone.
    static QPointer<QLabel> docPathLabel;

    // Lengths in pixels, positions in global coordinates unless said otherwise.
    QGridLayout *gridLayout = nullptr; //!< the tiles; null when the host keeps no recent documents
    int tileColumns = 0;
    int tileRows = 0;
    RecentDocDialog *dragDialog = nullptr; //!< the tile under the last press; may be null
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
    void focusOutEvent(QFocusEvent *event) override;
    void leaveEvent(QEvent *event) override;
    void dropEvent(QDropEvent *event) override;
    bool focusNextPrevChild(bool next) override;

private:
    void buildHeader();
    void computeSize(int frameWidth, int documentCount);
    void computePosition(const QRect &frame);
    void buildGrid();
};
