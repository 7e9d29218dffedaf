// SPDX-License-Identifier: MIT
#pragma once

#include "samples/DrawingWriter.h"

#include <QByteArray>
#include <QImage>
#include <QPainter>
#include <QRectF>
#include <QSize>
#include <QString>

#include <vector>

namespace fxsamples {

//! One drawing of the set.
struct Sample
{
    QString fileName; //!< with its ending, without a directory
    void (*sketch)(QPainter &, const QRectF &) = nullptr;
    QSize size;       //!< of the preview, in pixels: sizes that real files have
    DrawingForm form; //!< what it is stored as, unless every version is asked for
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

//! The preview of \p sample: Format_RGB32, sample.size. The same on every machine. Any thread; needs neither
//! an application object nor a font.
QImage paintPreview(const Sample &sample);

} // namespace fxsamples
