// SPDX-License-Identifier: MIT
// Writes the picture stored in a drawing as a PNG file, for file managers: fxthumbnail [-s SIZE] INPUT OUTPUT
// File managers run it in a sandbox, so it needs no display, no home folder and no plug-in of Qt. Its
// messages are for their logs, and not translated.
#include "host/runtime/Paths.h"
#include "host/runtime/preview/DrawingFile.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QFileInfo>
#include <QImage>
#include <QSaveFile>
#include <QTextStream>

#include <cstdio>
#include <filesystem>
#include <utility>

using namespace fxhost;

namespace {

constexpr int noPicture = 1;
constexpr int wrongUse = 2;

FILE *const errors = stderr;

//! Drops what libraries print about broken pictures, so that there is one line for a failure.
void silenceLibraries()
{
    if (FILE *const nowhere = std::fopen("/dev/null", "w"))
        stderr = nowhere; // as the C library allows
}

int fail(int status, const QString &text)
{
    // A single line, whatever a file name contains.
    QTextStream(errors) << QCoreApplication::applicationName() << ": " << text.simplified() << '\n';
    return status;
}

int print(const QString &text)
{
    QTextStream(stdout) << text << '\n';
    return 0;
}

bool isSameFile(const QString &one, const QString &other)
{
    std::error_code missing;
    return std::filesystem::equivalent(pathBytes(one).constData(), pathBytes(other).constData(), missing);
}

//! The picture with a larger side of at most size pixels; not enlarged.
QImage limited(QImage picture, int size)
{
    if (picture.width() <= size && picture.height() <= size)
        return picture;
    if (picture.depth() > 32) // scaling would need two more pictures of this depth
        picture = picture.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    const QSize fitting = picture.size().scaled(size, size, Qt::KeepAspectRatio).expandedTo(QSize(1, 1));
    return picture.scaled(fitting, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

bool writePng(const QImage &picture, QFileDevice &file)
{
    // With flush(), because closing does not detect errors that occur when the buffer is written.
    const bool isEncoded = picture.save(&file, "PNG");
    return file.flush() && isEncoded;
}

Outcome writeInPlace(const QImage &picture, const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::ExistingOnly))
        return Outcome::failed(file.errorString());
    if (writePng(picture, file))
        return {};
    const QString problem = file.errorString();
    file.close();
    QFile::resize(path, 0); // part of a picture is not one
    return Outcome::failed(problem);
}

//! Replaces the file as a whole, except where that cannot work. Thumbnail managers create an empty file, and
//! some read the picture from it without opening it again. In a sandbox, its folder may take no new file, or
//! the file may be a mount point, which cannot be replaced.
Outcome write(const QImage &picture, const QString &path)
{
    const QFileInfo info(path);
    if (info.exists() && !info.isFile()) // a device would be replaced
        return Outcome::failed(QStringLiteral("It is not a regular file."));
    if (info.exists() && info.size() == 0)
        return writeInPlace(picture, path);
    QSaveFile file(path);
    if (file.open(QIODevice::WriteOnly)) {
        if (!writePng(picture, file))
            return Outcome::failed(file.errorString());
        if (file.commit())
            return {};
    }
    return info.exists() ? writeInPlace(picture, path) : Outcome::failed(file.errorString());
}

int writeThumbnail(const QString &input, const QString &output, int size)
{
    DrawingFile drawing = readDrawing(input);
    if (!drawing.outcome)
        return fail(noPicture, input + QStringLiteral(": ") + drawing.outcome.reason());
    if (drawing.preview.isNull())
        return fail(noPicture, input + QStringLiteral(": The drawing contains no picture."));
    if (isSameFile(input, output))
        return fail(wrongUse, output + QStringLiteral(": The drawing would be overwritten."));
    const Outcome written = write(limited(std::exchange(drawing.preview, {}), size), output);
    return written ? 0 : fail(noPicture, output + QStringLiteral(": ") + written.reason());
}

} // namespace

int main(int argc, char *argv[])
{
    silenceLibraries();
    keepBytesOfPaths();
    const QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("fxthumbnail"));
    QCoreApplication::setLibraryPaths({}); // Qt would load all plug-ins for pictures, to write one

    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Writes the picture stored in a DWG drawing as a PNG file."));
    // Not the parser's own help option, which also lists --help-all for Qt's options.
    const QCommandLineOption help({QStringLiteral("h"), QStringLiteral("help")},
                                  QStringLiteral("Print this help."));
    const QCommandLineOption version({QStringLiteral("v"), QStringLiteral("version")},
                                     QStringLiteral("Print the version."));
    const QCommandLineOption sizeOption(
        {QStringLiteral("s"), QStringLiteral("size")},
        QStringLiteral("Largest side of the picture, in pixels; 256 by default. A "
                       "smaller picture is not enlarged."),
        QStringLiteral("SIZE"), QStringLiteral("256"));
    parser.addOptions({help, version, sizeOption});
    parser.addPositionalArgument(QStringLiteral("INPUT"),
                                 QStringLiteral("The drawing: a path or a file:// URL."));
    parser.addPositionalArgument(QStringLiteral("OUTPUT"), QStringLiteral("The PNG file."));
    if (!parser.parse(QCoreApplication::arguments()))
        return fail(wrongUse, parser.errorText());
    if (parser.isSet(help))
        return print(parser.helpText().trimmed());
    if (parser.isSet(version))
        return print(QStringLiteral("fxthumbnail " FXTHUMBNAIL_VERSION));

    bool isNumber = false;
    const int size = parser.value(sizeOption).toInt(&isNumber);
    if (!isNumber || size < 1)
        return fail(wrongUse, QStringLiteral("SIZE is not a number of pixels."));
    const QStringList files = parser.positionalArguments();
    if (files.size() != 2 || files.contains(QString()))
        return fail(wrongUse, QStringLiteral("Usage: fxthumbnail [-s SIZE] INPUT OUTPUT"));
    return writeThumbnail(pathFromArgument(files.constFirst()), pathFromArgument(files.constLast()), size);
}
