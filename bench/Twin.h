// SPDX-License-Identifier: MIT
#pragma once

#include <ui_RecentDocMainWindow.h>

#include <QDialog>
#include <QImage>
#include <QVector>

class TwinTile;

//! What the twin shows of a drawing.
struct TwinDrawing
{
    QString path;
    QImage picture;
    bool isPinned = false;
};

//! The popup as anybody would write it straight with Qt, to compare the browser's with: the same forms,
//! layouts, style sheets and pictures, with nothing kept from one opening to the next. It looks the same, and
//! moves the highlight and hovers alike. GUI thread.
class TwinPopup : public QDialog, public Ui_RecentDocMainWindow
{
    Q_OBJECT
public:
    //! \param parent the main window, whose geometry determines the popup's
    //! \param drawings in display order
    TwinPopup(QWidget *parent, const QVector<TwinDrawing> &drawings);

    void showPath(const QString &path);
    QString highlightedPath() const;

protected:
    //! Right moves the highlight to the next tile.
    void keyPressEvent(QKeyEvent *event) override;

private:
    void buildHeader();
    void place(const QRect &frame, int count);

    int m_columns = 0;
    int m_rows = 0;
    QVector<TwinTile *> m_tiles;
};
