// SPDX-License-Identifier: MIT
#pragma once

namespace fxhost {

class CommandRunner;
class CommandStack;
class DocumentManager;
class Editor;
class MainFrame;

//! The services that are needed to start and end modules. They must outlive the modules.
struct ModuleHost
{
    CommandRunner &commands;
    CommandStack &commandStack;
    DocumentManager &documents;
    Editor &editor;
    MainFrame &mainFrame;
};

} // namespace fxhost
