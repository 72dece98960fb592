#include <sceneeditor/properties/PropertyDocks.h>

#include <sceneeditor/properties/ConstraintDock.h>
#include <sceneeditor/properties/FieldDock.h>
#include <sceneeditor/properties/TransformDock.h>
#include <sceneeditor/properties/VariantDock.h>

std::vector<QDockWidget*> makePropertyDocks(EditorSession& session, QWidget* parent)
{
    return {new TransformDock(session, parent), new VariantDock(session, parent), new ConstraintDock(session, parent),
            new FieldDock(session, parent)};
}
