// SPDX-License-Identifier: MIT
#pragma once

#include <CFxUICommand.h>

namespace sdkhost {

//! A command definition. GUI thread.
class FXSDK_API UICommand : public CFxUICommand
{
public:
    explicit UICommand(const CFxString &identifier);
    ~UICommand() override;

    CFxString GetIdentifier() const override { return m_identifier; }
    CFxString GetName() const override { return m_name; }
    void SetName(const CFxString &name) override { m_name = name; }
    CFxString GetMacro() const override { return m_macro; }
    void SetMacro(const CFxString &macro) override { m_macro = macro; }
    CFxString GetHelpString() const override { return m_helpString; }
    void SetHelpString(const CFxString &text) override { m_helpString = text; }

private:
    CFxString m_identifier;
    CFxString m_name;
    CFxString m_macro;
    CFxString m_helpString;
};

} // namespace sdkhost
