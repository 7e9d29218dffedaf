// SPDX-License-Identifier: MIT
#include "module/HostAccess.h"
#include "module/RecentDocumentBrowser.h"

#include <QFileInfo>
#include <QVector>
#include <QtConcurrentMap>

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

    QVector<QString> paths;
    paths.reserve(static_cast<int>(recent->size()));
    for (const CFxString &path : *recent)
        paths.append(path);
    const auto images =
        QtConcurrent::blockingMapped<QVector<QImage>>(paths, &RecentDocumentBrowser::GetQImage);
    for (int i = 0; i < paths.size(); ++i)
        recentFileImageMap.insert(paths.at(i), images.at(i)); // of two equal paths the later one's stays
}
