// SPDX-License-Identifier: MIT
#pragma once

#include "samples/DrawingWriter.h"

#include <QImage>
#include <QStringView>

#include <vector>

namespace fxsamples {

//! A sample drawing.
struct Sample
{
    QStringView fileName; //!< with the suffix, without a folder
    QStringView picture;  //!< the name of an SVG file in samples/pictures, without the suffix
    DrawingForm form;     //!< how it is stored
};

//! The dozen sample drawings. They include all eight versions, and bitmaps and PNGs.
const std::vector<Sample> &sampleSet();

//! The preview of a sample: opaque, with the size of its SVG file in pixels, and the same on every machine.
//! Any thread; requires no screen and no fonts.
//! \return null if Qt's SVG plug-in is missing
QImage paintPreview(const Sample &sample);

} // namespace fxsamples
