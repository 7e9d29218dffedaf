// SPDX-License-Identifier: MIT
#include <sdkhost/CommandStack.h>

#include <OdEdCommand.h>
#include <sdkhost/GuiThread.h>
#include <sdkhost/Strings.h>

#include <algorithm>
#include <utility>

namespace sdkhost {

namespace {

bool isSame(const OdString &a, const OdString &b)
{
    return fromOdString(a).compare(fromOdString(b), Qt::CaseInsensitive) == 0;
}

//! Notifies a command that it was removed, and releases it.
void dismiss(OdEdCommand *command)
{
    command->undefine();
    command->release();
}

} // namespace

CommandStack::CommandStack() = default;

CommandStack::~CommandStack() = default;

void CommandStack::addCommand(OdEdCommand *command)
{
    SDKHOST_ASSERT_GUI_THREAD();
    command->addRef();
    const auto former = std::find_if(m_commands.begin(), m_commands.end(), [command](OdEdCommand *other) {
        return isSame(other->groupName(), command->groupName()) &&
               isSame(other->globalName(), command->globalName());
    });
    if (former == m_commands.end())
        m_commands.push_back(command);
    else
        dismiss(std::exchange(*former, command));
}

void CommandStack::removeCommand(OdEdCommand *command)
{
    SDKHOST_ASSERT_GUI_THREAD();
    const auto found = std::find_if(m_commands.begin(), m_commands.end(), [command](OdEdCommand *other) {
        return isSame(other->groupName(), command->groupName()) &&
               isSame(other->globalName(), command->globalName()) &&
               isSame(other->localName(), command->localName());
    });
    if (found == m_commands.end())
        return;
    OdEdCommand *const removed = *found;
    m_commands.erase(found); // first, because undefine() may use the stack
    dismiss(removed);
}

OdEdCommand *CommandStack::lookupCommand(const OdString &name, int flags, const OdString &group) const
{
    SDKHOST_ASSERT_GUI_THREAD();
    for (OdEdCommand *command : m_commands) {
        if (!group.isEmpty() && !isSame(command->groupName(), group))
            continue;
        if (((flags & GlobalNames) && isSame(command->globalName(), name)) ||
            ((flags & LocalNames) && isSame(command->localName(), name))) {
            command->addRef();
            return command;
        }
    }
    return nullptr;
}

QStringList CommandStack::names() const
{
    QStringList names;
    for (const OdEdCommand *command : m_commands) {
        try {
            names.append(fromOdString(command->globalName()));
        } catch (...) { // a module's command
            continue;
        }
    }
    names.removeDuplicates();
    names.sort();
    return names;
}

} // namespace sdkhost
