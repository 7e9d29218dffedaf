// SPDX-License-Identifier: MIT
// A library that is not a module.
extern "C" __attribute__((visibility("default"))) int anything()
{
    return 1;
}
