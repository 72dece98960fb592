#pragma once

#include <moUndoStack/core/moHeldFunction.h>
#include <moUndoStack/core/moUndoCommand.h>
#include <moUndoStack/core/moUndoStackExport.h>

#include <moUndoUtils/moUndoString.h>

#include <OpenSG/OSGFieldContainer.h>

#include <functional>
#include <string>

/// Base of the commands that set one field of one container. It finds the field, calls the notify function and adds two
/// message keys. The template's parameter list is always empty: moFieldBaseUndoCommand<> is the only instantiation.
///
/// The container is kept by id, without a reference, and found again at every undo and redo. A null container or a
/// field that it does not have makes the command inert, with both ids 0. If the container was destroyed, the step is a
/// no-op.
///
/// A step is done once the field is written. If a listener to the change or the notify function throws after that, the
/// rest of the step is done all the same, and the exception reaches the caller at the end (see moStep).
///
/// Merges, unless a subclass says otherwise, with a newer command of the same class on the same container and field,
/// made within its merge interval. Message: "id" (int), "container" (unsigned int), "fieldId" (unsigned int).
///
/// Only the library's own commands can reach the field: a class of yours derives from one of those.
template<class... Nothing>
class MO_UNDO_STACK_EXPORT moFieldBaseUndoCommand : public moUndoCommand
{
    static_assert(sizeof...(Nothing) == 0, "moFieldBaseUndoCommand<> is the only instantiation");

public:
    /// \param fieldName  as moUndoUtil::findField() takes it: the case of the first letter does not matter.
    /// \param parent     null means the composite being composed, if any.
    moFieldBaseUndoCommand(const moUndoString& text, osg::FieldContainerPtr container, std::string fieldName,
                           QUndoCommand* parent = nullptr);

    /// \param fieldId  counts from 1; an id that the container's type does not have makes the command inert.
    /// \param parent   null means the composite being composed, if any.
    moFieldBaseUndoCommand(const moUndoString& text, osg::FieldContainerPtr container, int fieldId,
                           QUndoCommand* parent = nullptr);

    /// Adds "container" and "fieldId"; both are 0 if the command is inert.
    void makeMessage(moMessage& message) const override;
    /// Asks for the same container, field id and field mask, too.
    bool canMergeWith(const QUndoCommand* other) const override;

    /// Id of the container; 0 if the field was not found at construction.
    unsigned int containerId() const { return m_containerId; }

    /// Sets the notify function. It is called after each undo and redo that wrote the field, once the edit is closed.
    /// Replaces the one before, also while that one runs; an empty function removes it. A newer command that is merged
    /// into this one has called its own function at its redo; from then on the step calls this command's.
    void setNotifyFunction(std::function<void()> function);

    /// Adds a wrapper function: it is called after the notify function, which it does not replace. For a command that
    /// wraps this one and does not run it, because this one has a parent. Wrapper functions are called in the order in
    /// which they were added.
    void addWrapperFunction(std::function<void()> function);

protected:
    /// Calls the notify function, if there is one, and then the wrapper functions.
    void notify() const;

    /// mergeWith() of a command that takes over no value: if canMergeWith() accepts the newer command, adopts its time
    /// and returns true.
    bool mergeTime(const QUndoCommand* other);

private:
    friend class moFieldAccess;

    osg::UInt32 m_containerId = 0;
    osg::UInt32 m_fieldId = 0;
    osg::BitVector m_fieldMask = 0;
    moUndoDetail::HeldFunction<void()> m_notify;
    moUndoDetail::HeldFunction<void()> m_wrappers;
};

extern template class moFieldBaseUndoCommand<>;
