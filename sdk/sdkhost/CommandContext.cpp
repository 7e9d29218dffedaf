// SPDX-License-Identifier: MIT
#include <sdkhost/CommandContext.h>

#include <CFxCommand.h>

namespace sdkhost {

CommandContext::CommandContext(const CFxString &argument)
    : m_argument(argument), m_result(CFxCommand::normalCompletion)
{
}

CommandContext::~CommandContext() = default;

} // namespace sdkhost
