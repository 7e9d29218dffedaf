// SPDX-License-Identifier: MIT
// The functions through which modules reach the host.
#include "host/runtime/interface/InterfaceHost.h"

#include <CFxServices.h>
#include <OdEdCommandStack.h>
#include <OdEditor.h>

#include <atomic>

namespace fxhost {

namespace {

std::atomic<InterfaceHost *> installedHost{nullptr};

} // namespace

InterfaceHost::~InterfaceHost() = default;

InterfaceHost *InterfaceHost::installed()
{
    return installedHost.load();
}

void InterfaceHost::install(InterfaceHost *host)
{
    installedHost.store(host);
}

} // namespace fxhost

using fxhost::InterfaceHost;

CFxSystemServices *GetFxSystemServices()
{
    InterfaceHost *host = InterfaceHost::installed();
    return host ? &host->services() : nullptr;
}

OdEditor *odedEditor()
{
    InterfaceHost *host = InterfaceHost::installed();
    if (!host)
        return nullptr;
    host->editorObject().addRef();
    return &host->editorObject();
}

OdEdCommandStack *odedRegCmds()
{
    InterfaceHost *host = InterfaceHost::installed();
    if (!host)
        return nullptr;
    host->commandStackObject().addRef();
    return &host->commandStackObject();
}
