#pragma once

#include <QtCore/QtGlobal>

/// Marks what the shared library moUndoStack offers; everything else in it is hidden.
#if defined(MO_UNDO_STACK_BUILD)
    #define MO_UNDO_STACK_EXPORT Q_DECL_EXPORT
#else
    #define MO_UNDO_STACK_EXPORT Q_DECL_IMPORT
#endif
