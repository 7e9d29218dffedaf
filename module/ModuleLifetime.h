// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

class OdRxObject;
class QObject;

//! Owns the objects that stay as long as the module: the hidden menus with their entries, and the help
//! commands. They run the library's code and must not outlive it, so they are deleted with the module object.
//! GUI thread.
namespace ModuleLifetime {

//! Takes ownership of object, which may still be deleted elsewhere first.
void keep(QObject *object);
//! Takes ownership of object.
void keep(std::unique_ptr<OdRxObject> object);

//! Deletes all open popups, the balloon and all kept objects, and clears the registry.
void end();

} // namespace ModuleLifetime
