// SPDX-License-Identifier: MIT
#include "host/runtime/Paths.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTextCodec>
#include <QUrl>

#include <algorithm>
#include <optional>

namespace fxhost {

namespace {

// Represents the byte 0x80. Lower bytes are ASCII, which is always valid.
constexpr ushort firstCarried = 0xdc80;
constexpr ushort lastCarried = 0xdcff;
constexpr int longestCharacter = 4; // bytes in UTF-8

//! The text, if bytes are UTF-8 as Qt would encode it: without surrogates and overlong sequences.
std::optional<QString> textOf(const QByteArray &bytes)
{
    // Qt drops a leading byte order mark, but a name may start with one, so put another character before it.
    const QByteArray prefixed = '/' + bytes;
    const QString text =
        QString::fromUtf8(prefixed.constData(), prefixed.size()).mid(1); // with a size, to include null bytes
    return text.toUtf8() == bytes ? std::optional<QString>(text) : std::nullopt;
}

bool isCarriedByte(QChar c)
{
    return c.unicode() >= firstCarried && c.unicode() <= lastCarried;
}

static_assert(QT_VERSION_MAJOR == 5 && QT_VERSION_MINOR == 15,
              "needs the converter state of Qt 5.15's codecs");

//! UTF-8 that keeps every byte of file names. Qt converts a name as a whole, usually without a converter
//! state. Text that is converted in pieces is not a name, and a piece may end within a character: it is
//! converted as usual. Only when Qt reads a directory, it converts whole names with a state. That state has
//! the flag IgnoreHeader from the start, by which this codec recognises it.
class PathCodec : public QTextCodec
{
public:
    QByteArray name() const override { return "UTF-8 with any byte"; }
    int mibEnum() const override { return -1; } // it has no number, because it is only used in this process

protected:
    QString convertToUnicode(const char *bytes, int size, ConverterState *pieces) const override
    {
        if (pieces && !(pieces->flags & IgnoreHeader))
            pieces->state_data[markAt] = inPieces; // now, because Qt's converter sets the flag, too
        const bool isWhole = !pieces || pieces->state_data[markAt] != inPieces;
        return isWhole ? pathFromBytes(QByteArray(bytes, size)) : m_utf8->toUnicode(bytes, size, pieces);
    }
    QByteArray convertFromUnicode(const QChar *text, int size, ConverterState *pieces) const override
    {
        return pieces ? m_utf8->fromUnicode(text, size, pieces) : pathBytes(QString(text, size));
    }

private:
    static constexpr int utf8Mib = 106; // the registered number of the character set
    static constexpr int markAt = 2;    // Qt's converter uses the data before
    static constexpr uint inPieces = 1;
    const QTextCodec *m_utf8 = QTextCodec::codecForMib(utf8Mib);
};

} // namespace

QString pathFromBytes(const QByteArray &bytes)
{
    if (const std::optional<QString> text = textOf(bytes))
        return *text;
    QString path;
    for (int at = 0; at < bytes.size();) {
        int size = 1;
        std::optional<QString> character = textOf(bytes.mid(at, size));
        while (!character && size < longestCharacter)
            character = textOf(bytes.mid(at, ++size));
        const auto byte = static_cast<uchar>(bytes.at(at));
        path += character.value_or(QString(QChar(ushort(firstCarried - 0x80 + byte))));
        at += character ? size : 1;
    }
    return path;
}

QByteArray pathBytes(const QString &path)
{
    if (std::none_of(path.begin(), path.end(), isCarriedByte)) // as nearly always
        return path.toUtf8();
    QByteArray bytes;
    int textStart = 0;
    for (int i = 0; i < path.size(); ++i) {
        const bool isPair = i > 0 && path.at(i - 1).isHighSurrogate();
        if (!isCarriedByte(path.at(i)) || isPair)
            continue;
        bytes += path.midRef(textStart, i - textStart).toUtf8();
        bytes += static_cast<char>(path.at(i).unicode() - firstCarried + 0x80);
        textStart = i + 1;
    }
    return bytes + path.midRef(textStart).toUtf8();
}

void keepBytesOfPaths()
{
    QTextCodec::setCodecForLocale(new PathCodec); // Qt owns it
}

QByteArray percentEncoded(const QByteArray &bytes, bool (*isToEncode)(uchar byte))
{
    constexpr char digits[] = "0123456789ABCDEF";
    QByteArray encoded;
    for (const char c : bytes) {
        const auto byte = static_cast<uchar>(c);
        if (isToEncode(byte))
            encoded.append('%').append(digits[byte / 16]).append(digits[byte % 16]);
        else
            encoded.append(c);
    }
    return encoded;
}

QString pathFromUrl(const QUrl &localFile)
{
    const QByteArray path = localFile.path(QUrl::FullyEncoded).toLatin1();
    return pathFromBytes(QByteArray::fromPercentEncoding(path));
}

QString pathFromArgument(const QString &argument)
{
    if (!argument.startsWith(QLatin1String("file:/"), Qt::CaseInsensitive))
        return argument;
    const QUrl url(argument);
    const bool isOnThisComputer = url.host().isEmpty() || url.host() == QLatin1String("localhost");
    return isOnThisComputer ? pathFromUrl(url) : argument;
}

QString absolutePath(const QString &path)
{
    // Not by QDir, which also considers names absolute that start with a colon.
    if (path.isEmpty() || path.startsWith(QLatin1Char('/')))
        return path;
    const QString folder = QDir::currentPath();
    return folder.endsWith(QLatin1Char('/')) ? folder + path : folder + QLatin1Char('/') + path;
}

QString setAside(const QString &path)
{
    QString free = path + QLatin1String(".damaged");
    for (int number = 2; QFileInfo::exists(free) || QFileInfo(free).isSymLink(); ++number)
        free = path + QStringLiteral(".damaged-%1").arg(number);
    return QFile::rename(path, free) ? free : QString();
}

} // namespace fxhost
