#pragma once

#include <moUndoStack/core/moUndoCommand.h>

#include <OpenSG/OSGNode.h>
#include <OpenSG/OSGVector.h>

#include <QtCore/QCoreApplication>

#include <string>

/// Makes a light shine with the shape of its profile, in the default unit, and with the light value that the profile
/// states if that is above 0, else with the light's own.
///
/// Old value: type, scale and light value are read at construction. The unit is not; undo leaves the unit that the
/// light library gives the old type, and this is intended, also where a redo that fails is put back. Never merges.
/// Meant for lights. For another node the command remembers nothing: redo and undo still call the light library, undo
/// with an empty type name, and the node's own transform is left alone. The light library ignores a null light or one
/// that was destroyed. Message: "id" (int).
class MO_UNDO_STACK_EXPORT moSetLightProfileShapeCommand : public moUndoCommand
{
    Q_DECLARE_TR_FUNCTIONS(moSetLightProfileShapeCommand)
    MO_UNDO_COMMAND_ID

public:
    moSetLightProfileShapeCommand(const osg::NodePtr& light, QUndoCommand* parent);

    void undo() override;
    void redo() override;
    bool canMergeWith(const QUndoCommand* /*other*/) const override { return false; }

private:
    /// Asked before each edit and not kept: a listener to one edit may destroy the light before the next.
    osg::NodePtr light() const;

    void restore(const std::string& typeName, const osg::Vec3f& scale, float lightValue);
    void setLightValue(float value);

    unsigned int m_lightId;
    std::string m_typeName;
    osg::Vec3f m_scale;
    float m_lightValue = 0.f;
};
