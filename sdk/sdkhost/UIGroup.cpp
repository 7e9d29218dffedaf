// SPDX-License-Identifier: MIT
#include <sdkhost/UIGroup.h>

#include <sdkhost/OwnedList.h>
#include <sdkhost/UIAccelerator.h>
#include <sdkhost/UICommand.h>
#include <sdkhost/UIMenuItem.h>

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

CFxUICommand &UIGroup::addCommand(const CFxString &identifier, const CFxString &name, const CFxString &macro,
                                  const CFxString &helpString)
{
    m_commands.push_back(std::make_unique<UICommand>(identifier));
    CFxUICommand &command = *m_commands.back();
    command.SetName(name);
    command.SetMacro(macro);
    command.SetHelpString(helpString);
    return command;
}

UIMenuItem &UIGroup::addMenu(const CFxString &identifier, const CFxString &label)
{
    auto menu = std::make_unique<UIMenuItem>(UIMenuItem::Kind::Menu, identifier, label);
    UIMenuItem &added = *menu;
    m_menus.push_back(std::move(menu));
    return added;
}

void UIGroup::addKey(const CFxString &identifier, const CFxString &label, const QKeySequence &key,
                     const CFxString &command)
{
    m_accelerators.push_back(std::make_unique<UIAccelerator>(identifier, *this, command));
    m_accelerators.back()->SetLabel(label);
    m_accelerators.back()->SetKey(key);
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
