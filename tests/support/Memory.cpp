// SPDX-License-Identifier: MIT
#include "tests/support/Memory.h"

#include <QFile>
#include <QtGlobal>

#include <malloc.h>
#include <unistd.h>

qint64 memory::resident()
{
    QFile file(QStringLiteral("/proc/self/statm"));
    if (!file.open(QIODevice::ReadOnly))
        qFatal("cannot read %s", qPrintable(file.fileName()));
    const qint64 pages = file.readAll().split(' ').value(1).toLongLong();
    return pages * sysconf(_SC_PAGESIZE);
}

qint64 memory::allocated()
{
    const struct mallinfo2 heap = mallinfo2();
    // The small ones, and those with a mapping of their own.
    return static_cast<qint64>(heap.uordblks) + static_cast<qint64>(heap.hblkhd);
}

int memory::rounds(int full)
{
    constexpr int part = isMeasurable ? 10 : 50; // under a sanitizer all is slow, and nothing is compared
    return qEnvironmentVariableIsSet("LONG_RUN") ? full : full / part;
}

void memory::tell(const char *what, qint64 bytes)
{
    if (isMeasurable)
        qInfo("%s: %lld bytes", what, static_cast<long long>(bytes));
    else
        qInfo("%s: not measured, since a sanitizer keeps books in the same memory", what);
}
