// SPDX-License-Identifier: MIT
#include "bench/Bench.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QElapsedTimer>

#include <algorithm>
#include <cstdio>

namespace {

void call(const std::function<void()> &part)
{
    if (part)
        part();
}

//! Named for callgrind, which counts what happens inside.
__attribute__((noinline)) void measured(const std::function<void()> &act)
{
    act();
    asm volatile(""); // not a tail call
}

//! \return milliseconds
double timeOf(const bench::Side &side)
{
    call(side.prepare);
    QElapsedTimer timer;
    timer.start();
    measured(side.act);
    const double time = static_cast<double>(timer.nsecsElapsed()) / 1e6;
    call(side.end);
    return time;
}

struct Times
{
    double median = 0;
    double least = 0;
};

Times sorted(std::vector<double> times)
{
    std::sort(times.begin(), times.end());
    return {times.at(times.size() / 2), times.front()};
}

void printTimes(const QString &name, const bench::Row &row, int runs)
{
    std::vector<double> ours;
    std::vector<double> other;
    timeOf(row.ours);
    timeOf(row.other);
    for (int i = 0; i < runs; ++i) {
        ours.push_back(timeOf(row.ours));
        other.push_back(timeOf(row.other));
    }
    const Times our = sorted(ours);
    const Times their = sorted(other);
    const double ratio = row.scale * our.median / their.median;
    std::printf("%-28s %9.3f %9.3f   %9.3f %9.3f   %5.2f   %5.2f%s\n", qPrintable(name), our.median,
                our.least, their.median, their.least, ratio, row.most,
                ratio > row.most ? "  more than allowed" : "");
    std::fflush(stdout);
}

} // namespace

int bench::run(const std::vector<std::pair<QString, RowMaker>> &rows)
{
    QCommandLineParser parser;
    const QCommandLineOption runs(QStringLiteral("runs"), QString(), QStringLiteral("N"));
    const QCommandLineOption only(QStringLiteral("only"), QString(), QStringLiteral("ours|other"));
    const QCommandLineOption list(QStringLiteral("list"));
    parser.addOptions({runs, only, list});
    parser.process(*QCoreApplication::instance());
    const QStringList chosen = parser.positionalArguments();
    for (const QString &name : chosen) {
        if (std::none_of(rows.begin(), rows.end(), [&name](const auto &row) { return row.first == name; })) {
            std::fprintf(stderr, "unknown row: %s\n", qPrintable(name));
            return 2;
        }
    }

    for (const auto &[name, make] : rows) {
        if (parser.isSet(list)) {
            std::printf("%s\n", qPrintable(name));
            continue;
        }
        if (!chosen.isEmpty() && !chosen.contains(name))
            continue;
        const Row row = make();
        if (!parser.isSet(only)) {
            printTimes(name, row, parser.isSet(runs) ? parser.value(runs).toInt() : row.runs);
            continue;
        }
        const Side &side = parser.value(only) == QLatin1String("ours") ? row.ours : row.other;
        call(side.prepare);
        side.act(); // what is done once in a process
        call(side.end);
        timeOf(side);
    }
    return 0;
}
