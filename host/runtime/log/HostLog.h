// SPDX-License-Identifier: MIT
#pragma once

#include "host/runtime/FxHostApi.h"

#include <sdkhost/Outcome.h>

#include <QFile>
#include <QString>

namespace fxhost {

//! Writes a line to a file for each request to the host, before the call returns. Control characters in names
//! and paths are encoded as %XX, so that each entry is one line. GUI thread.
class FXHOST_API HostLog
{
public:
    enum class ModuleEvent { Loaded, Unloaded, Failed };

    //! \param path the file to which lines are appended; if it is empty, nothing is logged
    explicit HostLog(const QString &path);

    //! Whether the file could be opened and written.
    Outcome outcome() const;

    //! `command NAME RESULT`
    void command(const QString &name, int result);
    //! `command NAME unknown`
    void unknownCommand(const QString &name);
    //! `open PATH ok` or `open PATH failed`
    void open(const QString &path, bool ok);
    //! `help TOPIC`
    void help(int topic);
    //! `module PATH loaded`, `unloaded` or `failed`
    void module(const QString &path, ModuleEvent event);

private:
    void write(const QString &line);

    QFile m_file;
};

} // namespace fxhost
