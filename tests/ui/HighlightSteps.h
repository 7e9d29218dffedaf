// SPDX-License-Identifier: MIT
#pragma once

#include <Qt>

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
    };

    Kind kind = KeyOnPopup;
    int key = 0;
    Qt::MouseButton button = Qt::NoButton;
    Qt::KeyboardModifiers modifiers;
    int tile = 0;

    bool isKey() const { return kind == KeyOnPopup || kind == KeyOnTile; }
    //! "Shift+Right", "Control+click on tile 3"; tiles are counted from 1.
    std::string inWords(int tileCount) const;
};

//! A popup and what is done to it: several sequences of steps, each on the popup as it opens. Making a popup
//! takes far longer than a sequence. A key that closes it comes last of all.
struct HighlightCase
{
    int documents = 0;
    std::vector<int> withoutTile; //!< documents that the thumbnail cache lacks, modulo documents
    int frame = 0;                //!< which of frames
    std::vector<std::vector<HighlightStep>> sequences;

    struct Frame
    {
        int width;   //!< of the host's main window, in pixels
        int columns; //!< that the popup's grid has then
    };
    static constexpr int sequenceCount = 12;
    static constexpr int frameCount = 4;
    static const Frame frames[frameCount];

    //! For each document whether it has a tile.
    std::vector<bool> hasTile() const;
    int tileCount() const;
    int columns() const { return frames[frame].columns; }
};

void showValue(const HighlightCase &tried, std::ostream &out);

namespace rc {
template<>
struct Arbitrary<HighlightCase>
{
    static Gen<HighlightCase> arbitrary();
};
} // namespace rc
