// SPDX-License-Identifier: MIT
#pragma once

#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QStringList>

//! The links and pictures of the help pages in a folder and its subfolders that are not files relative to
//! their page; or that there are none.
inline QStringList brokenHelpLinks(const QString &folder)
{
    QStringList broken{"no link"};
    static const QRegularExpression link("(?:href|src)=\"([^\"]*)\"");
    QDirIterator pages(folder, {"*.html"}, QDir::Files, QDirIterator::Subdirectories);
    while (pages.hasNext()) {
        QFile page(pages.next());
        const bool isOpen = page.open(QIODevice::ReadOnly);
        auto matches = link.globalMatch(isOpen ? QString::fromUtf8(page.readAll()) : QString());
        while (matches.hasNext()) {
            const QString target = matches.next().captured(1);
            broken.removeAll("no link");
            if (!QFile::exists(QDir::cleanPath(pages.fileInfo().path() + '/' + target)))
                broken.append(page.fileName() + ": " + target);
        }
    }
    return broken;
}
