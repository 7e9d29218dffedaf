// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QImage>

#include <array>
#include <cstdint>

namespace fxsamples {

//! The versions of drawing files that contain the address of a preview in their header, oldest first.
enum class Version : std::uint8_t { AC1012, AC1014, AC1015, AC1018, AC1021, AC1024, AC1027, AC1032 };

constexpr std::array<Version, 8> allVersions{Version::AC1012, Version::AC1014, Version::AC1015,
                                             Version::AC1018, Version::AC1021, Version::AC1024,
                                             Version::AC1027, Version::AC1032};

//! How a preview is stored: a bitmap of this many bits per pixel, or a PNG.
enum class Picture : std::uint8_t { Bitmap8, Bitmap24, Bitmap32, Png };

//! The position of the preview: directly after the header, or after other data. Drawing programs use both, so
//! a reader must only rely on the address.
enum class Placement : std::uint8_t { AfterHeader, AfterFilling };

struct DrawingForm
{
    Version version = Version::AC1032;
    Picture picture = Picture::Bitmap8;
    Placement placement = Placement::AfterHeader;
};

//! The six characters at the start of a file of this version.
QByteArray versionTag(Version version);

//! True if programs of this version support PNG previews; older ones only support bitmaps.
bool supportsPng(Version version);

//! The bytes of a drawing file that contains a header and a preview, but no drawing. Drawing programs cannot
//! open it. The same arguments result in the same bytes.
//! \param picture not null; transparency is lost
//! \throws std::invalid_argument if picture is null, or for a PNG in a version that does not support it
QByteArray drawingFile(const QImage &picture, const DrawingForm &form);

} // namespace fxsamples
