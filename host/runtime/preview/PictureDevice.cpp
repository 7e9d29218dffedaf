// SPDX-License-Identifier: MIT
#include "host/runtime/preview/PictureDevice.h"

#include <algorithm>
#include <utility>

namespace fxhost {

PictureDevice::PictureDevice(const RegularFile &file, PictureLayout layout)
    : m_file(file), m_layout(std::move(layout))
{
    m_size = m_layout.head.size();
    m_rangeEnds.reserve(m_layout.ranges.size());
    for (const FileRange &range : m_layout.ranges) {
        m_size += range.size;
        m_rangeEnds.push_back(m_size);
    }
    open(QIODevice::ReadOnly);
}

qint64 PictureDevice::bytesAvailable() const
{
    return m_size - m_next + QIODevice::bytesAvailable(); // the latter are buffered
}

qint64 PictureDevice::readData(char *data, qint64 maxSize)
{
    qint64 done = 0;
    while (done < maxSize && m_next < m_size) {
        const qint64 count = m_next < m_layout.head.size() ? readHead(data + done, maxSize - done)
                                                           : readRange(data + done, maxSize - done);
        if (count <= 0)
            break;
        done += count;
        m_next += count;
    }
    if (done > 0 || maxSize == 0)
        return done;
    m_hasFailed = true;
    return -1;
}

qint64 PictureDevice::writeData(const char * /*data*/, qint64 /*maxSize*/)
{
    return -1;
}

qint64 PictureDevice::readHead(char *data, qint64 maxSize) const
{
    const qint64 count = std::min(maxSize, m_layout.head.size() - m_next);
    std::copy_n(m_layout.head.constData() + m_next, count, data);
    return count;
}

qint64 PictureDevice::readRange(char *data, qint64 maxSize)
{
    const auto end = std::upper_bound(m_rangeEnds.begin(), m_rangeEnds.end(), m_next);
    const FileRange &range = m_layout.ranges[static_cast<size_t>(end - m_rangeEnds.begin())];
    const qint64 left = *end - m_next;
    return m_file.read(range.end() - left, data, std::min(maxSize, left));
}

} // namespace fxhost
