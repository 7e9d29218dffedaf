// SPDX-License-Identifier: MIT
#include "host/runtime/preview/PreviewSection.h"

#include <QtEndian>

#include <algorithm>
#include <array>
#include <optional>

namespace fxhost {

namespace {

// Sizes and positions in bytes.
constexpr int versionSize = 6;
constexpr int addressAt = 0x0D;
constexpr int startSize = addressAt + 4;

constexpr int sentinelSize = 16;
constexpr int overallSizeAt = 16; //!< from the start of the section, like the next two
constexpr int countAt = 20;
constexpr int tableAt = 21;
constexpr int tableEntrySize = 9;

//! Older versions have other data at the position of the section's address.
constexpr std::array<const char *, 8> versionsWithPreview = {"AC1012", "AC1014", "AC1015", "AC1018",
                                                             "AC1021", "AC1024", "AC1027", "AC1032"};

constexpr std::array<uchar, sentinelSize> beginSentinel = {0x1F, 0x25, 0x6D, 0x07, 0xD4, 0x36, 0x28, 0x28,
                                                           0x9D, 0x57, 0xCA, 0x3F, 0x9D, 0x44, 0x10, 0x2B};

qint64 numberAt(const QByteArray &bytes, int position)
{
    return qFromLittleEndian<quint32>(bytes.constData() + position);
}

//! The position of the section; 0 if the file has none.
qint64 sectionAddress(const RegularFile &file)
{
    const uchar *start = file.view({0, startSize});
    if (!start)
        return 0;
    const bool mayHavePreview =
        std::any_of(versionsWithPreview.begin(), versionsWithPreview.end(), [start](const char *version) {
            return std::equal(version, version + versionSize, start);
        });
    return mayHavePreview ? qFromLittleEndian<quint32>(start + addressAt) : 0;
}

//! The head of a section that has been checked.
struct SectionHead
{
    qint64 address = 0;
    int tableSize = 0;
    FileRange counted; //!< the bytes that the overall size includes: from its own end to the end sentinel
};

std::optional<SectionHead> readSectionHead(const RegularFile &file)
{
    if (!file.isOpen())
        return std::nullopt;
    const qint64 address = sectionAddress(file);
    if (address < startSize)
        return std::nullopt;
    const QByteArray section = file.readAll(address, tableAt);
    if (section.isEmpty() || !std::equal(beginSentinel.begin(), beginSentinel.end(),
                                         reinterpret_cast<const uchar *>(section.constData())))
        return std::nullopt;

    // The end sentinel is not checked, because the picture does not depend on it.
    const int count = static_cast<uchar>(section.at(countAt));
    const int tableSize = count * tableEntrySize;
    const FileRange counted = {address + countAt, numberAt(section, overallSizeAt)};
    if (counted.size < 1 + tableSize || !file.contains(counted))
        return std::nullopt;
    return SectionHead{address, tableSize, counted};
}

bool overlap(const FileRange &one, const FileRange &other)
{
    return one.offset < other.end() && other.offset < one.end();
}

} // namespace

PreviewSection readPreviewSection(const RegularFile &file)
{
    PreviewSection section;
    const std::optional<SectionHead> head = readSectionHead(file);
    if (!head)
        return section;
    const QByteArray table = file.readAll(head->address + tableAt, head->tableSize);

    const FileRange sectionHead = {head->address, tableAt + head->tableSize};
    for (int at = 0; at < table.size(); at += tableEntrySize) {
        const auto code = static_cast<PreviewCode>(table.at(at));
        const FileRange data = {numberAt(table, at + 1), numberAt(table, at + 5)};
        if (file.contains(data) && !overlap(data, sectionHead))
            section.entries.push_back({code, data});
    }
    section.filling = {startSize, head->address - startSize};
    section.isAtEnd = head->counted.end() + sentinelSize == file.size();
    return section;
}

bool isAlone(const PreviewSection &section, const RegularFile &file)
{
    // A drawing's own data are longer than this, and not all zero.
    constexpr qint64 longestFilling = 65536;
    if (!section.isAtEnd || section.filling.size > longestFilling)
        return false;
    const auto size = static_cast<int>(section.filling.size);
    return file.readAll(section.filling.offset, size) == QByteArray(size, '\0');
}

} // namespace fxhost
