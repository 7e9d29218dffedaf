// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <QPoint>
#include <QString>
#include <QToolButton>

class QTimer;

//! The small button of tiles and menu entries. Its object name says which of three it is: "pinButton" keeps a
//! document in front, "folderButton" shows it in the file manager, "menuTextButton" opens it. GUI thread.
class FolderPinButton : public QToolButton
{
    Q_OBJECT
public:
    //! What a balloon over the button would show, and where its tip would be (global pixels).
    struct BalloonContent
    {
        QImage image;
        QString title;
        QString message;
        QPoint position;
    };

    //! \param path of the document that the button stands for, kept as it is
    FolderPinButton(QWidget *parent, QString &path);
    ~FolderPinButton() override;

    const QString &path() const { return m_path; }
    const QString &tipText() const { return m_tipText; }
    void setTipText(const QString &text) { m_tipText = text; }

    //! Shows the file in the file manager; returns when that command has ended, whatever came of it.
    void OpenExplorer(QString &path);
    //! Asks the host to open the drawing.
    void OpenDocument(QString &path);

    //! What balloon the button would show now. Makes the file name a menu text button's tip text.
    BalloonContent prepareBalloon();

    //! The path in a menu text: what stands behind the first blank, or the whole text if there is none.
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
