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

//! Keeps Qt's library of the worker threads in memory when the module goes. Its workers have nothing more to
//! do with us once it has said that all is done, but may still be on their way out of its code, and the
//! module may well be the only one that uses it.
void keepWorkersCode()
{
    if (void *library = dlopen("libQt5Concurrent.so.5", RTLD_LAZY | RTLD_NOLOAD | RTLD_NODELETE))
        dlclose(library);
}

//! A thread less for others to start in Qt's global pool.
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

//! What QtConcurrent::blockingMapped() promises: reads all pictures, spread over Qt's global thread pool, and
//! returns when that is done. In Qt 5.15 that function returns as soon as the result is there, while the
//! worker that reported it has still to pass through code that is the module's, and deletes what is the
//! module's: when the module goes in that moment, the host crashes. It also waits without end when all
//! threads of the pool wait for this one. So this asks the engine below it, whose workers leave by Qt's own
//! code. It lets this thread read too, which therefore counts as one of the pool's; the others join as they
//! get free.
void readAll(QVector<Picture> &pictures)
{
    if (QThreadPool::globalInstance()->maxThreadCount() <= 1) { // else the pool would start one all the same
        std::for_each(pictures.begin(), pictures.end(), read);
        return;
    }
    const ReservedThread ourselves;
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
    recentFileImageMap = {}; // and empty it stays when the host cannot tell its recent documents
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
        recentFileImageMap.insert(picture.path, picture.image); // of two equal paths the later one's stays
}
