#pragma once

#include <moUndoStack/core/moFunctionUndoCommand.h>

#include <moOpenSGUberLight/OSGUberLight.h>

#include <functional>
#include <type_traits>
#include <utility>

/// Base of the commands that set one property of one light.
///
/// Does not check that the node is a light: get() and set() of the derived class decide about other nodes. Undo, redo
/// and merging are those of moFunctionUndoCommand. Message: "id" (int), "lightCommand" = true (bool). Intended: no
/// "node", unlike other function commands; this is part of the interface. See docs/oddities.md#light-without-node.
template<class T>
class moLightUndoCommand : public moFunctionUndoCommand<T>
{
public:
    /// \param light       the light's node; null makes the command inert.
    /// \param lightFlags  for derived classes; the library does not read it and passes 0.
    /// \param value       what the first redo writes.
    /// \param parent      owns the command; null means the composite being composed, if any.
    moLightUndoCommand(const moUndoString& text, const osg::NodePtr& light, unsigned int lightFlags, T value,
                       QUndoCommand* parent);

    /// Sets "id" and "lightCommand"; leaves out "node".
    void makeMessage(moMessage& message) const override;

protected:
    /// The flags given to the constructor.
    unsigned int m_lightFlags;
};

/// The same with getter and setter given as functions.
///
/// Merges as moLightUndoCommand does, but only with a command of the same text, so that commands that the user reads as
/// different stay apart. See docs/oddities.md#show-and-hide-merge-with-their-like. For bool only: that is what the
/// library exports.
template<class T>
class moLightsFunctionUndoCommand : public moLightUndoCommand<T>
{
    static_assert(std::is_same_v<T, bool>,
                  "moLightsFunctionUndoCommand is for bool; for another value derive from moLightUndoCommand");
    MO_UNDO_COMMAND_ID

public:
    /// Reads the value of a node, which is never null.
    using Getter = std::function<T(const osg::NodePtr&)>;
    /// Writes the value of a node, which is never null.
    using Setter = std::function<void(const osg::NodePtr&, T)>;

    /// \param getter, setter  copied and called at each undo and redo. An empty one makes the step throw
    ///                        std::bad_function_call.
    moLightsFunctionUndoCommand(const moUndoString& text, const osg::NodePtr& light, T value, const Getter& getter,
                                const Setter& setter, QUndoCommand* parent);

    /// Adds: both have the same text.
    bool canMergeWith(const QUndoCommand* other) const override;

protected:
    /// Calls the getter.
    T get(osg::NodePtr node) override;
    /// Calls the setter.
    void set(osg::NodePtr node, T value) override;

private:
    Getter m_getter;
    Setter m_setter;
};

template<class T>
moLightUndoCommand<T>::moLightUndoCommand(const moUndoString& text, const osg::NodePtr& light, unsigned int lightFlags,
                                          T value, QUndoCommand* parent)
    : moFunctionUndoCommand<T>(text, light, std::move(value), parent), m_lightFlags(lightFlags)
{
}

template<class T>
void moLightUndoCommand<T>::makeMessage(moMessage& message) const
{
    // Skips the base class, which adds "node". Intended: docs/oddities.md#light-without-node.
    // NOLINTNEXTLINE(bugprone-parent-virtual-call)
    moUndoCommand::makeMessage(message);
    message.set("lightCommand", true, true);
}

extern template class MO_UNDO_STACK_EXPORT moFunctionUndoCommand<osg::UberLight::LightAttenuation>;
extern template class MO_UNDO_STACK_EXPORT moLightUndoCommand<osg::Vec3f>;
extern template class MO_UNDO_STACK_EXPORT moLightUndoCommand<float>;
extern template class MO_UNDO_STACK_EXPORT moLightUndoCommand<bool>;
extern template class MO_UNDO_STACK_EXPORT moLightUndoCommand<osg::UberLight::LightAttenuation>;
extern template class MO_UNDO_STACK_EXPORT moLightsFunctionUndoCommand<bool>;
