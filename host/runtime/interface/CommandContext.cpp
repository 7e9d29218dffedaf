// SPDX-License-Identifier: MIT
#include "host/runtime/interface/CommandContext.h"

#include <CFxCommand.h>

namespace fxhost {

CommandContext::CommandContext(const CFxString &argument)
    : m_argument(argument), m_result(CFxCommand::normalCompletion)
{
}

CommandContext::~CommandContext() = default;

} // namespace fxhost
