// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QImage>

#include <array>
#include <cstdint>

namespace fxsamples {

//! The versions of the drawing file that have a preview at an address in their header, oldest first.
enum class Version : std::uint8_t { AC1012, AC1014, AC1015, AC1018, AC1021, AC1024, AC1027, AC1032 };

constexpr std::array<Version, 8> allVersions{Version::AC1012, Version::AC1014, Version::AC1015,
                                             Version::AC1018, Version::AC1021, Version::AC1024,
                                             Version::AC1027, Version::AC1032};

//! How a preview is stored: a bitmap of this many bits per pixel, or a PNG.
enum class Picture : std::uint8_t { Bitmap8, Bitmap24, Bitmap32, Png };

//! Where the preview lies. Drawing programs do either, so a reader must believe the address and nothing else.
enum class Placement : std::uint8_t { BehindHeader, AfterFilling };

struct DrawingForm
{
    Version version = Version::AC1032;
    Picture picture = Picture::Bitmap8;
    Placement placement = Placement::BehindHeader;
};

//! The six characters that a file of this version starts with.
QByteArray versionTag(Version version);

//! Whether programs of this version's time can read a PNG preview; the older ones know bitmaps alone.
bool carriesPng(Version version);

//! The bytes of a drawing file that holds a header and a preview and not one line of a drawing: enough for
//! whatever shows previews, nothing that a drawing program could open. The same arguments give the same
//! bytes. \param picture opaque, at least one pixel; what it has of transparency is lost \throws
//! std::invalid_argument for a null picture, and for a PNG in a version that cannot carry one
QByteArray drawingFile(const QImage &picture, const DrawingForm &form);

} // namespace fxsamples
