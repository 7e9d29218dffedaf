// SPDX-License-Identifier: MIT
#pragma once

#include "host/runtime/HostSettings.h"
#include "host/runtime/recent/RecentFileStore.h"
#include "host/runtime/recent/RecentFiles.h"

#include <QTemporaryDir>

//! A list of recent documents in a profile of its own, without a host.
struct RealProfile
{
    QTemporaryDir folder;
    QStringList messages;
    fxhost::MessageSink report = [this](const QString &text) { messages << text; };
    fxhost::HostSettings settings{folder.path(), report};
    fxhost::RecentFileStore store{folder.filePath("recent.txt")};
    fxhost::RecentFiles list{store, settings, report};

    //! As another program with the same profile does.
    void changeElsewhere(const fxhost::RecentFileStore::Change &change) const { other().update({}, change); }
    QStringList stored() const { return fxhost::pathsOf(other().load().entries); }

private:
    fxhost::RecentFileStore other() const { return fxhost::RecentFileStore(folder.filePath("recent.txt")); }
};
