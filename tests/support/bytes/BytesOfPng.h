// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QImage>

//! Builds PNG files chunk by chunk, sound ones and broken ones.
namespace testbytes {

//! CRC-32 as PNG defines it.
quint32 pngChecksum(const uchar *begin, const uchar *end);

//! A chunk with its length and a right checksum. \param type four letters
QByteArray pngChunk(const QByteArray &type, const QByteArray &data);

//! The image header of a PNG. Sizes in pixels.
struct PngHeader
{
    quint32 width = 0;
    quint32 height = 0;
    int bitDepth = 8;
    int colorType = 6; //!< 0 grey, 2 colour, 3 palette, 4 grey with alpha, 6 colour with alpha
    bool isInterlaced = false;

    //! The chunk.
    QByteArray bytes() const;
};

//! A PNG of zeros. \param extraChunks are placed between header and data
QByteArray blankPng(const PngHeader &header, const QByteArray &extraChunks = {});

//! A PNG of the picture.
QByteArray pngOf(const QImage &picture);

//! The same PNG with another image header, its checksum right.
QByteArray withHeader(QByteArray png, const PngHeader &header);

} // namespace testbytes
