// SPDX-License-Identifier: MIT
#pragma once

#include <OdRxModule.h>

//! Base of the modules that this application loads.
class FXSDK_API vela_OdRxModule : public OdRxModule
{
public:
    ~vela_OdRxModule() override;
};
