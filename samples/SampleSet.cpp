// SPDX-License-Identifier: MIT
#include "samples/SampleSet.h"

#include "samples/Sketches.h"

namespace fxsamples {

const std::vector<Sample> &sampleSet()
{
    constexpr auto behindHeader = Placement::BehindHeader;
    constexpr auto afterFilling = Placement::AfterFilling;
    // The names try what a list of names must bear: long ones, an umlaut, an ampersand (a mnemonic to a
    // careless label), blanks, commas, dots.
    static const std::vector<Sample> samples{
        {QStringLiteral("Floor plan, ground floor.dwg"),
         floorPlan,
         {256, 149},
         {Version::AC1024, Picture::Bitmap8, afterFilling}},
        {QStringLiteral("Spur gear m3 z24.dwg"),
         spurGear,
         {256, 149},
         {Version::AC1021, Picture::Bitmap8, afterFilling}},
        {QStringLiteral("Bracket.dwg"), bracket, {512, 320}, {Version::AC1032, Picture::Png, behindHeader}},
        {QStringLiteral("Site plan.dwg"),
         sitePlan,
         {512, 320},
         {Version::AC1027, Picture::Png, afterFilling}},
        {QStringLiteral("Street elevation.dwg"),
         streetElevation,
         {256, 160},
         {Version::AC1021, Picture::Bitmap8, behindHeader}},
        {QStringLiteral("Pipe run P-104.dwg"),
         pipeRun,
         {256, 149},
         {Version::AC1032, Picture::Png, afterFilling}},
        {QStringLiteral("Power supply 12 V.dwg"),
         powerSupply,
         {216, 140},
         {Version::AC1012, Picture::Bitmap8, behindHeader}},
        {QStringLiteral("Flange DN80 PN16.dwg"),
         flange,
         {180, 105},
         {Version::AC1015, Picture::Bitmap8, behindHeader}},
        {QStringLiteral("Truss & purlins.dwg"),
         roofTruss,
         {184, 97},
         {Version::AC1014, Picture::Bitmap8, behindHeader}},
        {QStringLiteral("Staircase, section B-B.dwg"),
         staircaseSection,
         {180, 112},
         {Version::AC1018, Picture::Bitmap8, afterFilling}},
        {QStringLiteral("Br\u00FCcke.dwg"),
         archBridge,
         {256, 126},
         {Version::AC1027, Picture::Bitmap24, behindHeader}},
        {QStringLiteral("Ball bearing 6204.dwg"),
         ballBearing,
         {256, 160},
         {Version::AC1018, Picture::Bitmap32, behindHeader}},
    };
    return samples;
}

std::vector<SampleFile> sampleFiles(bool everyVersion)
{
    std::vector<SampleFile> files;
    if (!everyVersion) {
        for (const Sample &sample : sampleSet())
            files.push_back({sample.fileName, sample});
        return files;
    }
    for (const Version version : allVersions) {
        const QString tag = QString::fromLatin1(versionTag(version));
        for (Sample sample : sampleSet()) {
            sample.form.version = version;
            if (sample.form.picture == Picture::Png)
                sample.form.picture = Picture::Bitmap8;
            files.push_back({tag + QLatin1Char('/') + sample.fileName, sample});
            if (!carriesPng(version))
                continue;
            sample.form.picture = Picture::Png;
            files.push_back({tag + QLatin1String(" PNG/") + sample.fileName, sample});
        }
    }
    return files;
}

QImage paintPreview(const Sample &sample)
{
    QImage picture(sample.size, QImage::Format_RGB32);
    QPainter painter(&picture);
    sample.sketch(painter, QRectF(picture.rect()));
    return picture;
}

} // namespace fxsamples
