// SPDX-License-Identifier: MIT
#pragma once

#include <CFxUIAccelerator.h>

namespace sdkhost {

class UIGroup;

//! A key and the command definition that it runs: either a given definition, or an identifier that is looked
//! up in a group on each call, because a module may append the definition later. GUI thread.
class FXSDK_API UIAccelerator : public CFxUIAccelerator
{
public:
    //! \param command may be null; must outlive the accelerator
    UIAccelerator(const CFxString &identifier, CFxUICommand *command);
    //! \param group the group in which the definition is looked up; must outlive the accelerator
    UIAccelerator(const CFxString &identifier, const UIGroup &group, const CFxString &commandIdentifier);
    ~UIAccelerator() override;

    CFxString GetIdentifier() const override { return m_identifier; }
    CFxString GetLabel() const override { return m_label; }
    void SetLabel(const CFxString &label) override { m_label = label; }
    QKeySequence GetKey() const override { return m_key; }
    void SetKey(const QKeySequence &key) override { m_key = key; }
    CFxUICommand *GetCommand() const override;

private:
    CFxString m_identifier;
    CFxString m_label;
    QKeySequence m_key;
    CFxUICommand *m_command = nullptr;
    const UIGroup *m_group = nullptr; // null: m_command is used
    CFxString m_commandIdentifier;
};

} // namespace sdkhost
