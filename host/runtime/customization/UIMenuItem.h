// SPDX-License-Identifier: MIT
#pragma once

#include "host/runtime/FxHostApi.h"

#include <CFxUIMenuItem.h>

#include <memory>
#include <vector>

namespace fxhost {

//! A menu, a menu's entry or a separator. Owns its children, not its command definition. GUI thread.
class FXHOST_API UIMenuItem : public CFxUIMenuItem
{
public:
    enum class Kind {
        Entry,
        Menu,
        Separator,
        RecentFiles, //!< a menu that lists the recent documents whenever it opens
        Windows      //!< a menu that lists the open drawings whenever it opens
    };

    UIMenuItem(Kind kind, const CFxString &identifier, const CFxString &label);
    ~UIMenuItem() override;

    Kind kind() const { return m_kind; }
    //! What the status bar shows for the entry; empty: the command definition's own help string.
    CFxString helpString() const { return m_helpString; }
    void setHelpString(const CFxString &text) { m_helpString = text; }
    //! Appends item to the children. \param item not null
    void appendChild(std::unique_ptr<CFxUIMenuItem> item);

    CFxString GetIdentifier() const override { return m_identifier; }
    CFxString GetLabel() const override { return m_label; }
    void SetLabel(const CFxString &label) override { m_label = label; }
    CFxUICommand *GetCommand() const override { return m_command; }
    void SetCommand(CFxUICommand *command) override { m_command = command; }
    int GetChildCount() const override;
    CFxUIMenuItem *GetChild(int index) const override;
    //! Null, a child and the item itself are refused as well.
    bool InsertChild(int reference, CFxUIMenuItem *item) override;

private:
    Kind m_kind;
    CFxString m_identifier;
    CFxString m_label;
    CFxString m_helpString;
    CFxUICommand *m_command = nullptr;
    std::vector<std::unique_ptr<CFxUIMenuItem>> m_children;
};

} // namespace fxhost
