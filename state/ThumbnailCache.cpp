// SPDX-License-Identifier: MIT
#include "module/HostAccess.h"
#include "module/RecentDocumentBrowser.h"

#include <QFileInfo>
#include <QThreadPool>
#include <QVector>
#include <QtConcurrentMap>

#include <dlfcn.h>

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

//! What QtConcurrent::blockingMapped() promises: reads all pictures, spread over Qt's global thread pool, and
//! returns when that is done. In Qt 5.15 that function returns as soon as the result is there, while the
//! worker that reported it has still to pass through code that is the module's, and deletes what is the
//! module's: when the module goes in that moment, the host crashes. It also waits for ever when all threads
//! of the pool wait for this one. So this asks the engine below it, whose workers leave by Qt's own code. It
//! lets this thread read too, which therefore counts as one of the pool's.
QVector<QImage> readPictures(const QVector<QString> &paths)
{
    const QThreadPool &pool = *QThreadPool::globalInstance();
    if (pool.maxThreadCount() - pool.activeThreadCount() <= 1) { // nobody but us
        QVector<QImage> pictures;
        pictures.reserve(paths.size());
        for (const QString &path : paths)
            pictures.append(RecentDocumentBrowser::GetQImage(path));
        return pictures;
    }
    const ReservedThread ourselves;
    return QtConcurrent::startMappedReduced<QImage, QVector<QImage>>(
               paths, QtPrivate::createFunctionWrapper(&RecentDocumentBrowser::GetQImage),
               QtPrivate::PushBackWrapper(), QtConcurrent::OrderedReduce | QtConcurrent::SequentialReduce)
        .startBlocking();
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
    QVector<QString> paths;
    paths.reserve(static_cast<int>(recent->size()));
    for (const CFxString &path : *recent)
        paths.append(path);
    const QVector<QImage> images = readPictures(paths);
    for (int i = 0; i < paths.size(); ++i)
        recentFileImageMap.insert(paths.at(i), images.at(i)); // of two equal paths the later one's stays
}
