// SPDX-License-Identifier: MIT
#include "tests/support/fake/FakeCustomization.h"

#include <cstddef>

namespace {

template<class T>
T *at(const std::vector<std::unique_ptr<T>> &list, int index)
{
    return index >= 0 && std::size_t(index) < list.size() ? list[std::size_t(index)].get() : nullptr;
}

QString quoted(const QString &text)
{
    return QLatin1Char('"') + text + QLatin1Char('"');
}

QString nameOf(const CFxUICommand *command)
{
    return command ? QString(command->GetIdentifier()) : "nothing";
}

//! Enumerates the groups; records each step and the release.
class FakeEnumerator : public CFxUIGroupEnumerator
{
public:
    explicit FakeEnumerator(FakeCustomization &menus) : m_menus(menus) { ++menus.enumeratorsAlive; }
    ~FakeEnumerator() override { --m_menus.enumeratorsAlive; }

    CFxUIGroup *Next() override
    {
        CFxUIGroup *group = at(m_menus.groups, m_next++);
        m_menus.note("next " + (group ? QString(group->GetName()) : "none"));
        return group;
    }
    void Release() override
    {
        FakeCustomization &menus = m_menus;
        delete this;
        menus.note("enumerator released");
    }

private:
    FakeCustomization &m_menus;
    int m_next = 0;
};

} // namespace

FakeMenuObject::FakeMenuObject(FakeCustomization &menus, const QString &id) : identifier(id), m_menus(menus)
{
    ++m_menus.objectsAlive;
}

FakeMenuObject::~FakeMenuObject()
{
    --m_menus.objectsAlive;
}

FakeMenuItem &FakeMenuItem::add(const QString &id)
{
    return *children.emplace_back(std::make_unique<FakeMenuItem>(m_menus, id));
}

CFxUIMenuItem *FakeMenuItem::GetChild(int index) const
{
    return at(children, index);
}

bool FakeMenuItem::InsertChild(int reference, CFxUIMenuItem *item)
{
    m_menus.note(QStringLiteral("insert %1 %2 for %3 at %4 of %5")
                     .arg(QString(item->GetIdentifier()), quoted(item->GetLabel()),
                          nameOf(item->GetCommand()), QString::number(reference), identifier));
    if (!at(children, reference))
        return false;
    children.insert(children.begin() + reference + 1,
                    std::unique_ptr<FakeMenuItem>(static_cast<FakeMenuItem *>(item)));
    return true;
}

FakeMenuItem &FakeGroup::addMenu(const QString &id)
{
    return *menus.emplace_back(std::make_unique<FakeMenuItem>(m_menus, id));
}

FakeCommand &FakeGroup::addCommand(const QString &id)
{
    return *commands.emplace_back(std::make_unique<FakeCommand>(m_menus, id));
}

FakeAccelerator &FakeGroup::addAccelerator(const QString &id, const QKeySequence &key)
{
    accelerators.push_back(std::make_unique<FakeAccelerator>(m_menus, id));
    accelerators.back()->key = key;
    return *accelerators.back();
}

CFxUICommand *FakeGroup::GetCommand(int index) const
{
    return at(commands, index);
}

void FakeGroup::AppendCommand(CFxUICommand *command)
{
    commands.emplace_back(static_cast<FakeCommand *>(command));
    m_menus.note(QStringLiteral("append definition %1 %2 %3 %4 to %5")
                     .arg(QString(command->GetIdentifier()), quoted(command->GetName()),
                          QString(command->GetMacro()), quoted(command->GetHelpString()), name));
}

CFxUIMenuItem *FakeGroup::GetMenu(int index) const
{
    return at(menus, index);
}

CFxUIAccelerator *FakeGroup::GetAccelerator(int index) const
{
    acceleratorsFetched.append(index);
    return at(accelerators, index);
}

void FakeGroup::AppendAccelerator(CFxUIAccelerator *accelerator)
{
    accelerators.emplace_back(static_cast<FakeAccelerator *>(accelerator));
    m_menus.note(QStringLiteral("append accelerator %1 %2 %3 for %4 to %5")
                     .arg(quoted(accelerator->GetIdentifier()), quoted(accelerator->GetLabel()),
                          accelerator->GetKey().toString(QKeySequence::PortableText),
                          nameOf(accelerator->GetCommand()), name));
}

FakeGroup &FakeCustomization::addGroup(const QString &name, bool isPrimary)
{
    groups.push_back(std::make_unique<FakeGroup>(*this, name));
    groups.back()->isPrimary = isPrimary;
    return *groups.back();
}

FakeGroup &FakeCustomization::setStartUpGroup(const QString &name)
{
    startUp = std::make_unique<FakeGroup>(*this, name);
    return *startUp;
}

CFxUIGroupEnumerator *FakeCustomization::EnumerateGroups()
{
    note("enumerate");
    return makesEnumerators ? new FakeEnumerator(*this) : nullptr;
}

bool FakeCustomization::IsPrimary(const CFxUIGroup *group) const
{
    note("primary? " + QString(group->GetName()));
    return static_cast<const FakeGroup *>(group)->isPrimary;
}

CFxUIGroup *FakeCustomization::GetStartUpGroup()
{
    note("start-up group");
    return startUp.get();
}

CFxUICommand *FakeCustomization::FindCommand(const CFxString &groupName, const CFxString &identifier) const
{
    note(QStringLiteral("find %1 in %2").arg(QString(identifier), QString(groupName)));
    std::vector<const FakeGroup *> all{startUp.get()};
    for (const auto &group : groups)
        all.push_back(group.get());
    for (const FakeGroup *group : all) {
        for (int i = 0; group && group->GetName() == groupName && i < group->GetCommandCount(); ++i) {
            if (group->GetCommand(i)->GetIdentifier() == identifier)
                return group->GetCommand(i);
        }
    }
    return nullptr;
}

CFxUICommand *FakeCustomization::CreateCommand(const CFxString &identifier)
{
    note("make definition " + QString(identifier));
    return makesCommands ? new FakeCommand(*this, identifier) : nullptr;
}

CFxUIMenuItem *FakeCustomization::CreateMenuItem(CFxUICommand *command, const CFxString &label,
                                                 const CFxString &helpString, const CFxString &identifier)
{
    note(QStringLiteral("make entry %1 %2 %3 %4")
             .arg(nameOf(command), quoted(label), quoted(helpString), QString(identifier)));
    if (!makesMenuItems)
        return nullptr;
    auto item = std::make_unique<FakeMenuItem>(*this, identifier);
    item->command = command;
    item->label = label;
    return item.release();
}

CFxUIAccelerator *FakeCustomization::CreateAccelerator(CFxUICommand *command, const CFxString &identifier)
{
    note(QStringLiteral("make accelerator %1 for %2").arg(quoted(identifier), nameOf(command)));
    if (!makesAccelerators)
        return nullptr;
    auto accelerator = std::make_unique<FakeAccelerator>(*this, identifier);
    accelerator->command = command;
    return accelerator.release();
}

void FakeCustomization::note(const QString &what) const
{
    m_calls.append("menus " + what);
    if (onCall)
        onCall(what);
}
