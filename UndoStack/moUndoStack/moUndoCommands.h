#pragma once

// Every public header of the library.

#include <moUndoStack/core/moFunctionUndoCommand.h>
#include <moUndoStack/core/moGenericFunctionUndoCommand.h>
#include <moUndoStack/core/moInvokeMultiCommand.h>
#include <moUndoStack/core/moMultiCommand.h>
#include <moUndoStack/core/moUndoCommand.h>
#include <moUndoStack/core/moUndoCommandBase.h>
#include <moUndoStack/core/moUndoCommandId.h>
#include <moUndoStack/core/moUndoStack.h>
#include <moUndoStack/core/moUndoStackExport.h>
#include <moUndoStack/field/moBoolFieldUndoCommand.h>
#include <moUndoStack/field/moFieldBaseUndoCommand.h>
#include <moUndoStack/field/moFieldUndoCommand.h>
#include <moUndoStack/field/moImageFieldUndoCommand.h>
#include <moUndoStack/field/moInvokeBoolFieldUndoCommand.h>
#include <moUndoStack/field/moStringFieldUndoCommand.h>
#include <moUndoStack/field/moStringsFieldUndoCommand.h>
#include <moUndoStack/field/moUndoUtil.h>
