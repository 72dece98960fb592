#pragma once

#include <sceneeditor/properties/ValueRow.h>

#include <moUndoStack/core/moUndoCommand.h>

#include <OpenSG/OSGFieldContainer.h>

template<class... Nothing>
class moFieldBaseUndoCommand;

/// Adds rows for the fields of a container to a form. Which container it is may change: a row is disabled while there is
/// none, or while it does not have the row's field.
class FieldRows
{
public:
    using Container = std::function<osg::FieldContainerPtr()>;
    /// Runs the command that sets a field, or wraps it in another one.
    using Apply = std::function<void(moFieldBaseUndoCommand<>* command)>;
    using ApplyAny = std::function<void(moUndoCommand* command)>;

    /// \param form   outlives this and the rows.
    /// \param group  of the commands' texts.
    FieldRows(PropertyForm& form, const QString& group, const Container& container, const Apply& apply)
        : m_form(form), m_group(group), m_container(container), m_apply(apply)
    {
    }

    // Each field is of the type that the function's name, or its comment, says.

    void addFlag(const QString& label, const QString& name, const char* field);
    /// Real32.
    void addNumber(const QString& label, const QString& name, const char* field, const NumberStyle& style);
    /// Int32 or UInt32.
    void addCount(const QString& label, const QString& name, const char* field, int least, int most);
    /// Int32.
    void addChoice(const QString& label, const QString& name, const char* field, const QStringList& items);
    void addText(const QString& label, const QString& name, const char* field);
    /// A list of texts, separated by semicolons.
    void addTexts(const QString& label, const QString& name, const char* field);
    /// Color3f. A field command does not fit: \a apply runs a ColorFieldCommand.
    void addColor(const QString& label, const QString& name, const char* field, const ApplyAny& apply);

private:
    template<class Field, class Shown>
    PropertyForm::Read<Shown> reads(const char* field) const;
    template<class Command, class Value, class Shown>
    PropertyForm::Write<Shown> writes(const QString& label, const char* field) const;

    PropertyForm& m_form;
    QString m_group;
    Container m_container;
    Apply m_apply;
};
