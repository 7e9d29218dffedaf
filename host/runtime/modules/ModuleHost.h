// SPDX-License-Identifier: MIT
#pragma once

namespace fxhost {

class CommandRunner;
class CommandStack;
class DocumentManager;
class Editor;
class MainFrame;

//! What modules touch of the host. Everything must outlive them.
struct ModuleHost
{
    CommandRunner &commands;
    CommandStack &commandStack;
    DocumentManager &documents;
    Editor &editor;
    MainFrame &mainFrame;
};

} // namespace fxhost
