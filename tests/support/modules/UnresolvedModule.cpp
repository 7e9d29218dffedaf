// SPDX-License-Identifier: MIT
// A library with an undefined symbol.
extern "C" int undefinedFunction();

extern "C" __attribute__((visibility("default"))) int anything()
{
    return undefinedFunction();
}
