// SPDX-License-Identifier: MIT
#pragma once

#include <CFxUIAccelerator.h>
#include <CFxUICommand.h>
#include <CFxUIGroup.h>
#include <CFxUIMenuItem.h>

#include <memory>
#include <vector>

namespace sdkhost {

class UIMenuItem;

//! A customisation group. GUI thread.
class FXSDK_API UIGroup : public CFxUIGroup
{
public:
    UIGroup(const CFxString &name, bool primary);
    ~UIGroup() override;

    bool isPrimary() const { return m_primary; }
    //! The definition with this identifier, compared exactly; owned by the group. Null if there is none.
    CFxUICommand *findCommand(const CFxString &identifier) const;
    //! Appends a command definition. \return it, owned by the group
    CFxUICommand &addCommand(const CFxString &identifier, const CFxString &name, const CFxString &macro,
                             const CFxString &helpString = {});
    //! Appends a top-level menu. \return it, owned by the group
    UIMenuItem &addMenu(const CFxString &identifier, const CFxString &label);
    //! Appends a key for the definition that has the identifier command when the key is pressed.
    void addKey(const CFxString &identifier, const CFxString &label, const QKeySequence &key,
                const CFxString &command);

    CFxString GetName() const override { return m_name; }
    int GetCommandCount() const override;
    CFxUICommand *GetCommand(int index) const override;
    //! Does nothing if command is null or already in the group.
    void AppendCommand(CFxUICommand *command) override;
    int GetMenuCount() const override;
    CFxUIMenuItem *GetMenu(int index) const override;
    int GetAcceleratorCount() const override;
    CFxUIAccelerator *GetAccelerator(int index) const override;
    //! Does nothing if accelerator is null or already in the group.
    void AppendAccelerator(CFxUIAccelerator *accelerator) override;

private:
    CFxString m_name;
    bool m_primary;
    std::vector<std::unique_ptr<CFxUICommand>> m_commands;
    std::vector<std::unique_ptr<CFxUIMenuItem>> m_menus;
    std::vector<std::unique_ptr<CFxUIAccelerator>> m_accelerators;
};

} // namespace sdkhost
