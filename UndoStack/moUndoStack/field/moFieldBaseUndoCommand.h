#pragma once

#include <moUndoStack/core/moUndoCommand.h>
#include <moUndoStack/core/moUndoStackExport.h>

#include <moUndoUtils/moUndoString.h>

#include <OpenSG/OSGFieldContainer.h>

#include <functional>
#include <string>

/// What all commands on one field of one container share: which field it is, who is told when it was written, and the
/// two message entries. A template with an empty parameter list; moFieldBaseUndoCommand<> is its only instantiation.
///
/// The container is kept by id and found again at every undo and redo. A container that is null, a field that does not
/// exist or an id out of range makes the command inert: all ids are 0 and undo and redo change nothing. The same holds
/// for a container that was destroyed meanwhile; the command keeps no reference to it.
///
/// A step is done when the field is written. If a listener to the change or the notify function throws then, the rest
/// of the step is done all the same, and the exception reaches the caller at the end (see moStep).
///
/// Merges (rule for the members that do not say otherwise) with a newer command of the same class on the same
/// container, field id and field mask, made within its merge interval. Message: "id", "container" (unsigned int),
/// "fieldId" (unsigned int).
///
/// All constructors of the family end with the parent, which may be left out: null means the composite being composed,
/// if any. Only the members of the library can reach the field; a class of yours derives from one of them.
template<class... Nothing>
class MO_UNDO_STACK_EXPORT moFieldBaseUndoCommand : public moUndoCommand
{
    static_assert(sizeof...(Nothing) == 0, "moFieldBaseUndoCommand<> is the only instantiation");

public:
    /// \param fieldName  as moUndoUtil::findField() takes it: the case of the first letter does not matter.
    moFieldBaseUndoCommand(const moUndoString& text, osg::FieldContainerPtr container, std::string fieldName,
                           QUndoCommand* parent = nullptr);

    /// \param fieldId  counts from 1; ids that the container's type does not have make the command inert.
    moFieldBaseUndoCommand(const moUndoString& text, osg::FieldContainerPtr container, int fieldId,
                           QUndoCommand* parent = nullptr);

    void makeMessage(moMessage& message) const override;
    bool canMergeWith(const QUndoCommand* other) const override;

    /// Id of the container; 0 when the field was not found at construction.
    unsigned int containerId() const { return m_containerId; }

    /// Replaces what is called after each undo and redo that wrote the field, once its edit is closed; an empty
    /// function removes it. The function may replace itself while it runs. When a newer command is merged into this
    /// one, the newer one's function was called at its redo and is destroyed with it; the merged step calls this one's.
    void setNotifyFunction(std::function<void()> function);

    /// For a command that wraps this one although another command runs it: adds what is called right after the notify
    /// function, which stays the caller's. Several wrappers are called in the order in which they were added.
    void addWrapperFunction(std::function<void()> function);

protected:
    /// Calls the notify function, if there is one, and then those of the wrappers.
    void notify() const;

    /// The merge of commands that keep their own value: takes over the time of a command that canMergeWith() accepts.
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
