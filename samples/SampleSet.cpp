// SPDX-License-Identifier: MIT
#include "samples/SampleSet.h"

// Not in a namespace, which the macro does not support. The linker would drop a static library's own
// initialiser.
static void registerPictures()
{
    Q_INIT_RESOURCE(pictures);
}

namespace fxsamples {

const std::vector<Sample> &sampleSet()
{
    constexpr auto afterHeader = Placement::AfterHeader;
    constexpr auto afterFilling = Placement::AfterFilling;
    // The names contain what can be shown wrongly: many characters, an umlaut, an ampersand (a mnemonic in
    // labels), blanks, commas, dots. The pictures have the sizes of those in real files.
    static const std::vector<Sample> samples{
        {u"Floor plan, ground floor.dwg", u"floor-plan", {Version::AC1024, Picture::Bitmap8, afterFilling}},
        {u"Spur gear m3 z24.dwg", u"spur-gear", {Version::AC1021, Picture::Bitmap8, afterFilling}},
        {u"Bracket.dwg", u"bracket", {Version::AC1032, Picture::Png, afterHeader}},
        {u"Site plan.dwg", u"site-plan", {Version::AC1027, Picture::Png, afterFilling}},
        {u"Street elevation.dwg", u"street-elevation", {Version::AC1021, Picture::Bitmap8, afterHeader}},
        {u"Pipe run P-104.dwg", u"pipe-run", {Version::AC1032, Picture::Png, afterFilling}},
        {u"Power supply 12 V.dwg", u"power-supply", {Version::AC1012, Picture::Bitmap8, afterHeader}},
        {u"Flange DN80 PN16.dwg", u"flange", {Version::AC1015, Picture::Bitmap8, afterHeader}},
        {u"Truss & purlins.dwg", u"roof-truss", {Version::AC1014, Picture::Bitmap8, afterHeader}},
        {u"Staircase, section B-B.dwg", u"staircase", {Version::AC1018, Picture::Bitmap8, afterFilling}},
        {u"Br\u00FCcke.dwg", u"arch-bridge", {Version::AC1027, Picture::Bitmap24, afterHeader}},
        {u"Ball bearing 6204.dwg", u"ball-bearing", {Version::AC1018, Picture::Bitmap32, afterHeader}},
    };
    return samples;
}

QImage paintPreview(const Sample &sample)
{
    registerPictures();
    return QImage(QLatin1String(":/samples/") + sample.picture.toString() + QLatin1String(".svg"));
}

} // namespace fxsamples
