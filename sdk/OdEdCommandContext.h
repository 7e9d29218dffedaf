// SPDX-License-Identifier: MIT
#pragma once

#include <FxSdkApi.h>

//! The engine's services for a running command. A host passes a CFxCommandContext to every command.
class FXSDK_API OdEdCommandContext
{
public:
    OdEdCommandContext() = default;
    virtual ~OdEdCommandContext();

    OdEdCommandContext(const OdEdCommandContext &) = delete;
    OdEdCommandContext &operator=(const OdEdCommandContext &) = delete;
};
