// SPDX-License-Identifier: MIT
#include "tests/support/Memory.h"

#include <QFile>
#include <QtGlobal>

#include <malloc.h>

qint64 memory::resident()
{
    // Exact, unlike the counters in /proc/self/status.
    QFile file(QStringLiteral("/proc/self/smaps_rollup"));
    if (!file.open(QIODevice::ReadOnly))
        qFatal("cannot read %s", qPrintable(file.fileName()));
    const QByteArray text = file.readAll();
    const QByteArray title = "\nRss:";
    const int at = text.indexOf(title);
    if (at < 0)
        qFatal("cannot understand %s", qPrintable(file.fileName()));
    constexpr qint64 kibibyte = 1024;
    return text.mid(at + title.size()).trimmed().split(' ').constFirst().toLongLong() * kibibyte;
}

qint64 memory::allocated()
{
    const struct mallinfo2 heap = mallinfo2();
    // Blocks of the heap, and those with a mapping of their own.
    return static_cast<qint64>(heap.uordblks) + static_cast<qint64>(heap.hblkhd);
}

int memory::rounds(int full)
{
    constexpr int part = isMeasurable ? 10 : 50; // a sanitizer is slow, and nothing is compared under it
    return qEnvironmentVariableIsSet("LONG_RUN") ? full : full / part;
}

void memory::print(const char *what, qint64 bytes)
{
    if (isMeasurable)
        qInfo("%s: %lld bytes", what, static_cast<long long>(bytes));
    else
        qInfo("%s: not measured, since a sanitizer uses the same memory", what);
}
