// SPDX-License-Identifier: MIT
// The popup against its twin (see Twin.h).
#include "bench/BareReading.h"
#include "bench/Bench.h"
#include "bench/Browser.h"
#include "bench/Twin.h"
#include "host/runtime/preview/PreviewReader.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QKeyEvent>

#include <cstdio>
#include <memory>

#include <fcntl.h>
#include <malloc.h>
#include <sys/stat.h>
#include <unistd.h>

using bench::Browser;
using bench::Row;

namespace {

//! The real drawings of a folder, or else the samples.
QStringList copies(const QDir &real, const QTemporaryDir &folder)
{
    QStringList paths;
    const QFileInfoList files = real.entryInfoList({QStringLiteral("*.dwg")}, QDir::Files);
    for (const QFileInfo &file : files) {
        paths.append(folder.filePath(file.fileName()));
        if (!QFile::copy(file.filePath(), paths.constLast()) ||
            !QFile::setPermissions(paths.constLast(), QFile::ReadOwner | QFile::WriteOwner))
            qFatal("%s cannot be copied", qPrintable(file.filePath()));
    }
    return paths.isEmpty() ? Browser::writeDrawings(folder, 12) : paths;
}

//! Both popups over the same drawings.
struct Pair
{
    explicit Pair(const QStringList &paths) : browser(paths), drawings(drawingsOf(paths)) {}

    //! \param pinned every nth drawing is pinned; 0 for none
    Pair(int count, int pinned) : browser(count), drawings(drawingsOf(browser.paths()))
    {
        if (pinned == 0)
            return;
        browser.pin(pinned);
        QVector<TwinDrawing> ordered;
        for (const bool isPinned : {true, false}) {
            for (int i = 0; i < drawings.size(); ++i) {
                if ((i % pinned == 0) == isPinned)
                    ordered.append({drawings.at(i).path, drawings.at(i).picture, isPinned});
            }
        }
        drawings = ordered;
    }

    static QVector<TwinDrawing> drawingsOf(const QStringList &paths)
    {
        QVector<TwinDrawing> drawings;
        for (const QString &path : paths)
            drawings.append({path, fxhost::readPreview(path)});
        return drawings;
    }

    void openTwin()
    {
        auto *twin = new TwinPopup(browser.window(), drawings);
        twin->show();
        twin->setFocus();
        Browser::paint();
    }

    Browser browser;
    QVector<TwinDrawing> drawings;
};

Row opening(int count, int pinned, double most)
{
    const auto pair = std::make_shared<Pair>(count, pinned);
    Row row;
    row.most = most;
    row.ours = {{}, [pair] { pair->browser.openPopup(); }, Browser::closePopup};
    row.other = {{}, [pair] { pair->openTwin(); }, Browser::closePopup};
    return row;
}

//! The time of a tile among many, compared with that of one among fewer.
Row linear(int many, int fewer, double most)
{
    const auto browser = std::make_shared<Browser>(many);
    const auto show = [browser](int count) {
        browser->list(count);
        browser->openPopup(); // reads the pictures
        Browser::closePopup();
    };
    const auto open = [browser] { browser->openPopup(); };
    Row row;
    row.most = most;
    row.ours = {[show, many] { show(many); }, open, Browser::closePopup};
    row.other = {[show, fewer] { show(fewer); }, open, Browser::closePopup};
    row.scale = double(fewer) / many;
    row.runs = 7;
    return row;
}

//! The first opening after a new drawing, compared with a later one.
Row afterNewDrawing(int count, double most)
{
    const auto browser = std::make_shared<Browser>(count);
    const auto open = [browser] { browser->openPopup(); };
    const auto createDocument = [browser] {
        browser->createDocument();
        Browser::paint();
    };
    open();
    Browser::closePopup();
    Row row;
    row.most = most;
    row.ours = {createDocument, open, Browser::closePopup};
    row.other = {{}, open, Browser::closePopup};
    return row;
}

//! The first opening after all files have changed, which are real drawings if there are any, compared with
//! reading the pictures and opening the twin.
Row unread(double most)
{
    const auto folder = std::make_shared<QTemporaryDir>();
    const QStringList paths =
        copies(QDir(qEnvironmentVariable("DRAWINGS_DIR", QStringLiteral(REAL_DRAWINGS))), *folder);
    const auto pair = std::make_shared<Pair>(paths);
    const auto change = [pair] {
        for (const QString &path : pair->browser.paths()) {
            if (::utimensat(AT_FDCWD, QFile::encodeName(path).constData(), nullptr, 0) != 0)
                qFatal("the times of %s cannot be set", qPrintable(path));
        }
        pair->browser.createDocument();
        Browser::paint();
    };
    const auto readAndOpen = [pair] {
        for (TwinDrawing &drawing : pair->drawings)
            drawing.picture = readBare(drawing.path);
        pair->openTwin();
    };
    Row row;
    row.most = most;
    row.ours = {change, [folder, pair] { pair->browser.openPopup(); }, Browser::closePopup};
    row.other = {change, readAndOpen, Browser::closePopup};
    return row;
}

//! Something that is done with an open popup.
Row withOpenPopup(int count, double most, void (*act)())
{
    const auto pair = std::make_shared<Pair>(count, 0);
    Row row;
    row.most = most;
    row.ours = {[pair] { pair->browser.openPopup(); }, act, Browser::closePopup};
    row.other = {[pair] { pair->openTwin(); }, act, Browser::closePopup};
    return row;
}

constexpr int times = 20;

void pressKeys()
{
    for (int i = 0; i < times; ++i) {
        for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
            QKeyEvent key(type, Qt::Key_Right, Qt::NoModifier);
            QCoreApplication::sendEvent(Browser::popup(), &key);
        }
        Browser::paint();
    }
}

