// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QVector>

#include <rapidcheck.h>

#include <iosfwd>
#include <string>
#include <vector>

//! What a user does to an open popup, to be tried at random. Numbers that are too large for the popup they
//! meet count modulo what it has, so that any part of a sequence is a sequence: that is how the smallest one
//! that fails is found.
struct HighlightStep
{
    enum Kind {
        KeyOnPopup,
        KeyOnTile, //!< which passes it on
        Press,
        Release,
        Click,
        Toggle, //!< of a tile's highlight, by others
    };

    Kind kind = KeyOnPopup;
    int key = 0;
    Qt::MouseButton button = Qt::NoButton;
    Qt::KeyboardModifiers modifiers;
    int tile = 0;

    bool isKey() const { return kind == KeyOnPopup || kind == KeyOnTile; }
    std::string inWords(int tileCount) const;
};

//! A popup and what is done to it: several sequences of steps, each on the popup as it opens. Making a popup
//! takes far longer than a sequence. A key that closes it comes last of all.
struct HighlightCase
{
    int documents = 0;
    std::vector<int> withoutTile; //!< documents that the thumbnail cache lacks, modulo documents
    int columns = 0;              //!< of the popup's grid
    std::vector<std::vector<HighlightStep>> sequences;

    static constexpr int sequenceCount = 12;

    //! For each document whether it has a tile.
    QVector<bool> hasTile() const;
    int tileCount() const { return hasTile().count(true); }
    //! A width of the host's main window that gives the popup its columns, in pixels.
    int frameWidth() const { return QList<int>{950, 800, 500, 1920}.at(columns - fewestColumns); }

    static constexpr int fewestColumns = 2;
    static constexpr int mostColumns = 5;
};

void showValue(const HighlightCase &tried, std::ostream &out);

namespace rc {
template<>
struct Arbitrary<HighlightCase>
{
    static Gen<HighlightCase> arbitrary();
};
} // namespace rc
