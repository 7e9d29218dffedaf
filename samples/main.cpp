// SPDX-License-Identifier: MIT
#include "samples/SampleSet.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QSaveFile>
#include <QTextStream>

#include <optional>

namespace {

//! \return the error, if the file could not be written
std::optional<QString> write(const QString &path, const QByteArray &bytes)
{
    const QString directory = QFileInfo(path).path();
    if (!QDir().mkpath(directory))
        return QStringLiteral("cannot create the folder %1").arg(directory);
    QSaveFile file(path);
    // flush() is needed because commit() does not detect errors that occur when the buffer is written.
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.flush() ||
        !file.commit())
        return QStringLiteral("cannot write %1: %2").arg(path, file.errorString());
    return std::nullopt;
}

QString pictureName(fxsamples::Picture picture)
{
    switch (picture) {
    case fxsamples::Picture::Bitmap8:
        return QStringLiteral("8-bit bitmap");
    case fxsamples::Picture::Bitmap24:
        return QStringLiteral("24-bit bitmap");
    case fxsamples::Picture::Bitmap32:
        return QStringLiteral("32-bit bitmap");
    case fxsamples::Picture::Png:
        return QStringLiteral("PNG");
    }
    Q_UNREACHABLE();
}

} // namespace

int main(int argc, char *argv[])
{
    // Not a GUI application, because paintPreview() needs no screen.
    QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("make_samples"));

    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Creates a dozen sample drawings. Each contains only a file header and a preview."));
    parser.addHelpOption();
    parser.addPositionalArgument(QStringLiteral("DIRECTORY"),
                                 QStringLiteral("The folder for the drawings; created if it is missing."));
    parser.process(application);
    QTextStream err(stderr);
    if (parser.positionalArguments().size() != 1) {
        err << "make_samples: exactly one folder is required\n\n" << parser.helpText();
        return EXIT_FAILURE;
    }

    const QDir directory(parser.positionalArguments().constFirst());
    QTextStream out(stdout);
    for (const fxsamples::Sample &sample : fxsamples::sampleSet()) {
        const fxsamples::DrawingForm &form = sample.form;
        const QString path = directory.filePath(sample.fileName.toString());
        const QImage picture = fxsamples::paintPreview(sample);
        const std::optional<QString> error = picture.isNull()
                                                 ? QStringLiteral("Qt's plug-in for SVG pictures is missing")
                                                 : write(path, fxsamples::drawingFile(picture, form));
        if (error) {
            err << "make_samples: " << *error << '\n';
            return EXIT_FAILURE;
        }
        out << path << ": " << QString::fromLatin1(fxsamples::versionTag(form.version)) << ", "
            << pictureName(form.picture) << ", " << picture.width() << " x " << picture.height() << '\n';
    }
    return EXIT_SUCCESS;
}
