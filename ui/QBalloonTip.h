// SPDX-License-Identifier: MIT
#pragma once

#include <QPixmap>
#include <QWidget>

//! A speech balloon with title, picture and message whose pointer sticks out to the left. At most one exists
//! in the process, and it stays until it is hidden. GUI thread.
class QBalloonTip : public QWidget
{
    Q_OBJECT
public:
    //! Shows a balloon in place of the current one; with an empty title and message it only hides that one.
    //! \param icon the picture; may be null
    //! \param position of the pointer's tip, in global pixels
    //! \param timeout in milliseconds; taken and not used: no balloon hides by itself
    //! \param showArrow taken and not used: the pointer is always drawn
    static void showBalloon(const QImage &icon, const QString &title, const QString &message,
                            const QPoint &position, int timeout, bool showArrow);
    static void hideBalloon();
    static bool isBalloonVisible();

    ~QBalloonTip() override;

protected:
    void timerEvent(QTimerEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    QBalloonTip(const QImage &icon, const QString &title, const QString &message);
    void balloon(const QPoint &position, int timeout, bool showArrow);

    QPixmap m_pixmap;
    int m_timerId = -1;
};
