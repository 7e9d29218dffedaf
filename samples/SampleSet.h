// SPDX-License-Identifier: MIT
#pragma once

#include "samples/DrawingWriter.h"

#include <QImage>
#include <QStringView>

#include <vector>

namespace fxsamples {

//! One drawing of the set.
struct Sample
{
    QStringView fileName; //!< with its ending, without a directory
    QStringView picture;  //!< the name of an SVG file in samples/pictures, without its ending
    DrawingForm form;     //!< what it is stored as
};

//! The dozen. Among them are all eight versions and both kinds of picture.
const std::vector<Sample> &sampleSet();

//! The preview of \p sample: opaque, of the size in pixels that its SVG file says. The same on every machine.
//! Any thread; needs neither a screen nor a font. \return a null image without Qt's SVG plug-in
QImage paintPreview(const Sample &sample);

} // namespace fxsamples
