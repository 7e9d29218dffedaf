// SPDX-License-Identifier: MIT
#include <sdkhost/Customization.h>

#include <sdkhost/GuiThread.h>
#include <sdkhost/UIAccelerator.h>
#include <sdkhost/UICommand.h>
#include <sdkhost/UIMenuItem.h>

#include <algorithm>
#include <cstddef>

namespace sdkhost {

namespace {

//! Enumerates the groups that existed when the enumerator was created.
class GroupEnumerator : public CFxUIGroupEnumerator
{
public:
    explicit GroupEnumerator(const std::vector<std::unique_ptr<UIGroup>> &groups)
    {
        for (const auto &group : groups)
            m_groups.push_back(group.get());
    }

    CFxUIGroup *Next() override { return m_next < m_groups.size() ? m_groups[m_next++] : nullptr; }
    void Release() override { delete this; }

private:
    std::vector<CFxUIGroup *> m_groups;
    std::size_t m_next = 0;
};

} // namespace

Customization::Customization(QObject *parent) : QObject(parent) {}

Customization::~Customization() = default;

UIGroup &Customization::addGroup(const CFxString &name, bool isPrimary)
{
    m_groups.push_back(std::make_unique<UIGroup>(name, isPrimary));
    return *m_groups.back();
}

UIGroup &Customization::addStartUpGroup(const CFxString &name)
{
    m_startUp = std::make_unique<UIGroup>(name, false);
    return *m_startUp;
}

UIGroup *Customization::primaryGroup() const
{
    const auto found =
        std::find_if(m_groups.begin(), m_groups.end(), [](const auto &group) { return group->isPrimary(); });
    return found == m_groups.end() ? nullptr : found->get();
}

CFxUIGroupEnumerator *Customization::EnumerateGroups()
{
    SDKHOST_ASSERT_GUI_THREAD();
    return new GroupEnumerator(m_groups);
}

bool Customization::IsPrimary(const CFxUIGroup *group) const
{
    SDKHOST_ASSERT_GUI_THREAD();
    return group && group == primaryGroup();
}

CFxUIGroup *Customization::GetStartUpGroup()
{
    SDKHOST_ASSERT_GUI_THREAD();
    return m_startUp.get();
}

CFxUICommand *Customization::FindCommand(const CFxString &groupName, const CFxString &identifier) const
{
    SDKHOST_ASSERT_GUI_THREAD();
    for (const auto &group : m_groups) {
        if (group->GetName() == groupName)
            return group->findCommand(identifier);
    }
    return m_startUp && m_startUp->GetName() == groupName ? m_startUp->findCommand(identifier) : nullptr;
}

CFxUICommand *Customization::CreateCommand(const CFxString &identifier)
{
    SDKHOST_ASSERT_GUI_THREAD();
    return new UICommand(identifier);
}

CFxUIMenuItem *Customization::CreateMenuItem(CFxUICommand *command, const CFxString &label,
                                             const CFxString &helpString, const CFxString &identifier)
{
    SDKHOST_ASSERT_GUI_THREAD();
    auto item = std::make_unique<UIMenuItem>(UIMenuItem::Kind::Entry, identifier, label);
    item->SetCommand(command);
    item->setHelpString(helpString);
    return item.release();
}

CFxUIAccelerator *Customization::CreateAccelerator(CFxUICommand *command, const CFxString &identifier)
{
    SDKHOST_ASSERT_GUI_THREAD();
    return new UIAccelerator(identifier, command);
}

void Customization::Refresh()
{
    SDKHOST_ASSERT_GUI_THREAD();
    emit refreshed();
}

} // namespace sdkhost
