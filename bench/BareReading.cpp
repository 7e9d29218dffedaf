// SPDX-License-Identifier: MIT
#include "bench/BareReading.h"

#include <QBuffer>
#include <QFile>
#include <QImageReader>
#include <QtEndian>

#include <array>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

// In bytes.
constexpr int startSize = 17;
constexpr int addressAt = 13;
constexpr int countAt = 20;
constexpr int tableAt = 21;
constexpr int entrySize = 9;
constexpr int mostEntries = 8;
constexpr int fileHeaderSize = 14;
constexpr int colorsAt = 32; //!< in a bitmap's header of 40 bytes
constexpr int headerSize = 40;

quint32 numberAt(const char *bytes)
{
    return qFromLittleEndian<quint32>(bytes);
}

//! Room for the file header before the data, which QImageReader needs.
QByteArray readEntry(int descriptor, const char *entry, bool isBitmap)
{
    const int head = isBitmap ? fileHeaderSize : 0;
    QByteArray bytes(static_cast<int>(numberAt(entry + 5)) + head, Qt::Uninitialized);
    if (::pread(descriptor, bytes.data() + head, static_cast<size_t>(bytes.size() - head),
                numberAt(entry + 1)) < 0)
        return {};
    if (isBitmap) {
        const int bits = static_cast<uchar>(bytes.at(head + 14));
        quint32 colors = numberAt(bytes.constData() + head + colorsAt);
        if (colors == 0 && bits <= 8)
            colors = 1U << bits;
        std::copy_n("BM", 2, bytes.data());
        qToLittleEndian<quint32>(fileHeaderSize + headerSize + 4 * colors, bytes.data() + 10);
    }
    return bytes;
}

} // namespace

QImage readBare(const QString &path)
{
    const int descriptor = ::open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC);
    std::array<char, startSize> start = {};
    std::array<char, tableAt + mostEntries *entrySize> section = {};
    QImage picture;
    struct stat status = {};
    if (::fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode) && // not a pipe or a device
        ::pread(descriptor, start.data(), start.size(), 0) == startSize && start.at(4) >= '1' &&
        numberAt(start.data() + addressAt) > startSize &&
        ::pread(descriptor, section.data(), section.size(), numberAt(start.data() + addressAt)) > tableAt) {
        const char *entry = section.data() + tableAt;
        for (int i = 0; i < section.at(countAt) && i < mostEntries; ++i, entry += entrySize) {
            if (*entry != 2 && *entry != 6)
                continue;
            QByteArray bytes = readEntry(descriptor, entry, *entry == 2);
            QBuffer buffer(&bytes);
            QImageReader reader(&buffer, *entry == 2 ? "bmp" : "png");
            reader.setAutoDetectImageFormat(false);
            picture = reader.read();
        }
    }
    ::close(descriptor);
    return picture;
}
