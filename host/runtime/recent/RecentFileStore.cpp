// SPDX-License-Identifier: MIT
#include "host/runtime/recent/RecentFileStore.h"

#include "host/runtime/Paths.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include <optional>

namespace fxhost {

namespace {

constexpr char header[] = "fxhost recent documents 1\n";

// 1000 entries of the longest path that Linux takes, 4096 bytes, each byte written as three.
constexpr qint64 largestFile = qint64(1000) * 4096 * 3; // bytes

QByteArray encoded(const QString &path)
{
    constexpr uchar firstPrintable = 0x20;
    constexpr uchar deleteCharacter = 0x7f;
    constexpr char digits[] = "0123456789ABCDEF";
    QByteArray line;
    const QByteArray bytes = path.toUtf8();
    for (const char c : bytes) {
        const auto byte = static_cast<uchar>(c);
        if (byte < firstPrintable || byte == deleteCharacter || byte == '%')
            line.append('%').append(digits[byte / 16]).append(digits[byte % 16]);
        else
            line.append(c);
    }
    return line;
}

//! Nothing when line is not exactly what encoded() makes of a full path.
std::optional<QString> decoded(const QByteArray &line)
{
    const QString path = QString::fromUtf8(QByteArray::fromPercentEncoding(line));
    if (!QDir::isAbsolutePath(path) || encoded(path) != line)
        return std::nullopt;
    return path;
}

//! Nothing when content is not what save() writes.
std::optional<QStringList> parsed(const QByteArray &content)
{
    if (!content.startsWith(header) || !content.endsWith('\n'))
        return std::nullopt;
    QList<QByteArray> lines = content.mid(int(qstrlen(header))).split('\n');
    lines.removeLast(); // what stands behind the last line end: nothing
    QStringList paths;
    for (const QByteArray &line : qAsConst(lines)) {
        const std::optional<QString> path = decoded(line);
        if (!path)
            return std::nullopt;
        paths.append(*path);
    }
    return paths;
}

//! Nothing when the file cannot be read.
std::optional<QByteArray> contentOf(const QString &path)
{
    QFile file(path);
    // Opening a FIFO would wait for somebody to write to it.
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly) || file.size() > largestFile)
        return std::nullopt;
    const QByteArray content = file.readAll();
    if (file.error() != QFileDevice::NoError)
        return std::nullopt;
    return content;
}

} // namespace

RecentFileStore::RecentFileStore(const QString &file) : m_file(file) {}

RecentFileStore::Loaded RecentFileStore::load()
{
    if (!QFileInfo::exists(m_file))
        return {};
    if (const std::optional<QByteArray> content = contentOf(m_file)) {
        if (const std::optional<QStringList> paths = parsed(*content))
            return {*paths, QString()};
    }
    const QString aside = setAside(m_file);
    m_mayWrite = !aside.isEmpty();
    if (!m_mayWrite) {
        return {
            {},
            tr("The list of recent documents, %1, is damaged and cannot be set aside. It is left as it is, "
               "and nothing is kept of this run.")
                .arg(m_file)};
    }
    return {
        {},
        tr("The list of recent documents, %1, is damaged. It was renamed to %2, and the list starts anew.")
            .arg(m_file, aside)};
}

QString RecentFileStore::save(const QStringList &paths) const
{
    if (!m_mayWrite)
        return {}; // load() has said so
    QByteArray content = header;
    for (const QString &path : paths)
        content += encoded(path) + '\n';
    QSaveFile file(m_file);
    if (file.open(QIODevice::WriteOnly) && file.write(content) == content.size() && file.commit())
        return {};
    return tr("The list of recent documents, %1, cannot be written: %2.").arg(m_file, file.errorString());
}

} // namespace fxhost
