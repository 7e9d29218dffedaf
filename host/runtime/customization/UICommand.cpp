// SPDX-License-Identifier: MIT
#include "host/runtime/customization/UICommand.h"

namespace fxhost {

UICommand::UICommand(const CFxString &identifier) : m_identifier(identifier) {}

UICommand::~UICommand() = default;

} // namespace fxhost
