#pragma once

#include <moUndoStack/light/moLightUndoCommand.h>

#include <type_traits>

// The commands that set one property of one light. Each is a class here and a row of the table in the source file.

/// Base of the commands below that set a value.
///
/// Old value: read at each step. Merges with a newer command of the same class and light made within its merge
/// interval; one undo then returns to the value before the first. If the light was destroyed, undo and redo are no-ops.
/// moLights decides about a node that is no light, and about values out of range.
/// Message: "id" (int), "lightCommand" = true (bool).
///
/// The constructors take the light's node (null makes the command inert), the new value, and the parent (null means the
/// composite being composed, if any). Only the library has rows: derive a command of your own from moLightUndoCommand.
template<class T>
class moLightPropertyUndoCommand : public moLightUndoCommand<T>
{
    static_assert(std::is_same_v<T, osg::Vec3f> || std::is_same_v<T, float> ||
                      std::is_same_v<T, osg::UberLight::LightAttenuation>,
                  "moLightPropertyUndoCommand is for the library's own commands: derive from moLightUndoCommand");

protected:
    /// Text, getter and setter of one command.
    struct Row;

    /// \param row  outlives the command.
    moLightPropertyUndoCommand(const Row& row, const osg::NodePtr& light, T value, QUndoCommand* parent);

    /// Reads as the row says.
    T get(osg::NodePtr node) override;
    /// Writes as the row says.
    void set(osg::NodePtr node, T value) override;

private:
    const Row& m_row;
};

extern template class MO_UNDO_STACK_EXPORT moLightPropertyUndoCommand<osg::Vec3f>;
extern template class MO_UNDO_STACK_EXPORT moLightPropertyUndoCommand<float>;
extern template class MO_UNDO_STACK_EXPORT moLightPropertyUndoCommand<osg::UberLight::LightAttenuation>;

/// Base of the commands below that switch something on or off. As moLightPropertyUndoCommand, except that it merges
/// only with a command of the same text.
class MO_UNDO_STACK_EXPORT moLightSwitchUndoCommand : public moLightsFunctionUndoCommand<bool>
{
protected:
    /// Texts for on and off, getter and setter of one command.
    struct Row;

    /// \param row  outlives the command.
    moLightSwitchUndoCommand(const Row& row, const osg::NodePtr& light, bool value, QUndoCommand* parent);
};

/// Sets the diffuse colour.
class MO_UNDO_STACK_EXPORT moLightDiffuseUndoCommand : public moLightPropertyUndoCommand<osg::Vec3f>
{
    MO_UNDO_COMMAND_ID
    Q_DECL_HIDDEN static const Row s_row;

public:
    /// \param value  red, green, blue; 1 is full.
    moLightDiffuseUndoCommand(const osg::NodePtr& light, osg::Vec3f value, QUndoCommand* parent);
};

/// Sets the specular colour.
class MO_UNDO_STACK_EXPORT moLightGlossyUndoCommand : public moLightPropertyUndoCommand<osg::Vec3f>
{
    MO_UNDO_COMMAND_ID
    Q_DECL_HIDDEN static const Row s_row;

public:
    /// \param value  red, green, blue; 1 is full.
    moLightGlossyUndoCommand(const osg::NodePtr& light, osg::Vec3f value, QUndoCommand* parent);
};

/// Sets the intensity.
class MO_UNDO_STACK_EXPORT moLightIntensityUndoCommand : public moLightPropertyUndoCommand<float>
{
    MO_UNDO_COMMAND_ID
    Q_DECL_HIDDEN static const Row s_row;

public:
    /// \param value  light value, in the unit of the light.
    moLightIntensityUndoCommand(const osg::NodePtr& light, float value, QUndoCommand* parent);
};

/// Sets the angle of the soft edge of the light's cone.
class MO_UNDO_STACK_EXPORT moLightPenumbraAngleUndoCommand : public moLightPropertyUndoCommand<float>
{
    MO_UNDO_COMMAND_ID
    Q_DECL_HIDDEN static const Row s_row;

public:
    /// \param value  degrees.
    moLightPenumbraAngleUndoCommand(const osg::NodePtr& light, float value, QUndoCommand* parent);
};

/// Sets the angle of the light's cone.
class MO_UNDO_STACK_EXPORT moLightConeAngleUndoCommand : public moLightPropertyUndoCommand<float>
{
    MO_UNDO_COMMAND_ID
    Q_DECL_HIDDEN static const Row s_row;

public:
    /// \param value  degrees.
    moLightConeAngleUndoCommand(const osg::NodePtr& light, float value, QUndoCommand* parent);
};

/// Sets how the light falls off with the distance. The light library rescales the light value when the mode changes.
/// The command writes the former light value again, so that the user sees the same number.
class MO_UNDO_STACK_EXPORT moLightAttenuationUndoCommand
    : public moLightPropertyUndoCommand<osg::UberLight::LightAttenuation>
{
    MO_UNDO_COMMAND_ID
    Q_DECL_HIDDEN static const Row s_row;

public:
    /// \param value  the mode.
    moLightAttenuationUndoCommand(const osg::NodePtr& light, osg::UberLight::LightAttenuation value,
                                  QUndoCommand* parent);

protected:
    /// Writes the mode and then the light value from before.
    void set(osg::NodePtr node, osg::UberLight::LightAttenuation mode) override;
};

/// Switches the light on or off.
class MO_UNDO_STACK_EXPORT moLightEnableUndoCommand : public moLightSwitchUndoCommand
{
    MO_UNDO_COMMAND_ID
    Q_DECL_HIDDEN static const Row s_row;

public:
    /// \param value  true: on.
    moLightEnableUndoCommand(const osg::NodePtr& light, bool value, QUndoCommand* parent);
};

/// Shows or hides the symbol that the editor draws for the light. Intended: the text, "Show Light" or "Hide Light",
/// names what the user did, also while it is undone, and only commands of one text merge. See
/// docs/oddities.md#the-text-does-not-follow-the-direction and docs/oddities.md#show-and-hide-merge-with-their-like.
class MO_UNDO_STACK_EXPORT moLightVisibleUndoCommand : public moLightSwitchUndoCommand
{
    MO_UNDO_COMMAND_ID
    Q_DECL_HIDDEN static const Row s_row;

public:
    /// \param value  true: shown.
    moLightVisibleUndoCommand(const osg::NodePtr& light, bool value, QUndoCommand* parent);
};
