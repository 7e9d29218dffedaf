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

constexpr char header[] = "fxhost recent documents 2\n";
constexpr char formerHeader[] = "fxhost recent documents 1\n"; // then a path per line
constexpr char keptWord[] = "kept";
constexpr char nothing[] = "-";

constexpr int mostEntries = mostKept + RecentFiles::largestMaximum;
// Each with the longest path of Linux (4096 bytes), each byte encoded as three, after the words and the time.
constexpr qint64 largestFile = qint64(mostEntries) * (4096 * 3 + 64); // bytes

QByteArray encoded(const QString &path)
{
    const QByteArray bytes = pathBytes(path);
    // Tested on the bytes, because path may not be what they are decoded to.
    const bool isUtf8 = pathFromBytes(bytes).toUtf8() == bytes;
    const auto isSpecial = [](uchar byte) { return isControl(byte) || byte == '%'; };
    const auto isSpecialOrNotAscii = [](uchar byte) { return isControl(byte) || byte == '%' || byte > 0x7f; };
    return isUtf8 ? percentEncoded(bytes, isSpecial) : percentEncoded(bytes, isSpecialOrNotAscii);
}

QByteArray lineOf(const RecentEntry &entry)
{
    const QByteArray time = entry.lastOpened.isValid()
                                ? entry.lastOpened.toUTC().toString(Qt::ISODate).toLatin1()
                                : QByteArray(nothing);
    return (entry.isKept ? keptWord : nothing) + (' ' + time) + ' ' + encoded(entry.path);
}

//! The entry of a line; nothing if the line is not the exact result of lineOf() for a full path.
std::optional<RecentEntry> entryOf(const QByteArray &line)
{
    const int afterWord = line.indexOf(' ') + 1;
    const int afterTime = line.indexOf(' ', afterWord) + 1;
    RecentEntry entry;
    entry.path = pathFromBytes(QByteArray::fromPercentEncoding(line.mid(afterTime)));
    entry.isKept = line.startsWith(keptWord);
    const QByteArray time = line.mid(afterWord, afterTime - afterWord - 1);
    entry.lastOpened = QDateTime::fromString(QString::fromLatin1(time), Qt::ISODate);
    if (!entry.path.startsWith(QLatin1Char('/')) || lineOf(entry) != line)
        return std::nullopt;
    return entry;
}

//! The entries in the file's content; nothing if no version of write() can have written it.
std::optional<RecentEntries> parsed(const QByteArray &content)
{
    const bool isFormer = content.startsWith(formerHeader);
    if (!(isFormer || content.startsWith(header)) || !content.endsWith('\n'))
        return std::nullopt;
    QList<QByteArray> lines = content.mid(int(qstrlen(header))).split('\n');
    lines.removeLast(); // nothing follows the last line end
    if (lines.size() > mostEntries)
        return std::nullopt;
    RecentEntries entries;
    for (const QByteArray &line : qAsConst(lines)) {
        const std::optional<RecentEntry> entry = entryOf(isFormer ? "- - " + line : line);
        if (!entry)
            return std::nullopt;
        entries.append(*entry);
    }
    return entries;
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
    RecentEntries entries;
    QString error; //!< why it is unreadable
};

RecentFileStore::RecentFileStore(const QString &file, const QString &formerFile)
    : m_file(file), m_formerFile(formerFile)
{
}

RecentFileStore::Reading RecentFileStore::read(const QString &path)
{
    const QFileInfo info(path);
    if (!info.exists())
        return {Reading::Outcome::NoFile, {}, {}};
    // Opening a FIFO would wait for a writer.
    if (!info.isFile() || info.size() > largestFile)
        return {Reading::Outcome::Damaged, {}, {}};
    QFile file(path);
    const QByteArray content = file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    if (file.error() != QFileDevice::NoError)
        return {Reading::Outcome::Unreadable, {}, file.errorString()};
    if (const std::optional<RecentEntries> entries = parsed(content))
        return {Reading::Outcome::Read, *entries, {}};
    return {Reading::Outcome::Damaged, {}, {}};
}

RecentFileStore::Stored RecentFileStore::keepForLater(const RecentEntries &known, const Change &change,
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
    const Reading reading = read(m_file);
    if (reading.outcome == Reading::Outcome::Damaged)
        return {{}, setDamagedAside()};
    if (reading.outcome == Reading::Outcome::Unreadable)
        return {{}, Outcome::failed(unreadable(m_file, reading.error))};
    Stored stored{reading.entries, {}};
    if (!m_formerFile.isEmpty() && !lock.isBusy())
        takeOverFormerFile(stored);
    return stored;
}

//! Must be called while the lock is held, so that of several programs only one moves the entries.
void RecentFileStore::takeOverFormerFile(Stored &stored) const
{
    const Reading reading = read(m_formerFile);
    const QString path = QFileInfo(m_formerFile).canonicalFilePath();
    if (reading.outcome == Reading::Outcome::NoFile || path == QFileInfo(m_file).canonicalFilePath())
        return; // also if both are the same file by links
    if (reading.outcome != Reading::Outcome::Read) {
        if (reading.outcome == Reading::Outcome::Damaged)
            setAside(m_formerFile); // so that it is reported once
        stored.outcome = Outcome::failed(tr("The former list of recent documents, %1, is damaged or cannot "
                                            "be read. Its entries are missing from the list.")
                                             .arg(m_formerFile));
        return;
    }
    stored.entries = fitted(stored.entries + reading.entries, RecentFiles::largestMaximum);
    stored.outcome = write(stored.entries);
    if (stored.outcome) {
        QFile::remove(m_formerFile);
        QFile::remove(lockFile(m_formerFile));
    }
}

RecentFileStore::Stored RecentFileStore::update(const RecentEntries &known, const Change &change)
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
    const Reading reading = read(m_file);
    if (reading.outcome == Reading::Outcome::Unreadable)
        return keepForLater(known, change, unreadable(m_file, reading.error));

    const bool isRead = reading.outcome == Reading::Outcome::Read;
    RecentEntries listed = known;
    if (isRead) {
        listed = reading.entries;
        for (const Change &earlier : m_unwritten)
            listed = earlier(listed);
    }
    const RecentEntries entries = change(listed);

    QStringList problems;
    bool isToWrite = isRead ? entries != reading.entries : entries != known || !m_unwritten.empty();
    if (reading.outcome == Reading::Outcome::Damaged) {
        problems << setDamagedAside().reason();
        isToWrite = m_mayWrite;
    }
    const Outcome written = isToWrite ? write(entries) : Outcome();
    if (written) {
        m_unwritten.clear();
    } else {
        m_unwritten.push_back(change);
        problems << written.reason();
    }
    return {entries, problems.isEmpty() ? Outcome() : Outcome::failed(problems.join(QLatin1Char(' ')))};
}

Outcome RecentFileStore::write(const RecentEntries &entries) const
{
    QByteArray content = header;
    for (const RecentEntry &entry : entries)
        content += lineOf(entry) + '\n';
    QSaveFile file(m_file);
    // flush() is needed because commit() does not detect errors that occur when the buffer is written.
    if (file.open(QIODevice::WriteOnly) && file.write(content) == content.size() && file.flush() &&
        file.commit())
        return {};
    return Outcome::failed(
        tr("The list of recent documents, %1, cannot be written: %2.").arg(m_file, file.errorString()));
}

} // namespace fxhost
