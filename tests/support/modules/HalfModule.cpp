// SPDX-License-Identifier: MIT
// A library that reports its version and creates no module object.
#include "tests/support/modules/TestModule.h"

MODULE_EXPORT void odrxGetAPIVersion(int &major, int &minor, int &majorBuild, int &minorBuild)
{
    reportVersion(major, minor, majorBuild, minorBuild);
}
