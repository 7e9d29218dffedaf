// SPDX-License-Identifier: MIT
#include <sdkhost/UIMenuItem.h>

#include <sdkhost/OwnedList.h>

#include <utility>

namespace sdkhost {

UIMenuItem::UIMenuItem(Kind kind, const CFxString &identifier, const CFxString &label)
    : m_kind(kind), m_identifier(identifier), m_label(label)
{
}

UIMenuItem::~UIMenuItem() = default;

UIMenuItem &UIMenuItem::add(Kind kind, const CFxString &identifier, const CFxString &label,
                            CFxUICommand *command)
{
    auto item = std::make_unique<UIMenuItem>(kind, identifier, label);
    item->SetCommand(command);
    UIMenuItem &added = *item;
    m_children.push_back(std::move(item));
    return added;
}

int UIMenuItem::GetChildCount() const
{
    return int(m_children.size());
}

CFxUIMenuItem *UIMenuItem::GetChild(int index) const
{
    return elementAt(m_children, index);
}

bool UIMenuItem::InsertChild(int reference, CFxUIMenuItem *item)
{
    if (!elementAt(m_children, reference) || !item || item == this || contains(m_children, item))
        return false;
    m_children.insert(m_children.begin() + reference, std::unique_ptr<CFxUIMenuItem>(item));
    return true;
}

} // namespace sdkhost
