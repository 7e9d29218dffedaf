// SPDX-License-Identifier: MIT
#pragma once

#include <FxSdkApi.h>

//! What a running command may ask of the engine.
class FXSDK_API OdEdCommandContext
{
public:
    OdEdCommandContext() = default;
    virtual ~OdEdCommandContext();

    OdEdCommandContext(const OdEdCommandContext &) = delete;
    OdEdCommandContext &operator=(const OdEdCommandContext &) = delete;
};
