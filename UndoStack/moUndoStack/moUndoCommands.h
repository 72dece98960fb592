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
