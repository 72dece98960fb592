#include <sceneeditor/properties/FieldRows.h>

#include <sceneeditor/properties/ColorFieldCommand.h>

#include <moUndoStack/field/moBoolFieldUndoCommand.h>
#include <moUndoStack/field/moFieldUndoCommand.h>
#include <moUndoStack/field/moStringFieldUndoCommand.h>
#include <moUndoStack/field/moStringsFieldUndoCommand.h>
#include <moUndoStack/field/moUndoUtil.h>

#include <OpenSG/OSGMFBaseTypes.h>
#include <OpenSG/OSGMFSysTypes.h>
#include <OpenSG/OSGSFBaseTypes.h>
#include <OpenSG/OSGSFMathTypes.h>
#include <OpenSG/OSGSFSysTypes.h>

#include <QtCore/QCoreApplication>

namespace {

/// Null if there is no container, or no field of this name and type.
template<class Field>
Field* fieldOf(const osg::FieldContainerPtr& container, const char* name)
{
    if (container == osg::NullFC) return nullptr;
    const osg::FieldDescription* const description = moUndoUtil::findField(container, name);
    return description ? dynamic_cast<Field*>(container->getField(description->getFieldId())) : nullptr;
}

QString setText(const QString& label)
{
    return QCoreApplication::translate("FieldRows", "Set %1").arg(label);
}

template<class Shown, class Value>
Shown shownOf(const Value& value)
{
    return static_cast<Shown>(value);
}

template<>
QString shownOf<QString, std::string>(const std::string& value)
{
    return QString::fromStdString(value);
}

} // namespace

template<class Field, class Shown>
PropertyForm::Read<Shown> FieldRows::reads(const char* field) const
{
    return [container = m_container, field]() -> std::optional<Shown> {
        const auto* const found = fieldOf<Field>(container(), field);
        if (!found) return std::nullopt;
        return shownOf<Shown>(found->getValue());
    };
}

template<class Command, class Value, class Shown>
PropertyForm::Write<Shown> FieldRows::writes(const QString& label, const char* field) const
{
    const QString text = setText(label);
    return [wording = moUndoString(text, text, m_group), container = m_container, apply = m_apply,
            field](const Shown& shown) {
        if (const osg::FieldContainerPtr found = container(); found != osg::NullFC)
            apply(new Command(wording, found, field, static_cast<Value>(shown)));
    };
}

void FieldRows::addFlag(const QString& label, const QString& name, const char* field)
{
    m_form.addFlag(label, name, reads<osg::SFBool, bool>(field),
                   writes<moBoolFieldUndoCommand, bool, bool>(label, field));
}

void FieldRows::addNumber(const QString& label, const QString& name, const char* field, const NumberStyle& style)
{
    m_form.addNumber(label, name, style, reads<osg::SFReal32, double>(field),
                     writes<moFieldUndoCommand<float>, float, double>(label, field));
}

void FieldRows::addCount(const QString& label, const QString& name, const char* field, int least, int most)
{
    const auto readSigned = reads<osg::SFInt32, int>(field);
    const auto readUnsigned = reads<osg::SFUInt32, int>(field);
    const auto writeSigned = writes<moFieldUndoCommand<int>, int, int>(label, field);
    const auto writeUnsigned = writes<moFieldUndoCommand<unsigned int>, unsigned int, int>(label, field);
    m_form.addCount(
        label, name, least, most,
        [=] {
            const std::optional<int> number = readSigned();
            return number ? number : readUnsigned();
        },
        [=](int number) { readSigned() ? writeSigned(number) : writeUnsigned(number); });
}

void FieldRows::addChoice(const QString& label, const QString& name, const char* field, const QStringList& items)
{
    m_form.addChoice(label, name, items, reads<osg::SFInt32, int>(field),
                     writes<moFieldUndoCommand<int>, int, int>(label, field));
}

void FieldRows::addText(const QString& label, const QString& name, const char* field)
{
    const QString text = setText(label);
    m_form.addText(label, name, reads<osg::SFString, QString>(field),
                   [wording = moUndoString(text, text, m_group), container = m_container, apply = m_apply,
                    field](const QString& shown) {
                       if (const osg::FieldContainerPtr found = container(); found != osg::NullFC)
                           apply(new moStringFieldUndoCommand(wording, found, field, shown.toStdString()));
                   });
}

void FieldRows::addTexts(const QString& label, const QString& name, const char* field)
{
    static const QString separator = QStringLiteral("; ");
    const QString text = setText(label);
    m_form.addText(
        label, name,
        [container = m_container, field]() -> std::optional<QString> {
            const auto* const found = fieldOf<osg::MFString>(container(), field);
            if (!found) return std::nullopt;
            QStringList texts;
            for (const std::string& each : *found)
                texts.append(QString::fromStdString(each));
            return texts.join(separator);
        },
        [wording = moUndoString(text, text, m_group), container = m_container, apply = m_apply,
         field](const QString& shown) {
            const osg::FieldContainerPtr found = container();
            if (found == osg::NullFC) return;
            osg::MFString texts;
            for (const QString& each : shown.split(separator.trimmed(), Qt::SkipEmptyParts))
                texts.push_back(each.trimmed().toStdString());
            apply(new moStringsFieldUndoCommand(wording, found, field, texts));
        });
}

void FieldRows::addColor(const QString& label, const QString& name, const char* field, const ApplyAny& apply)
{
    const QString text = setText(label);
    m_form.addColor<osg::Color3f>(
        label, name, reads<osg::SFColor3f, osg::Color3f>(field),
        [wording = moUndoString(text, text, m_group), container = m_container, apply,
         field](const osg::Color3f& color) {
            const osg::FieldContainerPtr found = container();
            if (fieldOf<osg::SFColor3f>(found, field))
                apply(new ColorFieldCommand(wording, found, moUndoUtil::findField(found, field)->getFieldId(), color));
        });
}
