// SPDX-License-Identifier: MIT
#include "host/runtime/commands/NearestName.h"

#include <algorithm>
#include <numeric>
#include <utility>
#include <vector>

namespace fxhost {

namespace {

QString letters(const QString &name)
{
    return (name.startsWith(QLatin1Char('_')) ? name.mid(1) : name).toUpper();
}

//! The number of letters to insert, remove or replace to turn one word into the other.
int distance(const QString &a, const QString &b)
{
    std::vector<int> above(std::size_t(b.size()) + 1);
    std::iota(above.begin(), above.end(), 0);
    for (int i = 0; i < a.size(); ++i) {
        std::vector<int> row = {i + 1};
        for (int j = 0; j < b.size(); ++j) {
            const auto at = std::size_t(j);
            const int replaced = above[at] + (a.at(i) == b.at(j) ? 0 : 1);
            row.push_back(std::min({above[at + 1] + 1, row[at] + 1, replaced}));
        }
        above = std::move(row);
    }
    return above.back();
}

} // namespace

QString nearestName(const QString &typed, const QStringList &names)
{
    const QString word = letters(typed);
    QString nearest;
    int fewest = word.size() / 2 + 1; // at most half of the letters may be wrong
    for (const QString &name : names) {
        const QString other = letters(name);
        if (std::abs(other.size() - word.size()) >= fewest)
            continue;
        const int differing = distance(word, other);
        if (differing < fewest) {
            fewest = differing;
            nearest = name;
        }
    }
    return nearest;
}

} // namespace fxhost
