// SPDX-License-Identifier: MIT
// Libraries that are not modules: with one entry point only, with an undefined symbol, without entry points.
#include "tests/support/modules/TestModule.h"

#if defined(WITH_VERSION_ONLY)
MODULE_EXPORT void odrxGetAPIVersion(int &major, int &minor, int &majorBuild, int &minorBuild)
{
    reportVersion(major, minor, majorBuild, minorBuild);
}
#elif defined(WITH_UNDEFINED_SYMBOL)
extern "C" int undefinedFunction();

MODULE_EXPORT int anything()
{
    return undefinedFunction();
}
#endif
