// SPDX-License-Identifier: MIT
// A library that is no module.
extern "C" __attribute__((visibility("default"))) int anything()
{
    return 1;
}
