// SPDX-License-Identifier: MIT
#include "host/runtime/preview/DrawingFile.h"

#include "host/runtime/preview/PreviewReader.h"
#include "host/runtime/preview/PreviewSection.h"
#include "host/runtime/preview/RegularFile.h"

#include <QCoreApplication>
#include <QLatin1String>

#include <array>
#include <cerrno>
#include <system_error>

namespace fxhost {

namespace {

constexpr int longestVersion = 6; // bytes

//! The versions before four-digit numbers were introduced.
constexpr std::array<const char *, 4> earliestVersions = {"AC1.2", "AC1.40", "AC1.50", "AC2.10"};

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(fxhost::DrawingFile)
};

//! True for AC1001 to AC1009 and AC1012 to AC1032. The numbers between the released versions are pre-release
//! versions, of which drawings exist, too.
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

Outcome unreadable(int errorNumber)
{
    const std::string cause = std::generic_category().message(errorNumber);
    return Outcome::failed(
        Texts::tr("The file cannot be read: %1.").arg(QString::fromLocal8Bit(cause.c_str())));
}

Outcome couldNotOpen(int errorNumber)
{
    switch (errorNumber) {
    case ENOENT:
    case ENOTDIR: // a parent in the path is a file
        return Outcome::failed(Texts::tr("The file does not exist."));
    case ENXIO:
        return Outcome::failed(Texts::tr("It is not a regular file."));
    default:
        return unreadable(errorNumber);
    }
}

Outcome readVersion(const RegularFile &file, QByteArray &version)
{
    if (!file.isOpen())
        return couldNotOpen(file.openError());
    std::array<char, longestVersion> start = {};
    const qint64 count = file.read(0, start.data(), longestVersion);
    if (count < 0)
        return unreadable(errno);
    version = versionAt(QByteArray(start.data(), static_cast<int>(count)));
    return version.isEmpty() ? Outcome::failed(Texts::tr("The file is not a drawing.")) : Outcome();
}

} // namespace

DrawingFile readDrawing(const QString &path)
{
    const RegularFile file(path);
    DrawingFile drawing;
    drawing.outcome = readVersion(file, drawing.version);
    if (drawing.outcome) {
        drawing.size = file.size();
        drawing.modified = file.modified();
        const PreviewSection section = readPreviewSection(file);
        drawing.preview = readPreview(file, section);
        drawing.isPreviewAlone = isAlone(section, file);
    }
    return drawing;
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
            return Texts::tr("%1 (%2 format)").arg(name).arg(format.year);
        }
    }
    return name;
}

} // namespace fxhost
