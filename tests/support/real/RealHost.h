// SPDX-License-Identifier: MIT
#pragma once

#include "host/runtime/FxHost.h"
#include "tests/support/bytes/BytesOfPreview.h"

#include <QFile>
#include <QTemporaryDir>

//! A host with a profile of its own, its messages and log, and drawings to open.
class RealHost
{
    QTemporaryDir m_folder; // first, since the host writes into it to its end

public:
    RealHost()
    {
        QObject::connect(&host, &fxhost::FxHost::message, &host,
                         [this](const QString &text) { messages.append(text); });
    }

    //! The path of a file of this name, which may not exist.
    QString path(const QString &name) const { return m_folder.filePath(name); }

    //! Makes a file that begins as a drawing does. \return its full path
    QString makeDrawing(const QString &name) const { return makeFile(name, "AC1015 and what follows"); }

    QString makeFile(const QString &name, const QByteArray &content) const
    {
        return testbytes::writeFile(path(name), content);
    }

    //! The log's lines so far.
    QStringList logged() const
    {
        QFile file(path("host.log"));
        if (!file.open(QIODevice::ReadOnly))
            return {};
        return QString::fromUtf8(file.readAll()).split('\n', Qt::SkipEmptyParts);
    }

    QStringList messages;
    fxhost::FxHost host{path("profile"), path("host.log")};
};
