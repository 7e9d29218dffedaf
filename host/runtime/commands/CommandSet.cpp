// SPDX-License-Identifier: MIT
#include "host/runtime/commands/CommandSet.h"

#include <CFxCommand.h>
#include <OdStaticRxObject.h>
#include <sdkhost/CommandStack.h>
#include <sdkhost/Strings.h>

#include <utility>

namespace fxhost {

namespace {

class FunctionCommand : public CFxCommand
{
public:
    FunctionCommand(const QString &name, CommandSet::Function function)
        : m_name(name), m_function(std::move(function))
    {
    }

    OdString globalName() const override { return toOdString(QLatin1Char('_') + m_name); }
    OdString localName() const override { return toOdString(m_name); }
    int Execute(CFxCommandContext *context) override { return m_function(*context); }

private:
    QString m_name;
    CommandSet::Function m_function;
};

} // namespace

CommandSet::CommandSet(CommandStack &stack) : m_stack(stack) {}

CommandSet::~CommandSet()
{
    for (const auto &command : m_commands)
        m_stack.removeCommand(command.get());
}

void CommandSet::add(const QString &name, Function function)
{
    m_commands.push_back(std::make_unique<OdStaticRxObject<FunctionCommand>>(name, std::move(function)));
    m_stack.addCommand(m_commands.back().get());
}

} // namespace fxhost
