// SPDX-License-Identifier: MIT
// Defines the members of the SDK's base classes, most of which do nothing. The definitions place the virtual
// table and type information of each class in this library, so that dynamic_cast works across host and
// modules.
#include <CFxCommandContext.h>
#include <CFxDocument.h>
#include <CFxDocumentManager.h>
#include <CFxDocumentManagerReactor.h>
#include <CFxEditorReactor.h>
#include <CFxPreviewBitmap.h>
#include <CFxRecentFileList.h>
#include <CFxServices.h>
#include <CFxUIAccelerator.h>
#include <CFxUICommand.h>
#include <CFxUICustomization.h>
#include <CFxUIGroup.h>
#include <CFxUIMenuItem.h>
#include <OdEdCommand.h>
#include <OdEdCommandContext.h>
#include <OdEdCommandStack.h>
#include <OdEditor.h>
#include <OdEditorReactor.h>
#include <vela_OdRxModule.h>

OdRxObject::~OdRxObject() = default;
OdRxModule::~OdRxModule() = default;
vela_OdRxModule::~vela_OdRxModule() = default;
OdEdCommand::~OdEdCommand() = default;
OdEdCommandContext::~OdEdCommandContext() = default;
OdEdCommandStack::~OdEdCommandStack() = default;
OdEditor::~OdEditor() = default;
CFxCommandContext::~CFxCommandContext() = default;
CFxDocument::~CFxDocument() = default;
CFxDocumentManager::~CFxDocumentManager() = default;
CFxPreviewBitmap::~CFxPreviewBitmap() = default;
CFxRecentFileList::~CFxRecentFileList() = default;
CFxUserProfile::~CFxUserProfile() = default;
CFxApplication::~CFxApplication() = default;
CFxMainFrame::~CFxMainFrame() = default;
CFxSystemServices::~CFxSystemServices() = default;
CFxUIAccelerator::~CFxUIAccelerator() = default;
CFxUICommand::~CFxUICommand() = default;
CFxUIGroupEnumerator::~CFxUIGroupEnumerator() = default;
CFxUICustomization::~CFxUICustomization() = default;
CFxUIGroup::~CFxUIGroup() = default;
CFxUIMenuItem::~CFxUIMenuItem() = default;

OdEditorReactor::~OdEditorReactor() = default;
void OdEditorReactor::commandWillStart(const OdString &) {}
void OdEditorReactor::commandEnded(const OdString &, int) {}

CFxEditorReactor::~CFxEditorReactor() = default;
void CFxEditorReactor::mainFrameCreated(QWidget *) {}
void CFxEditorReactor::mainFrameDestroyed(QWidget *) {}
void CFxEditorReactor::appActivated() {}
void CFxEditorReactor::appDeactivated() {}
void CFxEditorReactor::windowStateChanged(QWidget *) {}
void CFxEditorReactor::selectionSetCreated(CFxDocument *) {}
void CFxEditorReactor::selectionSetDestroyed(CFxDocument *) {}
void CFxEditorReactor::beginSaveEx(CFxDocument *) {}
void CFxEditorReactor::cancelDwgOpen(const CFxString &) {}
void CFxEditorReactor::closeAborted(CFxDocument *) {}
void CFxEditorReactor::beginModalState() {}
void CFxEditorReactor::endModalState() {}

CFxDocumentManagerReactor::~CFxDocumentManagerReactor() = default;
void CFxDocumentManagerReactor::DocumentCreateStarted(CFxDocument *) {}
void CFxDocumentManagerReactor::DocumentCreated(CFxDocument *) {}
void CFxDocumentManagerReactor::DocumentToBeDestroyed(CFxDocument *) {}
void CFxDocumentManagerReactor::DocumentDestroyed(const CFxString &) {}
void CFxDocumentManagerReactor::DatabaseAttached(CFxDocument *) {}
void CFxDocumentManagerReactor::DatabaseDetached(CFxDocument *) {}
void CFxDocumentManagerReactor::DocumentToBeActivated(CFxDocument *) {}
void CFxDocumentManagerReactor::DocumentToBeDeactivated(CFxDocument *) {}
void CFxDocumentManagerReactor::DocumentActivated(CFxDocument *) {}
void CFxDocumentManagerReactor::DocumentCreateCanceled(CFxDocument *) {}
void CFxDocumentManagerReactor::DocumentBecameCurrent(CFxDocument *) {}
void CFxDocumentManagerReactor::DocumentActivationModified(bool) {}
void CFxDocumentManagerReactor::DocumentPreOpen(const CFxString &) {}
