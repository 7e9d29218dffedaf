// SPDX-License-Identifier: MIT
#include <sdkhost/UIAccelerator.h>

#include <sdkhost/UIGroup.h>

namespace sdkhost {

UIAccelerator::UIAccelerator(const CFxString &identifier, CFxUICommand *command)
    : m_identifier(identifier), m_command(command)
{
}

UIAccelerator::UIAccelerator(const CFxString &identifier, const UIGroup &group,
                             const CFxString &commandIdentifier)
    : m_identifier(identifier), m_group(&group), m_commandIdentifier(commandIdentifier)
{
}

UIAccelerator::~UIAccelerator() = default;

CFxUICommand *UIAccelerator::GetCommand() const
{
    return m_group ? m_group->findCommand(m_commandIdentifier) : m_command;
}

} // namespace sdkhost
