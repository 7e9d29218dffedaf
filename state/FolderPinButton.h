// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <QPoint>
#include <QString>
#include <QToolButton>

class QTimer;

//! The small button of tiles and menu entries. Its object name determines its role: "pinButton" keeps a
//! document first, "folderButton" shows it in the file manager, "menuTextButton" opens it. GUI thread.
class FolderPinButton : public QToolButton
{
    Q_OBJECT
public:
    //! The content of the button's balloon, and the position of its tip in global pixels.
    struct BalloonContent
    {
        QImage image;
        QString title;
        QString message;
        QPoint position;
    };

    //! \param parent owns the button; may be null
    //! \param path the path of the button's document, stored unchanged
    FolderPinButton(QWidget *parent, QString &path);
    ~FolderPinButton() override;

    const QString &path() const { return m_path; }
    const QString &tipText() const { return m_tipText; }
    void setTipText(const QString &text) { m_tipText = text; }

    //! Runs the command that shows the file in the file manager, and waits until it has ended. Its result is
    //! ignored.
    void OpenExplorer(QString &path);
    //! Requests that the host open the drawing.
    void OpenDocument(QString &path);

    //! The content of the balloon for the current state. Also sets the tip text of a menu text button to the
    //! file name.
    BalloonContent prepareBalloon();

    //! The path in a menu text: the text after the first blank, or the whole text if there is none.
    static QString pathInMenuText(const QString &text);

protected:
    void enterEvent(QEvent *event) override;
    void leaveEvent(QEvent *event) override;

private Q_SLOTS:
    void pinDown();
    void showBalloonTip();

private:
    QWidget *grandparent() const;
    bool isInTile() const;
    void giveFocusToGrandparent();
    void takeOverPinsOfTiles();

    QString m_path;
    QString m_tipText;
    QTimer *m_hoverTimer = nullptr;
};
