// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

class OdRxObject;
class QObject;

//! What the module makes and nothing deletes while it runs: the hidden menus with their entries, and the
//! help commands. They run the library's code, so they may not outlive it: they are deleted with the module
//! object. GUI thread.
namespace ModuleLifetime {

//! Takes object over. One that is deleted elsewhere first is forgotten.
void keep(QObject *object);
void keep(std::unique_ptr<OdRxObject> object);

//! Deletes the popups that are still open, a balloon, and what was kept.
void end();

} // namespace ModuleLifetime
