#pragma once

#include <moUndoStack/core/moStep.h>
#include <moUndoStack/core/moUndoCommand.h>

#include <moUtils/moMessage.h>

#include <OpenSG/OSGNode.h>
#include <OpenSG/OSGQuaternion.h>
#include <OpenSG/OSGVector.h>

#include <string>
#include <utility>

namespace moUndoDetail {

/// The node's container id, 0 for a null node.
MO_UNDO_STACK_EXPORT unsigned int nodeId(const osg::NodePtr& node);

/// The node with this id; null when it is gone or when the id names something other than a node.
MO_UNDO_STACK_EXPORT osg::NodePtr findNode(unsigned int id);

} // namespace moUndoDetail

/// Sets one value of one node. A subclass says how the value is read (get) and written (set), and declares its id.
///
/// The node is kept by id: once it is gone, undo and redo do nothing. A null node makes a command that never does
/// anything.
/// Old value: read at each step, just before the stored one is written; the two then change places, so that redo and
/// undo are one operation. A subclass that overrides redo() changes both.
/// If get() or set() throws, the step did not happen: the node's value is written again as it was, and the stored one
/// stays, so that the step can be tried again. What set() calls after its write goes through moStep::afterwards().
/// Merges with a newer command of the same class and node made within its merge interval; the value from before the
/// first one stays, so that one undo takes the whole series back.
/// Message: "id" (int), "node" (unsigned int).
template<class T>
class moFunctionUndoCommand : public moUndoCommand
{
public:
    /// \param value   what the first redo gives the node.
    /// \param parent  null means the composite being composed, if any.
    moFunctionUndoCommand(const moUndoString& text, osg::NodePtr node, T value, QUndoCommand* parent);

    void undo() override;
    void redo() override;
    bool mergeWith(const QUndoCommand* other) override;
    void makeMessage(moMessage& message) const override;
    bool canMergeWith(const QUndoCommand* other) const override;

protected:
    virtual T get(osg::NodePtr node) = 0;
    virtual void set(osg::NodePtr node, T value) = 0;

    /// Container id of the node, 0 for a null node.
    unsigned int nodeId() const { return m_nodeId; }

private:
    void putBack(T old);

    unsigned int m_nodeId;
    T m_value;
};

template<class T>
moFunctionUndoCommand<T>::moFunctionUndoCommand(const moUndoString& text, osg::NodePtr node, T value,
                                                QUndoCommand* parent)
    : moUndoCommand(text, parent), m_nodeId(moUndoDetail::nodeId(node)), m_value(std::move(value))
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
        const osg::NodePtr node = moUndoDetail::findNode(m_nodeId);
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
    if (const osg::NodePtr node = moUndoDetail::findNode(m_nodeId)) set(node, std::move(old));
}

template<class T>
bool moFunctionUndoCommand<T>::mergeWith(const QUndoCommand* other)
{
    if (!canMergeWith(other)) return false;
    adoptCreationTime(*static_cast<const moUndoCommand*>(other));
    return true;
}

template<class T>
void moFunctionUndoCommand<T>::makeMessage(moMessage& message) const
{
    moUndoCommand::makeMessage(message);
    message.set("node", m_nodeId, true);
}

template<class T>
bool moFunctionUndoCommand<T>::canMergeWith(const QUndoCommand* other) const
{
    if (!moUndoCommand::canMergeWith(other)) return false;
    const auto* newer = this->castLike(*this, other);
    return newer && newer->m_nodeId == m_nodeId;
}

// The values that the library's own commands set; lights add theirs.
extern template class MO_UNDO_STACK_EXPORT moFunctionUndoCommand<bool>;
extern template class MO_UNDO_STACK_EXPORT moFunctionUndoCommand<float>;
extern template class MO_UNDO_STACK_EXPORT moFunctionUndoCommand<osg::Vec3f>;
extern template class MO_UNDO_STACK_EXPORT moFunctionUndoCommand<osg::Quaternion>;
extern template class MO_UNDO_STACK_EXPORT moFunctionUndoCommand<std::string>;
