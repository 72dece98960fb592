#pragma once

#include <moUndoStack/core/moUndoStackExport.h>

#include <QtCore/QString>

class moUndoStack;

/// A composition that ends on every way out of a block: at its end or by `return` as with endMultiCommand(), by an
/// exception or cancel() as with cancelMultiCommand().
///
///     {
///         moCompositionScope composition(stack, tr("Move 3 nodes"));
///         for (const osg::NodePtr& node : nodes)
///             new moTranslationUndoCommand(node, translation, false, nullptr, {}, -1);
///     } // one step
///
/// Compositions that were begun inside and not ended are ended, or cancelled, with it. If the composition is over
/// already, because it was ended by hand or its stack was cleared, nothing happens.
class MO_UNDO_STACK_EXPORT moCompositionScope
{
public:
    /// Begins the composition. The arguments are those of moUndoStack::beginMultiCommand(), but merging is off.
    [[nodiscard]] explicit moCompositionScope(moUndoStack& stack, const QString& text = {},
                                              const QString& description = {}, bool mergeEnabled = false);

    /// Ends the composition; cancels it if an exception leaves the block. Throws what a listener to the step throws.
    ~moCompositionScope() noexcept(false);

    moCompositionScope(const moCompositionScope&) = delete;
    moCompositionScope& operator=(const moCompositionScope&) = delete;

    /// Ends the composition now.
    void end();

    /// Drops the composition now: its children are neither run nor recorded.
    void cancel();

private:
    bool close(bool cancelled);

    moUndoStack& m_stack;
    unsigned int m_number;
    int m_exceptions;
};

/// A macro that ends on every way out of a block. The commands of a macro have run, so an exception ends it, too: the
/// step holds what was added until then.
///
/// Macros that were begun inside and not ended are ended with it. If the macro is over already, because it was ended by
/// hand or its stack was cleared, nothing happens.
class MO_UNDO_STACK_EXPORT moMacroScope
{
public:
    /// Begins the macro. \param text  text of the step.
    [[nodiscard]] moMacroScope(moUndoStack& stack, const QString& text);

    /// Ends the macro. Throws what a listener to the step throws; logs it if another exception leaves the block.
    ~moMacroScope() noexcept(false);

    moMacroScope(const moMacroScope&) = delete;
    moMacroScope& operator=(const moMacroScope&) = delete;

    /// Ends the macro now.
    void end();

private:
    moUndoStack& m_stack;
    int m_depth;
    int m_clears;
    int m_exceptions;
};

/// Switches recording on for a block, for both stacks: beginUndo() and endUndo().
class MO_UNDO_STACK_EXPORT moRecordingScope
{
public:
    /// Calls moUndoStack::beginUndo().
    [[nodiscard]] moRecordingScope();
    ~moRecordingScope();
    moRecordingScope(const moRecordingScope&) = delete;
    moRecordingScope& operator=(const moRecordingScope&) = delete;
};

/// Switches recording off for a block, for both stacks: beginBlockUndo() and endBlockUndo().
class MO_UNDO_STACK_EXPORT moBlockedRecordingScope
{
public:
    /// Calls moUndoStack::beginBlockUndo().
    [[nodiscard]] moBlockedRecordingScope();
    ~moBlockedRecordingScope();
    moBlockedRecordingScope(const moBlockedRecordingScope&) = delete;
    moBlockedRecordingScope& operator=(const moBlockedRecordingScope&) = delete;
};
