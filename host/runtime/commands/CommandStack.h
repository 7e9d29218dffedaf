// SPDX-License-Identifier: MIT
#pragma once

#include "host/runtime/FxHostApi.h"
#include "host/runtime/RxHostOwned.h"

#include <OdEdCommandStack.h>

#include <QStringList>

#include <vector>

namespace fxhost {

//! The registered commands, in the order of registration. Groups and names are compared whatever the case.
//! GUI thread.
class FXHOST_API CommandStack : public RxHostOwned<OdEdCommandStack>
{
public:
    CommandStack();
    //! Releases its references. Commands that are still registered are not notified, since they may be
    //! deleted.
    ~CommandStack() override;

    void addCommand(OdEdCommand *command) override;
    void removeCommand(OdEdCommand *command) override;
    OdEdCommand *lookupCommand(const OdString &name, int flags, const OdString &group) const override;

    const std::vector<OdEdCommand *> &commands() const { return m_commands; }
    //! The global names of the commands, each once, in alphabetical order. A command that throws when asked
    //! is left out.
    QStringList names() const;

private:
    std::vector<OdEdCommand *> m_commands;
};

} // namespace fxhost
