#pragma once

#include <moUndoStack/core/moFunctionUndoCommand.h>

#include <moOpenSGUberLight/OSGUberLight.h>

#include <functional>
#include <type_traits>
#include <utility>

/// Base of the commands that set one property of one light.
///
/// Whether the node is a light is not looked at here: what a property of another node is, the derived class's get and
/// set decide. Undo, redo and merging are those of moFunctionUndoCommand. Message: "id" (int), "lightCommand" = true
/// (bool). There is no "node" key, unlike other function commands; this is intended.
template<class T>
class moLightUndoCommand : public moFunctionUndoCommand<T>
{
public:
    /// \param light       the light's node; null makes the command inert.
    /// \param lightFlags  kept for derived classes; nothing in the library reads it.
    /// \param value       what the first redo gives the light.
    /// \param parent      null means the composite being composed, if any.
    moLightUndoCommand(const moUndoString& text, const osg::NodePtr& light, unsigned int lightFlags, T value,
                       QUndoCommand* parent);

    /// Sets "id" and "lightCommand"; leaves out "node".
    void makeMessage(moMessage& message) const override;

protected:
    /// As given at construction.
    unsigned int m_lightFlags;
};

/// The same with the reading and the writing given as functions.
///
/// Merges as moLightUndoCommand does, and only with a command of the same text: what the user reads as two different
/// actions stays two steps. For bool only: that is what the library exports.
template<class T>
class moLightsFunctionUndoCommand : public moLightUndoCommand<T>
{
    static_assert(std::is_same_v<T, bool>,
                  "moLightsFunctionUndoCommand is for bool; for another value derive from moLightUndoCommand");
    MO_UNDO_COMMAND_ID

public:
    /// Reads the value of a node, which is never null.
    using Getter = std::function<T(const osg::NodePtr&)>;
    /// Writes it.
    using Setter = std::function<void(const osg::NodePtr&, T)>;

    /// \param getter, setter  copied and called at each undo and redo. An empty one makes the step throw
    ///                        std::bad_function_call.
    moLightsFunctionUndoCommand(const moUndoString& text, const osg::NodePtr& light, T value, const Getter& getter,
                                const Setter& setter, QUndoCommand* parent);

    /// Asks for the same text, too.
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
    // Past the function command and its "node", as intended. NOLINTNEXTLINE(bugprone-parent-virtual-call)
    moUndoCommand::makeMessage(message);
    message.set("lightCommand", true, true);
}

extern template class MO_UNDO_STACK_EXPORT moFunctionUndoCommand<osg::UberLight::LightAttenuation>;
extern template class MO_UNDO_STACK_EXPORT moLightUndoCommand<osg::Vec3f>;
extern template class MO_UNDO_STACK_EXPORT moLightUndoCommand<float>;
extern template class MO_UNDO_STACK_EXPORT moLightUndoCommand<bool>;
extern template class MO_UNDO_STACK_EXPORT moLightUndoCommand<osg::UberLight::LightAttenuation>;
extern template class MO_UNDO_STACK_EXPORT moLightsFunctionUndoCommand<bool>;
