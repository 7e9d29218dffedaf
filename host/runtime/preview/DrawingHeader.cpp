// SPDX-License-Identifier: MIT
#include "host/runtime/preview/DrawingHeader.h"

#include "host/runtime/preview/RegularFile.h"

#include <QCoreApplication>
#include <QLatin1String>

#include <array>
#include <cerrno>
#include <system_error>

namespace fxhost {

namespace {

constexpr int longestVersion = 6; // bytes

//! The versions before the numbering with four digits began.
constexpr std::array<const char *, 4> earliestVersions = {"AC1.2", "AC1.40", "AC1.50", "AC2.10"};

QString text(const char *source)
{
    return QCoreApplication::translate("fxhost::DrawingHeader", source);
}

//! AC1001 to AC1009 and AC1012 to AC1032. The numbers between those that were released stand for their
//! forerunners, which were given away as well.
bool isNumberedVersion(const QByteArray &start)
{
    if (start.size() < longestVersion || !start.startsWith("AC10"))
        return false;
    const int tens = start.at(4) - '0';
    const int ones = start.at(5) - '0';
    if (tens < 0 || tens > 9 || ones < 0 || ones > 9)
        return false;
    const int number = 10 * tens + ones;
    return (number >= 1 && number <= 9) || (number >= 12 && number <= 32);
}

QByteArray versionAt(const QByteArray &start)
{
    for (const char *version : earliestVersions) {
        if (start.startsWith(version))
            return version;
    }
    return isNumberedVersion(start) ? start.left(longestVersion) : QByteArray();
}

DrawingHeader failure(DrawingError error, const QString &reason)
{
    return {{}, error, reason};
}

DrawingHeader unreadable(int errorNumber)
{
    const std::string cause = std::generic_category().message(errorNumber);
    return failure(DrawingError::Unreadable,
                   text(QT_TRANSLATE_NOOP("fxhost::DrawingHeader", "The file cannot be read: %1."))
                       .arg(QString::fromLocal8Bit(cause.c_str())));
}

DrawingHeader couldNotOpen(int errorNumber)
{
    switch (errorNumber) {
    case ENOENT:
    case ENOTDIR: // something on the way is a file, so there can be nothing below it
        return failure(DrawingError::Missing,
                       text(QT_TRANSLATE_NOOP("fxhost::DrawingHeader", "The file does not exist.")));
    case ENXIO:
        return failure(DrawingError::NotAFile,
                       text(QT_TRANSLATE_NOOP("fxhost::DrawingHeader", "This is not a regular file.")));
    default:
        return unreadable(errorNumber);
    }
}

} // namespace

DrawingHeader readDrawingHeader(const QString &path)
{
    const RegularFile file(path);
    if (!file.isOpen())
        return couldNotOpen(file.openError());

    std::array<char, longestVersion> start = {};
    const qint64 count = file.read(0, start.data(), longestVersion);
    if (count < 0)
        return unreadable(errno);

    const QByteArray version = versionAt(QByteArray(start.data(), static_cast<int>(count)));
    if (version.isEmpty()) {
        return failure(DrawingError::NotADrawing,
                       text(QT_TRANSLATE_NOOP("fxhost::DrawingHeader", "The file is not a drawing.")));
    }
    return {version, DrawingError::None, {}};
}

QString drawingFormatName(const QByteArray &version)
{
    struct FormatYear
    {
        const char *version;
        int year;
    };
    static constexpr std::array<FormatYear, 6> years = {{{"AC1015", 2000},
                                                         {"AC1018", 2004},
                                                         {"AC1021", 2007},
                                                         {"AC1024", 2010},
                                                         {"AC1027", 2013},
                                                         {"AC1032", 2018}}};

    const QString name = QString::fromLatin1(version);
    for (const FormatYear &format : years) {
        if (version == format.version) {
            return text(QT_TRANSLATE_NOOP("fxhost::DrawingHeader", "%1 (%2 format)"))
                .arg(name)
                .arg(format.year);
        }
    }
    return name;
}

} // namespace fxhost
