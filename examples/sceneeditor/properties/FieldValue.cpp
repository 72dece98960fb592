#include <sceneeditor/properties/FieldValue.h>

#include <OpenSG/OSGImage.h>
#include <OpenSG/OSGMFSysTypes.h>
#include <OpenSG/OSGSFMathTypes.h>
#include <OpenSG/OSGSFSysTypes.h>
#include <OpenSG/OSGSFVecTypes.h>

namespace {

/// The value of the field if it is one of these types.
template<class... Fields>
std::optional<double> asDouble(const osg::Field& field)
{
    std::optional<double> value;
    const auto read = [&value](const auto* typed) {
        if (typed) value = static_cast<double>(typed->getValue());
    };
    (read(dynamic_cast<const Fields*>(&field)), ...);
    return value;
}

/// The numbers of a vector; only for these types, as not every OpenSG has a text for all the others.
template<class... Fields>
QString numbers(const osg::Field& field)
{
    std::string text;
    if (((dynamic_cast<const Fields*>(&field) != nullptr) || ...)) field.getValueByStr(text);
    return QString::fromStdString(text);
}

QString sizeOf(const osg::ImagePtr& image)
{
    if (image == osg::NullFC) return QStringLiteral("–");
    return QStringLiteral("%1 × %2").arg(image->getWidth()).arg(image->getHeight());
}

} // namespace

std::optional<double> wholeOf(const osg::Field& field)
{
    return asDouble<osg::SFInt8, osg::SFUInt8, osg::SFInt16, osg::SFUInt16, osg::SFInt32, osg::SFUInt32, osg::SFInt64,
                    osg::SFUInt64>(field);
}

std::optional<double> numberOf(const osg::Field& field)
{
    return asDouble<osg::SFReal32, osg::SFReal64>(field);
}

std::optional<bool> flagOf(const osg::Field& field)
{
    const auto* const typed = dynamic_cast<const osg::SFBool*>(&field);
    return typed ? std::optional<bool>(typed->getValue()) : std::nullopt;
}

std::optional<QString> textOf(const osg::Field& field)
{
    const auto* const typed = dynamic_cast<const osg::SFString*>(&field);
    return typed ? std::optional<QString>(QString::fromStdString(typed->getValue())) : std::nullopt;
}

std::optional<QStringList> listOf(const osg::Field& field)
{
    const auto* const typed = dynamic_cast<const osg::MFString*>(&field);
    if (!typed) return std::nullopt;
    QStringList list;
    for (const std::string& text : *typed)
        list.append(QString::fromStdString(text));
    return list;
}

bool isImage(const osg::Field& field)
{
    return dynamic_cast<const osg::SFImagePtr*>(&field) != nullptr;
}

QString summaryOf(const osg::Field& field)
{
    if (const auto whole = wholeOf(field)) return QString::number(*whole, 'f', 0);
    if (const auto number = numberOf(field)) return QString::number(*number);
    if (const auto flag = flagOf(field)) return *flag ? QStringLiteral("on") : QStringLiteral("off");
    if (const auto text = textOf(field)) return *text;
    if (const auto list = listOf(field)) return list->join(QStringLiteral(", "));
    if (isImage(field)) return sizeOf(static_cast<const osg::SFImagePtr&>(field).getValue());
    if (field.getCardinality() == osg::FieldType::MULTI_FIELD) return QStringLiteral("[%1]").arg(field.getSize());
    return numbers<osg::SFVec2f, osg::SFVec3f, osg::SFVec4f, osg::SFColor3f, osg::SFColor4f, osg::SFQuaternion,
                   osg::SFMatrix>(field);
}
