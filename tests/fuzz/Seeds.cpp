// SPDX-License-Identifier: MIT
#include "tests/fuzz/Seeds.h"

#include <QByteArrayList>

namespace fuzz {

namespace {

QByteArrayList commandSeeds()
{
    return {
        "# a comment\n\n  ECHO a, b \r\n\t_echo\tagain\n^C^CFAIL\nTHROW\n_NOSUCH x\n#ECHO\n",
        "NEST NEST ECHO later\nWAIT\nSTOP\nECHO never",
        "\xEF\xBB\xBF ECHO \xC3\xBCml\xC3\xA4ut/\xF0\x9F\x93\x90.dwg\n",
        "^C^C_RECENT",
        "^C^C_ECHO /home/me/plan.dwg;FAIL;\n THROW \r_NOSUCH  x  y ;; ^c _echo",
        QByteArray("NEST NEST ECHO later\0WAIT\0ECHO meanwhile;^C\0WAIT;ECHO a\0STOP;ECHO never", 72),
        QByteArray("\xFF\xFE"
                   "E\0C\0H\0O\0 \0\x3D\xD8\xD0\xDC",
                   16),
        QByteArray("\xFF\xFE"
                   "E\0C\0H\0O\0 \0\x3D\xD8",
                   14),
    };
}

QByteArrayList recentListSeeds()
{
    const QByteArray header = "fxhost recent documents 2\n";
    const QByteArray formerHeader = "fxhost recent documents 1\n";
    return {
        header,
        header + "kept 2026-11-22T12:00:00Z /home/me/plan.dwg\n- - /pl\xC3\xA4ne/100%25 neu.dwg\n",
        header +
            "kept - /line%0Aend%0Dand%09tab%7F.dwg\n- 1970-01-01T00:00:00Z //twice//slashed/../dotted.dwg\n",
        header + "- - /a%FF%FEb.dwg\n",
        header + "- - relative.dwg\n",
        header + "- - /cut",
        formerHeader + "/home/me/plan.dwg\n/a%FF%FEb.dwg\n",
    };
}

} // namespace

std::vector<Seed> seedsOf(const QString &target)
{
    if (target == QLatin1String("preview"))
        return previewSeeds();
    QByteArrayList inputs;
    if (target == QLatin1String("commands"))
        inputs = commandSeeds();
    else if (target == QLatin1String("recentlist"))
        inputs = recentListSeeds();
    std::vector<Seed> seeds;
    for (const QByteArray &bytes : qAsConst(inputs))
        seeds.push_back({bytes});
    return seeds;
}

} // namespace fuzz
