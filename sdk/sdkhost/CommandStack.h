// SPDX-License-Identifier: MIT
#pragma once

#include <OdEdCommandStack.h>
#include <sdkhost/RxHostOwned.h>

#include <QStringList>

#include <vector>

namespace sdkhost {

//! The registered commands, in the order of registration. Groups and names are compared without regard to
//! case. GUI thread.
class FXSDK_API CommandStack : public RxHostOwned<OdEdCommandStack>
{
public:
    CommandStack();
    //! Does not release or notify commands that are still registered, because they may already be deleted.
    ~CommandStack() override;

    void addCommand(OdEdCommand *command) override;
    void removeCommand(OdEdCommand *command) override;
    OdEdCommand *lookupCommand(const OdString &name, int flags, const OdString &group) const override;

    const std::vector<OdEdCommand *> &commands() const { return m_commands; }
    //! The global names of the commands, each once, in alphabetical order, without commands whose
    //! globalName() throws.
    QStringList names() const;

private:
    std::vector<OdEdCommand *> m_commands;
};

} // namespace sdkhost
