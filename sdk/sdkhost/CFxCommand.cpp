// SPDX-License-Identifier: MIT
#include <CFxCommand.h>
#include <sdkhost/CommandContext.h>
#include <sdkhost/Host.h>

CFxCommand::~CFxCommand() = default;

OdString CFxCommand::groupName() const
{
    return L"FX_COMMANDS";
}

void CFxCommand::execute(OdEdCommandContext *context)
{
    const int result = Execute(static_cast<CFxCommandContext *>(context));
    if (auto *hostContext = dynamic_cast<sdkhost::CommandContext *>(context))
        hostContext->setResult(result);
}

void CFxCommand::undefine() {}

std::uint32_t CFxCommand::flags() const
{
    return m_flags;
}

void CFxCommand::Help()
{
    if (sdkhost::Host *host = sdkhost::Host::installed())
        host->requestHelp(GetHelpId());
}

int CFxCommand::GetHelpId() const
{
    return 0;
}

void CFxCommand::AddFlags(std::uint32_t flags)
{
    m_flags |= flags;
}
