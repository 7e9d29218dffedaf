// SPDX-License-Identifier: MIT
// The reader of stored pictures against bare reading, and the program that uses it.
#include "bench/BareReading.h"
#include "bench/Bench.h"
#include "bench/Browser.h"
#include "host/runtime/preview/PreviewReader.h"

#include <QGuiApplication>
#include <QProcess>
#include <QThreadPool>
#include <QtConcurrentMap>

#include <chrono>
#include <memory>
#include <thread>

using bench::Row;

namespace {

enum Kind { None, Bitmap, Png };

//! The sample drawings of a kind, or drawings without a picture.
QStringList drawingsOf(Kind kind, const QTemporaryDir &folder)
{
    const QStringList all = bench::Browser::writeDrawings(folder, 12);
    QStringList drawings;
    for (const QString &path : all) {
        QFile file(path);
        if (!file.open(QIODevice::ReadWrite))
            qFatal("%s cannot be read", qPrintable(path));
        const bool isPng = file.readAll().contains("\x89PNG");
        if (kind == None && file.seek(0))
            file.write("AC1009"); // the last version without pictures
        if (kind == None || isPng == (kind == Png))
            drawings.append(path);
    }
    return drawings;
}

Row reading(Kind kind, int times, double most)
{
    const auto folder = std::make_shared<QTemporaryDir>();
    const QStringList drawings = drawingsOf(kind, *folder);
    for (const QString &drawing : drawings) {
        const QImage picture = fxhost::readPreview(drawing);
        if (picture.isNull() != (kind == None) ||
            picture != readBare(drawing).convertToFormat(picture.format()))
            qFatal("%s is read wrongly", qPrintable(drawing));
    }
    const auto readAll = [folder, drawings, times](QImage (*read)(const QString &)) {
        return [folder, drawings, times, read] {
            for (int i = 0; i < times; ++i) {
                for (const QString &drawing : drawings)
                    read(drawing);
            }
        };
    };
    Row row;
    row.most = most;
    row.ours.act = readAll(fxhost::readPreview);
    row.other.act = readAll(readBare);
    return row;
}

//! Two threads compared with one.
Row parallel(double most)
{
    const auto folder = std::make_shared<QTemporaryDir>();
    const auto drawings = std::make_shared<QStringList>();
    const QStringList pngs = drawingsOf(Png, *folder);
    while (drawings->size() < 200)
        *drawings += pngs;
    const auto onThreads = [](int count) {
        return [count] { QThreadPool::globalInstance()->setMaxThreadCount(count); };
    };
    const auto read = [folder, drawings] {
        QtConcurrent::blockingMapped<QVector<QImage>>(
            *drawings, static_cast<QImage (*)(const QString &)>(fxhost::readPreview));
    };
    Row row;
    row.most = most;
    row.ours = {onThreads(2), read, {}};
    row.other = {onThreads(1), read, {}};
    return row;
}

//! The program for file managers as a whole process, compared with a duration.
Row thumbnail(std::chrono::milliseconds limit)
{
    const auto folder = std::make_shared<QTemporaryDir>();
    const QStringList arguments = {drawingsOf(Png, *folder).constFirst(),
                                   folder->filePath(QStringLiteral("a.png"))};
    Row row;
    row.most = 1;
    row.ours.act = [folder, arguments] {
        if (QProcess::execute(QStringLiteral(FXTHUMBNAIL_PROGRAM), arguments) != 0)
            qFatal("fxthumbnail has failed");
    };
    row.other.act = [limit] { std::this_thread::sleep_for(limit); };
    return row;
}

} // namespace

int main(int argc, char *argv[])
{
    const QGuiApplication application(argc, argv);
    return bench::run({
        {QStringLiteral("reading-none"), [] { return reading(None, 200, 1.1); }},
        {QStringLiteral("reading-bitmaps"), [] { return reading(Bitmap, 20, 0.65); }},
        {QStringLiteral("reading-pngs"), [] { return reading(Png, 2, 0.7); }},
        {QStringLiteral("reading-on-two-threads"), [] { return parallel(0.65); }},
        {QStringLiteral("process-thumbnail"), [] { return thumbnail(std::chrono::milliseconds(25)); }},
    });
}
