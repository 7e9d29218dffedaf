// SPDX-License-Identifier: MIT
#include "host/runtime/recent/RecentFileStore.h"

#include "host/runtime/FileLock.h"
#include "host/runtime/Paths.h"
#include "host/runtime/recent/RecentFiles.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSaveFile>

#include <optional>

namespace fxhost {

namespace {

constexpr char header[] = "fxhost recent documents 1\n";

// The most entries, each with the longest path of Linux (4096 bytes), each byte encoded as three.
constexpr qint64 largestFile = qint64(RecentFiles::largestMaximum) * 4096 * 3; // bytes

QByteArray encoded(const QString &path)
{
    const QByteArray bytes = pathBytes(path);
    // Tested on the bytes, because path may not be what they are decoded to.
    const bool isUtf8 = pathFromBytes(bytes).toUtf8() == bytes;
    const auto isSpecial = [](uchar byte) { return isControl(byte) || byte == '%'; };
    const auto isSpecialOrNotAscii = [](uchar byte) { return isControl(byte) || byte == '%' || byte > 0x7f; };
    return isUtf8 ? percentEncoded(bytes, isSpecial) : percentEncoded(bytes, isSpecialOrNotAscii);
}

//! The path of a line; nothing if the line is not the exact result of encoded() for a full path.
std::optional<QString> decoded(const QByteArray &line)
{
    const QString path = pathFromBytes(QByteArray::fromPercentEncoding(line));
    if (!path.startsWith(QLatin1Char('/')) || encoded(path) != line)
        return std::nullopt;
    return path;
}

//! The paths in the file's content; nothing if write() cannot have written it.
std::optional<QStringList> parsed(const QByteArray &content)
{
    if (!content.startsWith(header) || !content.endsWith('\n'))
        return std::nullopt;
    QList<QByteArray> lines = content.mid(int(qstrlen(header))).split('\n');
    lines.removeLast(); // nothing follows the last line end
    if (lines.size() > RecentFiles::largestMaximum)
        return std::nullopt;
    QStringList paths;
    for (const QByteArray &line : qAsConst(lines)) {
        const std::optional<QString> path = decoded(line);
        if (!path)
            return std::nullopt;
        paths.append(*path);
    }
    return paths;
}

//! How long to wait for another program that is writing the file, which takes a few milliseconds.
constexpr std::chrono::milliseconds lockWait{1000};

QString unreadable(const QString &file, const QString &error)
{
    return RecentFileStore::tr(
               "The list of recent documents, %1, cannot be read: %2. It is not changed until "
               "it can be read again.")
        .arg(file, error);
}

QString lockFile(const QString &file)
{
    return file + QLatin1String(".lock");
}

//! Removes temporary files of writers that were killed. Must be called while the lock is held.
void removeUnfinished(const QString &file)
{
    const QFileInfo info(file);
    static_assert(QT_VERSION_MAJOR == 5 && QT_VERSION_MINOR == 15,
                  "needs the temporary names of Qt 5.15's QSaveFile");
    const QRegularExpression unfinished(QStringLiteral("^%1\\.[A-Za-z]{6}$") // as QSaveFile calls it
                                            .arg(QRegularExpression::escape(info.fileName())));
    QDir folder = info.dir();
    const QStringList names = folder.entryList(QDir::Files).filter(unfinished);
    for (const QString &name : names)
        folder.remove(name);
}

} // namespace

//! The result of reading the file.
class RecentFileStore::Reading
{
public:
    enum class Outcome {
        Read,
        NoFile,
        Damaged,
        Unreadable, //!< possibly only now, for example because the disk is not available
    };

