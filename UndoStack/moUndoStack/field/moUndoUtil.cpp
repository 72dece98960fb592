#include <moUndoStack/field/moUndoUtil.h>

#include <moUndoStack/core/moContainer_p.h>
#include <moUndoStack/core/moUndoStack.h>
#include <moUndoStack/field/moBoolFieldUndoCommand.h>
#include <moUndoStack/field/moFieldUndoCommand.h>
#include <moUndoStack/field/moScalarFields_p.h>
#include <moUndoStack/field/moTypedField_p.h>

#include <moOpenSGUberBase/moTextureManager.h>

#include <OpenSG/OSGFieldContainerType.h>
#include <OpenSG/OSGFieldDescription.h>

#include <QtCore/QScopeGuard>

#include <cstring>

namespace {

/// Not toupper(): field names are ASCII, and the C library's locale may have more letters.
char withCaseFlipped(char letter)
{
    if (letter >= 'a' && letter <= 'z') return static_cast<char>(letter - 'a' + 'A');
    if (letter >= 'A' && letter <= 'Z') return static_cast<char>(letter - 'A' + 'a');
    return letter;
}

template<class T>
struct CommandFor
{
    using Type = moFieldUndoCommand<T>;
};

template<>
struct CommandFor<bool>
{
    using Type = moBoolFieldUndoCommand;
};

/// Makes the command for the first of the types that the field has, converts the value to it, and records the command.
template<class Types, class Value>
void makeTypedCommand(Types types, const moUndoString& text, const osg::FieldContainerPtr& container,
                      const std::string& fieldName, Value value, QUndoCommand* parent)
{
    const auto* const description = moUndoUtil::findField(container, fieldName);
    if (!description) return;

    const osg::Field* const field = container->getField(description->getFieldId());
    moUndoCommandBase* command = nullptr;
    moTryInOrder(types, [&](auto type) {
        using T = decltype(type);
        if (!dynamic_cast<const moScalarFieldType<T>*>(field)) return false;
        command = new typename CommandFor<T>::Type(text, container, fieldName, static_cast<T>(value), parent);
        return true;
    });
    if (!command || parent) return;

    // While recording is off, a composition takes no children, and add() leaves the command to its caller.
    if (moUndoStack::isComposing() && !command->parent())
        delete command;
    else
        moUndoUtil::the(0).add(command);
}

/// An image field and its container, looked up for one access.
struct ImageField
{
    ImageField(unsigned int containerId, const std::string& fieldName)
        : container(findContainer<osg::FieldContainerPtr>(containerId)),
          description(moUndoUtil::findField(container, fieldName)),
          field(description ? typedField<osg::SFImagePtr>(container, description->getFieldId()) : nullptr)
    {
    }

    osg::FieldContainerPtr container;
    const osg::FieldDescription* description;
    osg::SFImagePtr* field;
};

} // namespace

osg::FieldDescription* moUndoUtil::findField(osg::FieldContainerPtr container, const std::string& name)
{
    // The type takes a C string: it would find "on" for a name of "on", zero byte, "off".
    if (container == osg::NullFC || name.empty() || std::strlen(name.c_str()) != name.size()) return nullptr;

    osg::FieldContainerType& type = container->getType();
    if (auto* const description = type.findFieldDescription(name.c_str())) return description;

    std::string flipped = name;
    flipped.front() = withCaseFlipped(name.front());
    return type.findFieldDescription(flipped.c_str());
}

#define MO_MAKE_COMMAND(Value, make, As)                                                                               \
    void moUndoUtil::makeCommand(const moUndoString& text, osg::FieldContainerPtr container,                           \
                                 const std::string& fieldName, Value value, QUndoCommand* parent)                      \
    {                                                                                                                  \
        make(text, container, fieldName, static_cast<As>(value), parent);                                              \
    }
// clang-format off
//              value           goes through          as
MO_MAKE_COMMAND(bool,           makeIntTypeCommand,   std::int64_t)
MO_MAKE_COMMAND(unsigned char,  makeIntTypeCommand,   std::int64_t)
MO_MAKE_COMMAND(signed char,    makeIntTypeCommand,   std::int64_t)
MO_MAKE_COMMAND(unsigned short, makeIntTypeCommand,   std::int64_t)
MO_MAKE_COMMAND(short,          makeIntTypeCommand,   std::int64_t)
MO_MAKE_COMMAND(unsigned int,   makeIntTypeCommand,   std::int64_t)
MO_MAKE_COMMAND(int,            makeIntTypeCommand,   std::int64_t)
MO_MAKE_COMMAND(std::int64_t,   makeIntTypeCommand,   std::int64_t)
MO_MAKE_COMMAND(std::uint64_t,  makeIntTypeCommand,   std::int64_t)
MO_MAKE_COMMAND(float,          makeFloatTypeCommand, double)
MO_MAKE_COMMAND(double,         makeFloatTypeCommand, double)
// clang-format on
#undef MO_MAKE_COMMAND

void moUndoUtil::makeIntTypeCommand(const moUndoString& text, osg::FieldContainerPtr container,
                                    const std::string& fieldName, std::int64_t value, QUndoCommand* parent)
{
    makeTypedCommand(moIntegerTypesAnd<bool>(), text, container, fieldName, value, parent);
}

void moUndoUtil::makeFloatTypeCommand(const moUndoString& text, osg::FieldContainerPtr container,
                                      const std::string& fieldName, double value, QUndoCommand* parent)
{
    makeTypedCommand(moFloatTypes(), text, container, fieldName, value, parent);
}

moUndoStack& moUndoUtil::the(unsigned int stackType)
{
    return moUndoStack::get(stackType);
}

osg::ImagePtr moUndoUtil::getImageValue(unsigned int containerId, const std::string& fieldName)
{
    const ImageField target(containerId, fieldName);
    return target.field ? target.field->getValue() : osg::ImagePtr();
}

void moUndoUtil::setImageValue(osg::ImagePtr image, unsigned int containerId, const std::string& fieldName)
{
    const ImageField target(containerId, fieldName);
    if (!target.field) return;

    const osg::ImagePtr shared = moTextureManager::the()->getImage(image, true);
    addReference(shared);
    const osg::ImagePtr previous = target.field->getValue();
    const auto always = qScopeGuard([&previous] { releaseReference(previous); });
    const ContainerEdit edit(target.container, target.description->getFieldMask());
    target.field->setValue(shared);
}
