// SPDX-License-Identifier: MIT
// A library that needs what nobody has.
extern "C" int nobodyDefinesThis();

extern "C" __attribute__((visibility("default"))) int anything()
{
    return nobodyDefinesThis();
}
