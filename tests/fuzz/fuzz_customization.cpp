// SPDX-License-Identifier: MIT
// Input: customisation data. Output: menus or an error.
#include "host/runtime/customization/CustomizationReader.h"
#include "tests/fuzz/Target.h"

#include <CFxUIAccelerator.h>
#include <CFxUICommand.h>
#include <sdkhost/UIMenuItem.h>

#include <algorithm>

using fuzz::require;
using fxhost::CustomizationData;
using fxhost::UIGroup;
using fxhost::UIMenuItem;

namespace {

// NOLINTNEXTLINE(misc-no-recursion): menus hold menus
void checkItem(const CFxUIMenuItem &item, const UIGroup &group)
{
    const UIMenuItem::Kind kind = dynamic_cast<const UIMenuItem &>(item).kind();
    require((kind == UIMenuItem::Kind::Separator) == item.GetIdentifier().isEmpty() &&
                (kind == UIMenuItem::Kind::Separator) == item.GetLabel().isEmpty(),
            "everything but a separator has an identifier and a label");
    require((kind == UIMenuItem::Kind::Entry) == (item.GetCommand() != nullptr),
            "entries have a command, and nothing else has");
    require(!item.GetCommand() || group.findCommand(item.GetCommand()->GetIdentifier()) == item.GetCommand(),
            "an entry's command is its group's");
    require(kind == UIMenuItem::Kind::Menu || item.GetChildCount() == 0, "only menus have entries");
    for (int i = 0; i < item.GetChildCount(); ++i)
        checkItem(*item.GetChild(i), group);
}

void checkGroup(const UIGroup &group)
{
    require(!group.GetName().isEmpty(), "a group has a name");
    for (int i = 0; i < group.GetCommandCount(); ++i) {
        const CFxUICommand *const command = group.GetCommand(i);
        require(group.findCommand(command->GetIdentifier()) == command,
                "no two commands have the same identifier");
        require(!command->GetMacro().isEmpty(), "a command has a macro");
    }
    for (int i = 0; i < group.GetMenuCount(); ++i)
        checkItem(*group.GetMenu(i), group);
    for (int i = 0; i < group.GetAcceleratorCount(); ++i)
        require(!group.GetAccelerator(i)->GetKey().isEmpty(), "an accelerator has a key");
}

void check(const CustomizationData &data)
{
    require(bool(data.outcome) != data.groups.empty(), "there are groups or there is an error");
    if (!data.outcome) {
        require(!data.startUp, "an error leaves nothing to start up with");
        return;
    }
    require(std::count_if(data.groups.begin(), data.groups.end(),
                          [](const std::unique_ptr<UIGroup> &group) { return group->isPrimary(); }) == 1,
            "one group is the primary one");
    for (const std::unique_ptr<UIGroup> &group : data.groups)
        checkGroup(*group);
    if (data.startUp)
        checkGroup(*data.startUp);
}

} // namespace

// Qt's JSON parser leaks a list or an object that is a member twice.
extern "C" __attribute__((visibility("default"))) const char *__lsan_default_suppressions()
{
    return "leak:libQt5Core.so\n"; // Qt's inner functions have no names to suppress
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    // Deleting what was read is part of the work.
    fuzz::runWithinLimits([&] { check(fxhost::readCustomization(fuzz::bytesOf(data, size))); });
    return 0;
}