    Outcome outcome = Outcome::NoFile;
    QStringList paths;
    QString error; //!< why it is unreadable
};

RecentFileStore::RecentFileStore(const QString &file) : m_file(file) {}

RecentFileStore::Reading RecentFileStore::read() const
{
    const QFileInfo info(m_file);
    if (!info.exists())
        return {Reading::Outcome::NoFile, {}, {}};
    // Opening a FIFO would wait for a writer.
    if (!info.isFile() || info.size() > largestFile)
        return {Reading::Outcome::Damaged, {}, {}};
    QFile file(m_file);
    const QByteArray content = file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    if (file.error() != QFileDevice::NoError)
        return {Reading::Outcome::Unreadable, {}, file.errorString()};
    if (const std::optional<QStringList> paths = parsed(content))
        return {Reading::Outcome::Read, *paths, {}};
    return {Reading::Outcome::Damaged, {}, {}};
}

RecentFileStore::Stored RecentFileStore::keepForLater(const QStringList &known, const Change &change,
                                                      const QString &problem)
{
    m_unwritten.push_back(change);
    return {change(known), Outcome::failed(problem)};
}

Outcome RecentFileStore::setDamagedAside()
{
    const QString aside = setAside(m_file);
    m_mayWrite = !aside.isEmpty();
    if (!m_mayWrite) {
        return Outcome::failed(
            tr("The list of recent documents, %1, is damaged and cannot be renamed. It is not "
               "changed, and recent documents are not saved.")
                .arg(m_file));
    }
    return Outcome::failed(
        tr("The list of recent documents, %1, is damaged. It was renamed to %2.").arg(m_file, aside));
}

RecentFileStore::Stored RecentFileStore::load()
{
    const FileLock lock(lockFile(m_file), lockWait);
    if (lock.isHeld())
        removeUnfinished(m_file);
    const Reading reading = read();
    if (reading.outcome == Reading::Outcome::Damaged)
        return {{}, setDamagedAside()};
    if (reading.outcome == Reading::Outcome::Unreadable)
        return {{}, Outcome::failed(unreadable(m_file, reading.error))};
    return {reading.paths, {}};
}

RecentFileStore::Stored RecentFileStore::update(const QStringList &known, const Change &change)
{
    if (!m_mayWrite)
        return {change(known), {}}; // load() has reported why
    const FileLock lock(lockFile(m_file), lockWait);
    if (lock.isBusy()) {
        return keepForLater(known, change,
                            tr("The list of recent documents, %1, is in use by another program. The change "
                               "will be saved with the next one.")
                                .arg(m_file));
    }
    const Reading reading = read();
    if (reading.outcome == Reading::Outcome::Unreadable)
        return keepForLater(known, change, unreadable(m_file, reading.error));

    const bool isRead = reading.outcome == Reading::Outcome::Read;
    QStringList listed = known;
    if (isRead) {
        listed = reading.paths;
        for (const Change &earlier : m_unwritten)
            listed = earlier(listed);
    }
    const QStringList paths = change(listed);

    QStringList problems;
    bool isToWrite = isRead ? paths != reading.paths : paths != known || !m_unwritten.empty();
    if (reading.outcome == Reading::Outcome::Damaged) {
        problems << setDamagedAside().reason();
        isToWrite = m_mayWrite;
    }
    const Outcome written = isToWrite ? write(paths) : Outcome();
    if (written) {
        m_unwritten.clear();
    } else {
        m_unwritten.push_back(change);
        problems << written.reason();
    }
    return {paths, problems.isEmpty() ? Outcome() : Outcome::failed(problems.join(QLatin1Char(' ')))};
}

Outcome RecentFileStore::write(const QStringList &paths) const
{
    QByteArray content = header;
    for (const QString &path : paths)
        content += encoded(path) + '\n';
    QSaveFile file(m_file);
    // flush() is needed because commit() does not detect errors that occur when the buffer is written.
    if (file.open(QIODevice::WriteOnly) && file.write(content) == content.size() && file.flush() &&
        file.commit())
        return {};
    return Outcome::failed(
        tr("The list of recent documents, %1, cannot be written: %2.").arg(m_file, file.errorString()));
}

} // namespace fxhost
