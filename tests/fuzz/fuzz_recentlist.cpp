// SPDX-License-Identifier: MIT
// Input: a file of recent documents. An accepted one must be written again byte by byte, or one of the former
// version with the same entries, and a refused one kept under another name.
#include "host/runtime/recent/RecentFileStore.h"
#include "tests/fuzz/Target.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

using fuzz::require;
using fxhost::RecentEntries;
using fxhost::RecentFileStore;

namespace {

//! A folder in memory if possible, because a list is flushed to disk before its file is renamed.
QString folderPattern()
{
    const QDir memory(QStringLiteral("/dev/shm"));
    return (memory.exists() ? memory : QDir::temp()).filePath(QStringLiteral("fuzz-recentlist-XXXXXX"));
}

class ListFolder
{
    QTemporaryDir m_folder{folderPattern()};

public:
    const QString list = m_folder.filePath(QStringLiteral("list"));
    const QString aside = m_folder.filePath(QStringLiteral("list.damaged"));
    const QString other = m_folder.filePath(QStringLiteral("other"));

    void fill(const QByteArray &bytes) const
    {
        for (const QString &file : {list, aside, other})
            QFile::remove(file);
        QFile file(list);
        require(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size(),
                "a list can be written");
    }

    static QByteArray contentOf(const QString &path)
    {
        QFile file(path);
        require(file.open(QIODevice::ReadOnly), "the file exists");
        return file.readAll();
    }
};

void check(const ListFolder &folder, const QByteArray &bytes)
{
    const RecentFileStore::Stored loaded = RecentFileStore(folder.list).load();
    if (!loaded.outcome) {
        require(loaded.entries.isEmpty(), "a damaged list is an empty one");
        require(ListFolder::contentOf(folder.aside) == bytes, "a damaged list is kept unchanged");
        return;
    }
    const RecentEntries another =
        fxhost::entriesOf({QStringLiteral("/another")}); // an unchanged list is not written
    const auto asLoaded = [&](const RecentEntries &) { return loaded.entries; };
    require(RecentFileStore(folder.other).update(another, asLoaded).outcome.reason().isEmpty(),
            "a list can be written");
    const bool isFormer = bytes.startsWith("fxhost recent documents 1\n");
    require(isFormer ? RecentFileStore(folder.other).load().entries == loaded.entries
                     : ListFolder::contentOf(folder.other) == bytes,
            "an accepted list is written unchanged");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    static const ListFolder folder;
    const QByteArray bytes = fuzz::bytesOf(data, size);
    folder.fill(bytes);
    fuzz::runWithinLimits([&] { check(folder, bytes); });
    return 0;
}
