#pragma once

#include <support/EditTrace.h>
#include <support/Trace.h>
#include <support/UndoTest.h>

#include <moUndoStack/core/moUndoCommandBase.h>
#include <moUndoStack/field/moFieldUndoCommand.h>

#include <moOpenSGUberMaterial/OSGUBRDFMaterial.h>
#include <moOpenSGUberMaterial/OSGUberMaterial.h>
#include <moUndoUtils/moUndoString.h>

/// A material with one colour, which is white, and a second pair to tell the first from. All are traced and held by the
/// test alone, except the settings, which their materials hold, too.
class MaterialTest : public UndoTest
{
protected:
    using Data = std::vector<float>;

    void SetUp() override;
    void TearDown() override;

    /// What the renderer reads: red, green, blue, planar projection.
    Data rendered() const { return material->getColorComponentData().getValues(); }

    moFieldUndoCommand<float>* setRed(float value, QUndoCommand* parent = nullptr)
    {
        return new moFieldUndoCommand<float>(moUndoString("Red", QString()), settings, "red", value, parent);
    }

    /// Destroys the container, which nobody else may hold by then; the handle becomes null.
    template<class Ptr>
    void destroy(Ptr& container)
    {
        osg::subRefCP(container);
        EXPECT_EQ(container, osg::NullFC) << "somebody else holds it";
    }
    void destroySettings();

    static unsigned int id(const osg::FieldContainerPtr& container) { return container.getFieldContainerId(); }
    /// " name=uint:id", as it stands in the description of a message.
    static std::string key(const char* name, unsigned int id);
    static std::string messageOf(const moUndoCommandBase& command);

    const moUndoString text{"Colour", QString()};

    EditTrace edits;
    osg::ColorComponentSettingsPtr settings;
    osg::UberMaterialPtr material;
    osg::ColorComponentSettingsPtr otherSettings;
    osg::UberMaterialPtr otherMaterial;
    osg::UBRDFMaterialPtr glass;
    osg::MaterialPtr sky;
};
