#pragma once

#include <moUndoStack/core/moUndoCommand.h>

#include <OpenSG/OSGNode.h>
#include <OpenSG/OSGVector.h>

#include <QtCore/QCoreApplication>

#include <string>

/// Makes a light shine with the shape of its profile, in the default unit. The light value is that of the profile if it
/// is above 0, else the light's own.
///
/// Old value: type, scale and light value are read at construction. Intended: the unit is not, because the light
/// library chooses it with the type. Undo, and a failed redo, leave the unit of the old type. See
/// docs/oddities.md#the-unit-of-a-light-is-not-remembered. Never merges. Message: "id" (int).
/// For lights. For any other node the command keeps no old values: redo and undo call the light library, undo with an
/// empty type name, and do not write the node's transform. The light library ignores a null or destroyed light.
class MO_UNDO_STACK_EXPORT moSetLightProfileShapeCommand : public moUndoCommand
{
    Q_DECLARE_TR_FUNCTIONS(moSetLightProfileShapeCommand)
    MO_UNDO_COMMAND_ID

public:
    /// \param light   the light's node.
    /// \param parent  owns the command; null means the composite being composed, if any.
    moSetLightProfileShapeCommand(const osg::NodePtr& light, QUndoCommand* parent);

    /// Restores type, scale and light value.
    void undo() override;
    /// Sets shape, unit and light value.
    void redo() override;
    /// Never merges.
    bool canMergeWith(const QUndoCommand* /*other*/) const override { return false; }

private:
    /// Looks the light up, before each edit: a listener to the edit before may have destroyed it.
    osg::NodePtr light() const;

    void restore(const std::string& typeName, const osg::Vec3f& scale, float lightValue);
    void setLightValue(float value);

    unsigned int m_lightId;
    std::string m_typeName;
    osg::Vec3f m_scale;
    float m_lightValue = 0.f;
};
