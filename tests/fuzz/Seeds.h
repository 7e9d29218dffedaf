// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>

#include <vector>

namespace fuzz {

//! An initial input: sound, or nearly so.
struct Seed
{
    QByteArray bytes;
    bool isCostly = false; //!< takes many times as long as others, as do its changes
};

//! A fuzz target's seeds, the same on every machine, a few kilobytes each at most. Empty for an unknown
//! target. \param target "preview", "commands" or "recentlist"
std::vector<Seed> seedsOf(const QString &target);

//! Those of the preview reader: drawings with every kind of picture, sound and broken.
std::vector<Seed> previewSeeds();

} // namespace fuzz
