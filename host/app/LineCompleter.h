// SPDX-License-Identifier: MIT
#pragma once

#include <QCoreApplication>
#include <QStringList>

namespace fxhost {

class FxHost;

//! The completion of a typed command line.
struct Completion
{
    QString line;           //!< the line, completed as far as it is unambiguous
    QStringList candidates; //!< the possible completions of the last word, for display
};

//! Completes names of commands, and names of files after a command that takes one. GUI thread.
class LineCompleter
{
    Q_DECLARE_TR_FUNCTIONS(fxhost::LineCompleter)
public:
    //! \param host must outlive the completer
    explicit LineCompleter(FxHost &host) : m_host(host) {}

    //! Reads names of files from the folder. If the folder is unresponsive, shows a message to the user and
    //! completes nothing.
    //! \param line the text before the cursor
    Completion complete(const QString &line) const;

private:
    Completion completeName(const QString &before, const QString &typed) const;
    Completion completePath(const QString &before, const QString &typed) const;
    QStringList namesIn(const QString &folder, const QString &beginning) const;

    FxHost &m_host;
};

} // namespace fxhost
