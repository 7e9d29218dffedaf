// SPDX-License-Identifier: MIT
// Writes the seeds of a fuzz target: make_seeds TARGET DIRECTORY
#include "tests/fuzz/Seeds.h"

#include <QDir>
#include <QFile>

#include <cstdio>

int main(int argc, char **argv)
{
    if (argc != 3) {
        std::fputs("make_seeds: name a target and a directory\n", stderr);
        return EXIT_FAILURE;
    }
    const std::vector<fuzz::Seed> seeds = fuzz::seedsOf(QString::fromLocal8Bit(argv[1]));
    if (seeds.empty()) {
        std::fprintf(stderr, "make_seeds: there is no target %s\n", argv[1]);
        return EXIT_FAILURE;
    }
    const QDir directory(QString::fromLocal8Bit(argv[2]));
    directory.mkpath(QStringLiteral("."));
    for (std::size_t i = 0; i < seeds.size(); ++i) {
        QFile file(directory.filePath(QString::number(i + 1)));
        if (!file.open(QIODevice::WriteOnly) || file.write(seeds[i].bytes) != seeds[i].bytes.size()) {
            std::fprintf(stderr, "make_seeds: cannot write %s\n", qPrintable(file.fileName()));
            return EXIT_FAILURE;
        }
    }
    return EXIT_SUCCESS;
}
