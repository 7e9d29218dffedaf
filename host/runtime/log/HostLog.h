// SPDX-License-Identifier: MIT
#pragma once

#include "host/runtime/FxHostApi.h"
#include "host/runtime/Outcome.h"

#include <QFile>
#include <QString>

namespace fxhost {

//! A line for each thing that the host was asked to do, in order, in the file as soon as the call returns.
//! Control characters in names and paths are written as %XX, so that each line is one entry. GUI thread.
class FXHOST_API HostLog
{
public:
    enum class ModuleEvent { Loaded, Unloaded, Failed };

    //! \param path lines are appended to this file; empty: there is no log and every call does nothing
    explicit HostLog(const QString &path);

    //! Whether the file can be written.
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
