// SPDX-License-Identifier: MIT
#include "tests/fuzz/Seeds.h"

#include "tests/fuzz/Target.h"

#include <QByteArrayList>
#include <QFile>
#include <QHash>

namespace fuzz {

namespace {

QByteArray shippedMenus()
{
    QFile file(QStringLiteral(CUSTOMIZATION_FILE));
    require(file.open(QIODevice::ReadOnly), "the program's own menus can be read");
    return file.readAll();
}

QByteArrayList customizationSeeds()
{
    return {
        shippedMenus(),
        R"({"groups": [ {"name": "A", "primary": true}, {"name": "B"} ], "startUp": {"name": "S"}})",
        R"({"groups": [ {"name": "A", "primary": true,
            "commands": [ {"identifier": "C", "name": "N", "macro": "^C^C_M"} ],
            "menus": [ {"identifier": "F", "label": "&F\u00fc", "items": [
                {"separator": true},
                {"identifier": "I", "label": "L", "command": "C", "help": "H"},
                {"identifier": "Z", "label": "L", "items": [ {"separator": true} ]},
                {"identifier": "R", "label": "L", "kind": "recentFiles"},
                {"identifier": "W", "label": "L", "kind": "windows"} ]} ],
            "accelerators": [ {"identifier": "K", "label": "L", "key": "Ctrl+Shift+F4", "command": "C"} ]} ]})",
        R"({"groups": [ {"name": "A"} ]})",
        R"({"groups": [ {"name": "A", "primary": true, "commands": [
                {"identifier": "C", "name": "N", "macro": "M"},
                {"identifier": "C", "name": "N", "macro": "M"} ]} ]})",
        R"({"groups": [ oops ]})",
    };
}

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
    const QByteArray header = "fxhost recent documents 1\n";
    return {
        header,
        header + "/home/me/plan.dwg\n/pl\xC3\xA4ne/100%25 neu.dwg\n",
        header + "/line%0Aend%0Dand%09tab%7F.dwg\n//twice//slashed/../dotted.dwg\n",
        header + "/a%FF%FEb.dwg\n",
        header + "relative.dwg\n",
        header + "/cut",
    };
}

} // namespace

std::vector<Seed> seedsOf(const QString &target)
{
    if (target == QLatin1String("preview"))
        return previewSeeds();
    const QHash<QString, QByteArrayList (*)()> makers = {
        {"customization", customizationSeeds}, {"commands", commandSeeds}, {"recentlist", recentListSeeds}};
    const auto make = makers.value(target);
    const QByteArrayList inputs = make ? make() : QByteArrayList();
    std::vector<Seed> seeds;
    for (const QByteArray &bytes : inputs)
        seeds.push_back({bytes});
    return seeds;
}

} // namespace fuzz
