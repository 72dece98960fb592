#pragma once

// Every public header of the library.

#include <moUndoStack/constraint/moAddAimConstraintUpVectorSourcesUndoCommand.h>
#include <moUndoStack/constraint/moAddConstraintSourcesUndoCommand.h>
#include <moUndoStack/constraint/moDeleteConstraintReferenceUndoCommand.h>
#include <moUndoStack/constraint/moSetConstraintTargetUndoCommand.h>
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
#include <moUndoStack/tag/moAttachedTagUndoCommand.h>
#include <moUndoStack/tag/moEmptyTagUndoCommand.h>
#include <moUndoStack/tag/moTagUndoCommand.h>
#include <moUndoStack/transform/moAddTransformVariantUndoCommand.h>
#include <moUndoStack/transform/moApplyTransformationVariantUndoCommand.h>
#include <moUndoStack/transform/moEulerRotationOrderUndoCommand.h>
#include <moUndoStack/transform/moRemoveTransformSwitchVariantUndoCommand.h>
#include <moUndoStack/transform/moRotationAsQuaternionUndoCommand.h>
#include <moUndoStack/transform/moTransformUndoCommand.h>
#include <moUndoStack/transform/moTransformValueUndoCommands.h>
#include <moUndoStack/transform/moTransformVariantMoveCommand.h>
#include <moUndoStack/transform/moTransformVariantNameUndoCommand.h>
#include <moUndoStack/transform/moTransformVariantOptionsUndoCommand.h>
