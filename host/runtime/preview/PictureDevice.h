// SPDX-License-Identifier: MIT
#pragma once

#include "host/runtime/preview/RegularFile.h"

#include <QIODevice>

#include <vector>

namespace fxhost {

//! A picture file for a decoder: bytes that are made for it, then ranges of the drawing, one after the other.
struct PictureLayout
{
    const char *format = nullptr; //!< "bmp" or "png", the name under which Qt knows the decoder
    QByteArray head;
    std::vector<FileRange> ranges; //!< all inside the drawing, none empty
    int bitsPerPixel = 0;          //!< the most that the decoded picture can take
    bool isInRuns = false;         //!< and so may skip pixels, which then have the palette's first colour
};

//! Reads a picture file that is laid out over a drawing, so that no copy of its data has to be held.
//! Sequential: the decoders take what is laid out for them from its begin to its end. Used by one thread.
class PictureDevice : public QIODevice
{
public:
    //! Opens itself for reading. \param file must outlive the device
    PictureDevice(const RegularFile &file, PictureLayout layout);

    //! Whether the decoder asked for more than could be read, because its data ends early or the drawing has
    //! shrunk. It may make a picture all the same, with rubbish where the missing bytes belong.
    bool hasFailed() const { return m_hasFailed; }

    bool isSequential() const override { return true; }
    //! Bytes that are left.
    qint64 bytesAvailable() const override;

protected:
    qint64 readData(char *data, qint64 maxSize) override;
    qint64 writeData(const char *data, qint64 maxSize) override;

private:
    qint64 readHead(char *data, qint64 maxSize) const;
    qint64 readRange(char *data, qint64 maxSize);

    const RegularFile &m_file;
    const PictureLayout m_layout;
    std::vector<qint64> m_rangeEnds; //!< where each range ends in the picture file
    qint64 m_size = 0;               //!< of the picture file
    qint64 m_next = 0;               //!< position in it of what readData() has not given yet
    bool m_hasFailed = false;
};

} // namespace fxhost
