#include <sceneeditor/properties/PropertyDocks.h>

#include <sceneeditor/properties/ConstraintDock.h>
#include <sceneeditor/properties/FieldDock.h>
#include <sceneeditor/properties/LensFlareDock.h>
#include <sceneeditor/properties/LightDock.h>
#include <sceneeditor/properties/LightLinksDock.h>
#include <sceneeditor/properties/MaterialDock.h>
#include <sceneeditor/properties/TransformDock.h>
#include <sceneeditor/properties/VariantDock.h>

std::vector<QDockWidget*> makePropertyDocks(EditorSession& session, QWidget* parent)
{
    return {
        new TransformDock(session, parent),  new VariantDock(session, parent),    new LightDock(session, parent),
        new LensFlareDock(session, parent),  new LightLinksDock(session, parent), new MaterialDock(session, parent),
        new ConstraintDock(session, parent), new FieldDock(session, parent),
    };
}
