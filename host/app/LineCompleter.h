// SPDX-License-Identifier: MIT
#pragma once

#include <QCoreApplication>
#include <QStringList>

namespace fxhost {

class FxHost;

//! What can be made of a command line that is being typed.
struct Completion
{
    QString line;           //!< as far as it is certain; what was typed when nothing is
    QStringList candidates; //!< what the last word of the line may become, for the user to read
};

//! Completes names of commands, and of files after a command that takes one. GUI thread.
class LineCompleter
{
    Q_DECLARE_TR_FUNCTIONS(fxhost::LineCompleter)
public:
    //! \param host must outlive the completer
    explicit LineCompleter(FxHost &host) : m_host(host) {}

    //! Looks into a folder for names of files, unless it does not answer, of which the user is told.
    //! \param line what stands before the cursor
    Completion complete(const QString &line) const;

private:
    Completion completeName(const QString &before, const QString &typed) const;
    Completion completePath(const QString &before, const QString &typed) const;
    QStringList namesIn(const QString &folder, const QString &beginning) const;

    FxHost &m_host;
};

} // namespace fxhost
