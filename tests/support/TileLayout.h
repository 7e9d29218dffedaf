// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QDataStream>
#include <QImage>
#include <QPixmap>
#include <QPoint>

//! What a dragged tile carries in the browser's own format, read back.
class TileLayout
{
public:
    explicit TileLayout(const QByteArray &bytes)
    {
        QDataStream stream(bytes);
        QPixmap pixmap;
        stream >> pixmap >> m_grabOffset;
        m_picture = pixmap.toImage().convertToFormat(QImage::Format_RGB32);
        m_isWhole = stream.status() == QDataStream::Ok && stream.atEnd();
    }

    //! Whether the bytes hold a picture and a point, and nothing else.
    bool isWhole() const { return m_isWhole; }
    //! In Format_RGB32, whatever the screen's is.
    const QImage &picture() const { return m_picture; }
    QPoint grabOffset() const { return m_grabOffset; }

private:
    QImage m_picture;
    QPoint m_grabOffset;
    bool m_isWhole;
};
