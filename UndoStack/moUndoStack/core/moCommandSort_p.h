#pragma once

#include <QUndoCommand>

#include <typeinfo>

class moUndoCommandBase;

/// What the library knows of the class of a command. Casts only if the class is another one than the last time: a
/// dynamic_cast takes a third of an undo.
///
/// The address of a type_info tells one class from another only while the class is loaded: once a plugin is unloaded,
/// the next one may have a class at the same address, and a foreign class would be taken for one of ours. So the class
/// is remembered while the command that was cast exists, and no longer. Foreign classes are never remembered, because
/// nobody tells when their commands are destroyed.
class moCommandSort
{
public:
    enum Sort
    {
        Foreign,   ///< no moUndoCommandBase
        Described, ///< a moUndoCommandBase
        Speaking   ///< one that adds keys of its own to a message
    };

    static Sort of(const QUndoCommand& command) { return s_class == &typeid(command) ? s_sort : cast(command); }

    /// Called for each command that is destroyed.
    static void forget(const moUndoCommandBase* destroyed)
    {
        if (destroyed == s_example) s_class = nullptr;
    }

private:
    static Sort cast(const QUndoCommand& command);

    static const std::type_info* s_class;      ///< the class of the last command that was cast
    static const moUndoCommandBase* s_example; ///< that command
    static Sort s_sort;
};
