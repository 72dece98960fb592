#pragma once

#include <moUndoStack/core/moStep.h>
#include <moUndoStack/core/moUndoCommand.h>

#include <moUtils/moMessage.h>

#include <OpenSG/OSGNode.h>
#include <OpenSG/OSGQuaternion.h>
#include <OpenSG/OSGVector.h>

#include <string>
#include <utility>

/// Base of moFunctionUndoCommand: the node that the command is about, whatever the type of the value.
///
/// The node is kept by id and without a reference. Message: "id" (int), "node" (unsigned int).
class MO_UNDO_STACK_EXPORT moNodeUndoCommand : public moUndoCommand
{
public:
    /// Adds "node".
    void makeMessage(moMessage& message) const override;

protected:
    /// \param node    null gives a command that never finds a node.
    /// \param parent  null means the composite being composed, if any.
    moNodeUndoCommand(const moUndoString& text, const osg::NodePtr& node, QUndoCommand* parent);

    /// Container id of the node, 0 for a null node.
    unsigned int nodeId() const { return m_nodeId; }

    /// The node; null if it was destroyed or the id names something else by now.
    osg::NodePtr findNode() const;

private:
    unsigned int m_nodeId;
};

/// Sets one value of one node. A subclass says how the value is read (get) and written (set), and declares its id.
///
/// The node is kept by id: once it was destroyed, undo and redo do nothing. A null node makes a command that never does
/// anything.
/// Old value: read at each step, just before the stored one is written; the two then change places, so that redo and
/// undo are one operation. A subclass that overrides redo() changes both.
/// If get() or set() throws, the step did not happen: the node's value is written again as it was, and the stored one
/// stays, so that the step can be tried again. What set() calls after its write goes through moStep::afterwards().
/// Merges with a newer command of the same class and node made within its merge interval; the value from before the
/// first one stays, so that one undo takes the whole series back.
/// Message: "id" (int), "node" (unsigned int).
template<class T>
class moFunctionUndoCommand : public moNodeUndoCommand
{
public:
    /// \param value   what the first redo gives the node.
    /// \param parent  null means the composite being composed, if any.
    moFunctionUndoCommand(const moUndoString& text, osg::NodePtr node, T value, QUndoCommand* parent);

    /// Calls redo().
    void undo() override;
    /// Exchanges the stored value with the node's.
    void redo() override;
    /// Takes over the newer command's time; the stored value stays.
    bool mergeWith(const QUndoCommand* other) override;
    /// Asks for the same node, too.
    bool canMergeWith(const QUndoCommand* other) const override;

protected:
    /// The value that the node has now; the node is never null.
    virtual T get(osg::NodePtr node) = 0;
    /// Gives the node a value; the node is never null.
    virtual void set(osg::NodePtr node, T value) = 0;

private:
    void putBack(T old);

    T m_value;
};

template<class T>
moFunctionUndoCommand<T>::moFunctionUndoCommand(const moUndoString& text, osg::NodePtr node, T value,
                                                QUndoCommand* parent)
    : moNodeUndoCommand(text, node, parent), m_value(std::move(value))
{
}

template<class T>
void moFunctionUndoCommand<T>::undo()
{
    redo();
}

template<class T>
void moFunctionUndoCommand<T>::redo()
{
    moStep::run([this] {
        const osg::NodePtr node = findNode();
        if (node == osg::NullFC) return;
        T old = get(node);
        try {
            set(node, m_value);
        } catch (...) {
            moStep::takeBack([this, &old] { putBack(std::move(old)); });
            throw;
        }
        m_value = std::move(old);
    });
}

template<class T>
void moFunctionUndoCommand<T>::putBack(T old)
{
    if (const osg::NodePtr node = findNode()) set(node, std::move(old));
}

template<class T>
bool moFunctionUndoCommand<T>::mergeWith(const QUndoCommand* other)
{
    if (!canMergeWith(other)) return false;
    adoptCreationTime(*static_cast<const moUndoCommand*>(other));
    return true;
}

template<class T>
bool moFunctionUndoCommand<T>::canMergeWith(const QUndoCommand* other) const
{
    if (!moUndoCommand::canMergeWith(other)) return false;
    const auto* newer = this->castLike(*this, other);
    return newer && newer->nodeId() == nodeId();
}

// The values that the library's own commands set; lights add theirs.
extern template class MO_UNDO_STACK_EXPORT moFunctionUndoCommand<bool>;
extern template class MO_UNDO_STACK_EXPORT moFunctionUndoCommand<float>;
extern template class MO_UNDO_STACK_EXPORT moFunctionUndoCommand<osg::Vec3f>;
extern template class MO_UNDO_STACK_EXPORT moFunctionUndoCommand<osg::Quaternion>;
extern template class MO_UNDO_STACK_EXPORT moFunctionUndoCommand<std::string>;
