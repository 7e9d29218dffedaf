// SPDX-License-Identifier: MIT
// A library that says its version and makes no module object.
#include "tests/support/modules/TestModule.h"

MODULE_EXPORT void odrxGetAPIVersion(int &major, int &minor, int &majorBuild, int &minorBuild)
{
    tellVersion(major, minor, majorBuild, minorBuild);
}
