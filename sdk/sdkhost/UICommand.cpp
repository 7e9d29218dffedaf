// SPDX-License-Identifier: MIT
#include <sdkhost/UICommand.h>

namespace sdkhost {

UICommand::UICommand(const CFxString &identifier) : m_identifier(identifier) {}

UICommand::~UICommand() = default;

} // namespace sdkhost
