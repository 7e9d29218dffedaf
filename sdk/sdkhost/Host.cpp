// SPDX-License-Identifier: MIT
#include <sdkhost/Host.h>

#include <CFxServices.h>

#include <QString>

#include <atomic>

namespace sdkhost {

namespace {

std::atomic<Host *> installedHost{nullptr};

} // namespace

Host::Host()
    : m_editor([this](const QString &text) { showMessage(text); }),
      m_documentReactors([this](const QString &text) { showMessage(text); })
{
}

Host::~Host() = default;

Host *Host::installed()
{
    return installedHost.load();
}

void Host::install(Host *host)
{
    installedHost.store(host);
}

} // namespace sdkhost

using sdkhost::Host;

// The functions through which modules reach the host.

CFxSystemServices *GetFxSystemServices()
{
    Host *host = Host::installed();
    return host ? &host->services() : nullptr;
}

OdEditor *odedEditor()
{
    Host *host = Host::installed();
    if (!host)
        return nullptr;
    host->editor().addRef();
    return &host->editor();
}

OdEdCommandStack *odedRegCmds()
{
    Host *host = Host::installed();
    if (!host)
        return nullptr;
    host->commandStack().addRef();
    return &host->commandStack();
}
