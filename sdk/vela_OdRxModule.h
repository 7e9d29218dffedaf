// SPDX-License-Identifier: MIT
#pragma once

#include <OdRxModule.h>

//! Base class of the modules of this application.
class FXSDK_API vela_OdRxModule : public OdRxModule
{
public:
    ~vela_OdRxModule() override;
};
