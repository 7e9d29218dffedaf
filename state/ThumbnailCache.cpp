// SPDX-License-Identifier: MIT
#include "module/HostAccess.h"
#include "module/RecentDocumentBrowser.h"

#include <QFileInfo>
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
    const auto images =
        QtConcurrent::blockingMapped<QVector<QImage>>(paths, &RecentDocumentBrowser::GetQImage);
    for (int i = 0; i < paths.size(); ++i)
        recentFileImageMap.insert(paths.at(i), images.at(i)); // of two equal paths the later one's stays
}
