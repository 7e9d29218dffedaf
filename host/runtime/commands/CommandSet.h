// SPDX-License-Identifier: MIT
#pragma once

#include "host/runtime/FxHostApi.h"

#include <CFxCommandContext.h>

#include <QString>

#include <functional>
#include <memory>
#include <vector>

class OdEdCommand;

namespace fxhost {

//! Commands that call functions. They are registered while the set exists. GUI thread.
class FXHOST_API CommandSet
{
public:
    //! Performs a command.
    //! \return CFxCommand::normalCompletion, cancelled or failed
    using Function = std::function<int(const CFxCommandContext &context)>;

    //! \param stack must outlive the set
    explicit CommandSet(CommandStack &stack);
    ~CommandSet();

    CommandSet(const CommandSet &) = delete;
    CommandSet &operator=(const CommandSet &) = delete;

    //! Registers a command.
    //! \param name the local name; the global name has a leading underscore in addition
    void add(const QString &name, Function function);

private:
    CommandStack &m_stack;
    std::vector<std::unique_ptr<OdEdCommand>> m_commands;
};

} // namespace fxhost
