// SPDX-License-Identifier: MIT
#include <sdkhost/UIGroup.h>

#include <sdkhost/OwnedList.h>

#include <utility>

namespace sdkhost {

UIGroup::UIGroup(const CFxString &name, bool primary) : m_name(name), m_primary(primary) {}

UIGroup::~UIGroup() = default;

CFxUICommand *UIGroup::findCommand(const CFxString &identifier) const
{
    for (const auto &command : m_commands) {
        if (command->GetIdentifier() == identifier)
            return command.get();
    }
    return nullptr;
}

void UIGroup::appendMenu(std::unique_ptr<CFxUIMenuItem> menu)
{
    m_menus.push_back(std::move(menu));
}

int UIGroup::GetCommandCount() const
{
    return int(m_commands.size());
}

CFxUICommand *UIGroup::GetCommand(int index) const
{
    return elementAt(m_commands, index);
}

void UIGroup::AppendCommand(CFxUICommand *command)
{
    if (command && !contains(m_commands, command))
        m_commands.emplace_back(command);
}

int UIGroup::GetMenuCount() const
{
    return int(m_menus.size());
}

CFxUIMenuItem *UIGroup::GetMenu(int index) const
{
    return elementAt(m_menus, index);
}

int UIGroup::GetAcceleratorCount() const
{
    return int(m_accelerators.size());
}

CFxUIAccelerator *UIGroup::GetAccelerator(int index) const
{
    return elementAt(m_accelerators, index);
}

void UIGroup::AppendAccelerator(CFxUIAccelerator *accelerator)
{
    if (accelerator && !contains(m_accelerators, accelerator))
        m_accelerators.emplace_back(accelerator);
}

} // namespace sdkhost