void movePointer()
{
    const auto tiles = Browser::popup()->findChildren<QWidget *>(QStringLiteral("RecentDocDialog"));
    for (int i = 0; i < times; ++i) {
        for (const QEvent::Type type : {QEvent::Enter, QEvent::Leave}) {
            QEvent event(type);
            QCoreApplication::sendEvent(tiles.at(i % tiles.size()), &event);
            Browser::paint();
        }
    }
}

//! The twin is an honest one if it looks the same.
bool looksLikeTwin()
{
    Pair pair(5, 2);
    pair.browser.openPopup();
    const QImage ours = Browser::popup()->grab().toImage();
    Browser::closePopup();
    pair.openTwin();
    return ours == Browser::popup()->grab().toImage();
}

//! Kilobytes that this process has in memory, without what has been freed.
long residentMemory()
{
    ::malloc_trim(0);
    QFile status(QStringLiteral("/proc/self/statm"));
    if (!status.open(QIODevice::ReadOnly))
        qFatal("the process's memory cannot be read");
    return status.readAll().split(' ').at(1).toLong() * ::sysconf(_SC_PAGESIZE) / 1024;
}

//! Prints by how much an opened popup has raised the process's memory, and what is left of it after closing.
int printMemory(const QString &whose)
{
    Pair pair(200, 0);
    const auto open = [&pair, isOurs = whose == QLatin1String("ours")] {
        if (isOurs)
            pair.browser.openPopup();
        else
            pair.openTwin();
    };
    open(); // fonts, plug-ins, the pictures that are kept
    Browser::closePopup();
    const long before = residentMemory();
    open();
    const long whileOpen = residentMemory();
    Browser::closePopup();
    std::printf("%s: %ld KB with 200 tiles, %ld KB after closing\n", qPrintable(whose), whileOpen - before,
                residentMemory() - before);
    return 0;
}

} // namespace

int main(int argc, char *argv[])
{
    const QApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.value(1) == QLatin1String("--looks-like-twin"))
        return looksLikeTwin() ? 0 : 1;
    if (arguments.value(1) == QLatin1String("--memory"))
        return printMemory(arguments.value(2));

    std::vector<std::pair<QString, bench::RowMaker>> rows;
    for (const int count : {10, 50, 200}) {
        const QString name = QStringLiteral("open-%1").arg(count);
        rows.emplace_back(name, [count] { return opening(count, 0, 0.45); });
        rows.emplace_back(name + QStringLiteral("-half-pinned"), [count] { return opening(count, 2, 0.55); });
        rows.emplace_back(name + QStringLiteral("-all-pinned"), [count] { return opening(count, 1, 0.55); });
    }
    rows.emplace_back(QStringLiteral("tile-of-1000-against-50"), [] { return linear(1000, 50, 1.3); });
    for (const int count : {10, 50, 200}) {
        rows.emplace_back(QStringLiteral("after-new-drawing-%1").arg(count),
                          [count] { return afterNewDrawing(count, 1.15); });
    }
    rows.emplace_back(QStringLiteral("unread"), [] { return unread(0.6); });
    rows.emplace_back(QStringLiteral("key"), [] { return withOpenPopup(50, 0.9, pressKeys); });
    rows.emplace_back(QStringLiteral("pointer"), [] { return withOpenPopup(50, 1.0, movePointer); });
    return bench::run(rows);
}
