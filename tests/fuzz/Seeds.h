// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>

#include <vector>

namespace fuzz {

//! An input to begin with: sound, or nearly so.
struct Seed
{
    QString name; //!< fit for a file
    QByteArray bytes;
    bool isCostly = false; //!< takes many times as long as the others, and so do most changes of it
};

//! A fuzz target's seeds, the same on every machine, a few kilobytes each at most. Empty for an unknown
//! target. \param target "preview", "customization", "script", "macro" or "recentlist"
std::vector<Seed> seedsOf(const QString &target);

//! Those of the preview reader: drawings with every kind of picture, well and badly made.
std::vector<Seed> previewSeeds();

} // namespace fuzz
