// SPDX-License-Identifier: MIT
#pragma once

#include <ui_RecentDocDialog.h>

#include <QDialog>
#include <QImage>
#include <QString>

class FolderPinButton;
class HighlightEffect;

//! A tile of the popup: a recent document with its picture, name, "Show in Folder" and pin. It is a child
//! widget of the popup, not a window. GUI thread.
class RecentDocDialog : public QDialog, public Ui_RecentDocDialog
{
    Q_OBJECT
public:
    //! \param parent the popup
    //! \param menuPinButton the same document's pin in the recent-files menu; its state is copied once
    //! \param path the document's full path
    //! \param thumbnail copied; null gives a blank picture
    //! \param unused ignored
    RecentDocDialog(QWidget *parent, FolderPinButton *menuPinButton, const QString &path, QImage &thumbnail,
                    bool unused);
    ~RecentDocDialog() override;

    const QString &path() const { return m_path; }
    FolderPinButton *pinButton() const { return m_pinButton; }
    //! True if the tile's effect has the highlight colour.
    bool isHighlighted() const;
    //! Installs a new highlight effect and repaints the tile.
    void highlight();
    //! Sets the colour of the current effect to the resting colour. Does not repaint. Does nothing if the
    //! tile was never highlighted, because it then has no effect.
    void clearHighlight();

    //! Requests that the host open the tile's document.
    void OpenDocument();
    //! Installs effect. The tile takes ownership of it and deletes the previous one.
    void setHighlightEffect(HighlightEffect *effect);
    //! Shows path in the newest popup's path line, shortened if it is wider than this tile's popup.
    void setMainWindowDocPathLabel(const QString &path);
    //! Highlights the tiles between the first two highlighted ones. If only one is highlighted, highlights
    //! all tiles after it.
    void selectMultiDocByShiftAndMouseCombination();

protected:
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void enterEvent(QEvent *event) override;
    void leaveEvent(QEvent *event) override;
    bool focusNextPrevChild(bool next) override;

private:
    void buildName();
    void buildPicture();
    void buildTypeIcon();
    void buildButtons(const FolderPinButton *menuPinButton);
    void giveFocusToPopup();
    void haveTilesListed();

    QLabel *m_nameLabel = nullptr;
    QLabel *m_pictureLabel = nullptr;
    FolderPinButton *m_pinButton = nullptr;
    FolderPinButton *m_folderButton = nullptr;
    QImage m_thumbnail;
    QString m_path;
    HighlightEffect *m_highlightEffect = nullptr;
};
