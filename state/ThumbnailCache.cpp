// SPDX-License-Identifier: MIT
#include "module/HostAccess.h"
#include "module/RecentDocumentBrowser.h"

#include <QFileInfo>
#include <QThreadPool>
#include <QVector>
#include <QtConcurrentMap>

#include <dlfcn.h>

#include <algorithm>

namespace {

//! Keeps Qt's Concurrent library in memory when the module, which may be its only user, is unloaded. After
//! all work is reported as finished, the worker threads no longer use the module, but may still be executing
//! the library's code.
void keepWorkersCode()
{
    if (void *library = dlopen("libQt5Concurrent.so.5", RTLD_LAZY | RTLD_NOLOAD | RTLD_NODELETE))
        dlclose(library);
}

//! Reserves a thread in Qt's global pool, so that the pool starts one thread fewer.
class ReservedThread
{
public:
    ReservedThread() { QThreadPool::globalInstance()->reserveThread(); }
    ~ReservedThread() { QThreadPool::globalInstance()->releaseThread(); }
    Q_DISABLE_COPY(ReservedThread)
};

struct Picture
{
    QString path;
    QImage image;
};

void read(Picture &picture)
{
    picture.image = RecentDocumentBrowser::GetQImage(picture.path);
}

static_assert(QT_VERSION_MAJOR == 5 && QT_VERSION_MINOR == 15, "needs Qt 5.15's parallel engine");

//! Reads all pictures on the threads of Qt's global thread pool and returns when all are read.
//!
//! QtConcurrent::blockingMapped() is documented to do this. But in Qt 5.15 it returns as soon as the result
//! is available, while the worker that reported it still executes the module's code and deletes the module's
//! objects: if the module is unloaded at that moment, the host crashes. It also waits forever if all threads
//! of the pool wait for this one. This function therefore uses the engine that blockingMapped() is built on,
//! whose workers finish in Qt's code. This thread reads, too, and is therefore counted as one of the pool's
//! threads; the pool's own threads join when they become free.
void readAll(QVector<Picture> &pictures)
{
    if (QThreadPool::globalInstance()->maxThreadCount() <= 1) { // the pool would start one nevertheless
        std::for_each(pictures.begin(), pictures.end(), read);
        return;
    }
    const ReservedThread thisThread;
    QtConcurrent::startMap(pictures.begin(), pictures.end(), read).startBlocking();
}

} // namespace

QImage RecentDocumentBrowser::GetQImage(const QString &path)
{
    QImage image;
    if (!QFileInfo(path).isFile())
        return image;
    try {
        HostAccess::readPreview(path, image);
    } catch (...) { // NOLINT(bugprone-empty-catch): a drawing without a picture gets a blank tile
    }
    return image;
}

void RecentDocumentBrowser::CreateRecentFileImageMap()
{
    recentFileImageMap = {}; // stays empty if the host has no list of recent documents
    const auto recent = HostAccess::recentFiles();
    if (!recent)
        return;

    keepWorkersCode();
    QVector<Picture> pictures;
    pictures.reserve(static_cast<int>(recent->size()));
    for (const CFxString &path : *recent)
        pictures.append({path, {}});
    readAll(pictures);
    for (const Picture &picture : qAsConst(pictures))
        recentFileImageMap.insert(picture.path, picture.image); // of equal paths, the last one is kept
}
