// SPDX-License-Identifier: MIT
#pragma once

#include "samples/DrawingWriter.h"

#include <QImage>
#include <QString>

#include <vector>

namespace fxsamples {

//! One drawing of the set.
struct Sample
{
    QStringView fileName; //!< with its ending, without a directory
    QStringView picture;  //!< the name of an SVG file in samples/pictures, without its ending
    DrawingForm form;     //!< what it is stored as, unless every version is asked for
};

//! A file to write, named relative to the directory of the set.
struct SampleFile
{
    QString path;
    Sample sample; //!< form: that of this file
};

//! The dozen. Among them are all eight versions and both kinds of picture.
const std::vector<Sample> &sampleSet();

//! The dozen as it is; or each of them in each version, in a directory named by the version, and there as a
//! PNG too (in a directory of its own, "AC1027 PNG") where the version can carry one.
std::vector<SampleFile> sampleFiles(bool everyVersion);

//! The preview of \p sample: opaque, of the size in pixels that its SVG file says. The same on every machine.
//! Any thread; needs neither a screen nor a font. \return a null image without Qt's SVG plug-in
QImage paintPreview(const Sample &sample);

} // namespace fxsamples
