// SPDX-License-Identifier: MIT
#pragma once

#include <CFxUIMenuItem.h>

#include <memory>
#include <vector>

namespace sdkhost {

//! A menu, a menu's entry or a separator. Owns its children, not its command definition. GUI thread.
class FXSDK_API UIMenuItem : public CFxUIMenuItem
{
public:
    enum class Kind {
        Entry,
        Menu,
        Separator,
        RecentFiles, //!< a menu that is filled with the recent documents when it opens
        Windows      //!< a menu that is filled with the open drawings when it opens
    };

    UIMenuItem(Kind kind, const CFxString &identifier, const CFxString &label);
    ~UIMenuItem() override;

    Kind kind() const { return m_kind; }
    //! The text in the status bar; if it is empty, the command definition's help string is shown.
    CFxString helpString() const { return m_helpString; }
    void setHelpString(const CFxString &text) { m_helpString = text; }
    //! Appends a child. \return it, owned by this item
    UIMenuItem &add(Kind kind, const CFxString &identifier, const CFxString &label,
                    CFxUICommand *command = nullptr);
    void addSeparator() { add(Kind::Separator, {}, {}); }

    CFxString GetIdentifier() const override { return m_identifier; }
    CFxString GetLabel() const override { return m_label; }
    void SetLabel(const CFxString &label) override { m_label = label; }
    CFxUICommand *GetCommand() const override { return m_command; }
    void SetCommand(CFxUICommand *command) override { m_command = command; }
    int GetChildCount() const override;
    CFxUIMenuItem *GetChild(int index) const override;
    //! Also returns false if item is null, already a child, or this item.
    bool InsertChild(int reference, CFxUIMenuItem *item) override;

private:
    Kind m_kind;
    CFxString m_identifier;
    CFxString m_label;
    CFxString m_helpString;
    CFxUICommand *m_command = nullptr;
    std::vector<std::unique_ptr<CFxUIMenuItem>> m_children;
};

} // namespace sdkhost
