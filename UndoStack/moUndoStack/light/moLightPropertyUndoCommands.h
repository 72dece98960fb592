#pragma once

#include <moUndoStack/light/moLightUndoCommand.h>

// The commands that set one property of one light. All of them:
// - take the light's node (null makes the command inert), the new value, and the parent (null means the composite being
//   composed, if any);
// - read the old value at their first redo;
// - merge with a newer command of the same class and node made within its merge interval (the two switches only if the
//   texts are equal too); one undo then returns to the value before the first;
// - do nothing once the node was destroyed, and leave a node that is no light, and values out of range, to moLights;
// - send "id" (int) and "lightCommand" = true (bool).

#define MO_LIGHT_VALUE(Command, T)                                                                                     \
    class MO_UNDO_STACK_EXPORT Command : public moLightUndoCommand<T>                                                  \
    {                                                                                                                  \
        MO_UNDO_COMMAND_ID                                                                                             \
                                                                                                                       \
    public:                                                                                                            \
        Command(const osg::NodePtr& light, T value, QUndoCommand* parent);                                             \
                                                                                                                       \
    protected:                                                                                                         \
        T get(osg::NodePtr node) override;                                                                             \
        void set(osg::NodePtr node, T value) override;                                                                 \
    };

#define MO_LIGHT_SWITCH(Command)                                                                                       \
    class MO_UNDO_STACK_EXPORT Command : public moLightsFunctionUndoCommand<bool>                                      \
    {                                                                                                                  \
        MO_UNDO_COMMAND_ID                                                                                             \
                                                                                                                       \
    public:                                                                                                            \
        Command(const osg::NodePtr& light, bool value, QUndoCommand* parent);                                          \
    };

/// Sets the diffuse colour (red, green, blue; 1 is full).
MO_LIGHT_VALUE(moLightDiffuseUndoCommand, osg::Vec3f)

/// Sets the specular colour (red, green, blue; 1 is full).
MO_LIGHT_VALUE(moLightGlossyUndoCommand, osg::Vec3f)

/// Sets the intensity: the light value, in the unit of the light.
MO_LIGHT_VALUE(moLightIntensityUndoCommand, float)

/// Sets the angle of the soft edge of the light's cone, in degrees.
MO_LIGHT_VALUE(moLightPenumbraAngleUndoCommand, float)

/// Sets the angle of the light's cone, in degrees.
MO_LIGHT_VALUE(moLightConeAngleUndoCommand, float)

/// Sets how the light falls off with the distance. The light library rescales the light value with the mode; the
/// command puts it back, so that the number that the user sees stays.
MO_LIGHT_VALUE(moLightAttenuationUndoCommand, osg::UberLight::LightAttenuation)

/// Switches the light on (true) or off.
MO_LIGHT_SWITCH(moLightEnableUndoCommand)

/// Shows (true) or hides the symbol that the editor draws for the light. The text, "Show Light" or "Hide Light",
/// follows the value given here and stays the same when undo restores the other state; this is intended.
MO_LIGHT_SWITCH(moLightVisibleUndoCommand)

#undef MO_LIGHT_VALUE
#undef MO_LIGHT_SWITCH
