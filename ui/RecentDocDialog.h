// SPDX-License-Identifier: MIT
#pragma once

#include <ui_RecentDocDialog.h>

#include <QDialog>
#include <QImage>
#include <QString>

class FolderPinButton;
class HighlightEffect;

//! A tile of the popup: one recent document with its picture, name, "Show in Folder" and pin. It is a child
//! of the popup, and no window of its own. GUI thread.
class RecentDocDialog : public QDialog, public Ui_RecentDocDialog
{
    Q_OBJECT
public:
    //! \param parent the popup
    //! \param menuPinButton the same document's pin in the recent-files menu; its state is taken over once
    //! \param path the document's full path
    //! \param thumbnail copied; null gives a blank picture
    //! \param unused taken and not used
    RecentDocDialog(QWidget *parent, FolderPinButton *menuPinButton, const QString &path, QImage &thumbnail,
                    bool unused);
    ~RecentDocDialog() override;

    const QString &path() const { return m_path; }
    FolderPinButton *pinButton() const { return m_pinButton; }
    //! Whether the tile's effect has the highlight's colour.
    bool isHighlighted() const;
    //! Installs a highlight of its own and repaints the tile.
    void highlight();
    //! Gives the effect, which stays, the tile's resting colour. Asks for no repaint. A tile that never was
    //! highlighted has no effect and is left alone.
    void clearHighlight();

    //! Asks the host to open the tile's document.
    void OpenDocument();
    //! Makes effect the tile's current one. The tile takes it over and deletes the one before.
    void setHighlightEffect(HighlightEffect *effect);
    //! Writes path into the newest popup's path line, cut if it is wider than this tile's popup.
    void setMainWindowDocPathLabel(const QString &path);
    //! Highlights what lies between the first two highlighted tiles; with one alone, all behind it.
    void selectMultiDocByShiftAndMouseCombination();

protected:
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
