#pragma once

#include <sceneeditor/properties/PropertyDock.h>
#include <sceneeditor/properties/ValueRow.h>

#include <OpenSG/OSGNode.h>

class moUndoCommandBase;

/// The properties of the selected lights: shows those of the light selected last, and sets those of all.
class LightDock : public PropertyDock
{
    Q_OBJECT

public:
    explicit LightDock(EditorSession& session, QWidget* parent = nullptr);

private:
    template<class Shown, class Value>
    PropertyForm::Read<Shown> reads(Value (*getter)(const osg::NodePtr& light)) const;
    template<class Command, class Value, class Shown>
    PropertyForm::Write<Shown> writes(const QString& text);
    void applyToLights(const QString& text, const std::function<moUndoCommandBase*(const osg::NodePtr&)>& make);

    void addShine();
    void addReference();
    QString heading() const;
    osg::NodePtr reference() const;
    osg::NodePtr newReference() const;
    void setReference(const osg::NodePtr& node);
};
