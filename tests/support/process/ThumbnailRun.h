// SPDX-License-Identifier: MIT
#pragma once

#include "tests/support/Patience.h"

#include <QProcess>

//! A finished run of fxthumbnail. It has no home folder and no display, as in a sandbox.
struct ThumbnailRun
{
    //! \param limits shell commands that limit the program's resources
    explicit ThumbnailRun(const QStringList &arguments, const QString &limits = ":")
    {
        QProcess process;
        process.setEnvironment({"LC_ALL=C"});
        process.start("/bin/sh",
                      QStringList{"-c", limits + "; exec \"$0\" \"$@\"", FXTHUMBNAIL_PROGRAM} + arguments);
        if (!process.waitForFinished(patience) || process.exitStatus() != QProcess::NormalExit)
            return;
        status = process.exitCode();
        output = process.readAllStandardOutput();
        errors = process.readAllStandardError();
    }

    //! True if it ended with this status and printed a line of errors, and nothing else.
    bool isRefusal(int expected) const
    {
        return status == expected && output.isEmpty() && errors.startsWith("fxthumbnail: ") &&
               errors.indexOf('\n') == errors.size() - 1;
    }

    int status = -1; //!< -1 after a crash or if it does not end
    QByteArray output;
    QByteArray errors;
};
