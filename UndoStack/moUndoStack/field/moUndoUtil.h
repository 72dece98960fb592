#pragma once

#include <moUndoStack/core/moUndoStackExport.h>

#include <moOpenSGUtils/moNodePtr.h>

#include <OpenSG/OSGImage.h>
#include <OpenSG/OSGNode.h>

#include <QtCore/QString>

#include <cstdint>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

class QUndoCommand;
class moUndoStack;
class moUndoString;

/// Helpers for fields, images, stacks and names. It has no data; all members are static.
///
/// What cannot be done (null container, unknown name, a field of another type) is ignored without a message.
class MO_UNDO_STACK_EXPORT moUndoUtil
{
    /// Pointers of any kind, and what converts to one: all of them would convert to a bool.
    template<class Value>
    static constexpr bool isPointer =
        std::is_pointer_v<std::decay_t<Value>> || std::is_member_pointer_v<std::decay_t<Value>> ||
        std::is_convertible_v<Value, const volatile void*>;

public:
    /// The description of the container's field of that name. If there is none, that of the same name with the case of
    /// its first character changed, if that is an ASCII letter, whatever the locale. Null if there is neither, and for
    /// an empty name. The description belongs to the container's type.
    static osg::FieldDescription* findField(osg::FieldContainerPtr container, const std::string& name);

    /// Makes the command that sets a field to a value. With a parent, it becomes a child of that. Without one, it
    /// becomes a child of the composite being composed, if any, or is recorded on the default stack.
    ///
    /// The field's type decides which command it is, not the overload. Integers and bools fit any integer or bool
    /// field: an integer is cut to the field's width, and any number but 0 is true. float and double fit both kinds of
    /// floating field. Intended: integers do not fit floating fields, nor floats integer fields, because a value that
    /// does not fit the field is left alone. See docs/oddities.md#integers-and-floats-do-not-mix.
    ///
    /// Intended: the command is recorded also while recording is off, as by moUndoStack::add(), because only
    /// addOrExecute() asks. See docs/oddities.md#add-records-while-recording-is-off. If a composite is being composed
    /// while recording is off, nothing is made.
    ///
    /// \param fieldName  as findField() takes it.
    /// \param parent     owns the command; null as above.
    static void makeCommand(const moUndoString& text, osg::FieldContainerPtr container, const std::string& fieldName,
                            bool value, QUndoCommand* parent = nullptr);
    /// The same for an integer.
    static void makeCommand(const moUndoString& text, osg::FieldContainerPtr container, const std::string& fieldName,
                            unsigned char value, QUndoCommand* parent = nullptr);
    /// The same for an integer.
    static void makeCommand(const moUndoString& text, osg::FieldContainerPtr container, const std::string& fieldName,
                            signed char value, QUndoCommand* parent = nullptr);
    /// The same for an integer.
    static void makeCommand(const moUndoString& text, osg::FieldContainerPtr container, const std::string& fieldName,
                            unsigned short value, QUndoCommand* parent = nullptr);
    /// The same for an integer.
    static void makeCommand(const moUndoString& text, osg::FieldContainerPtr container, const std::string& fieldName,
                            short value, QUndoCommand* parent = nullptr);
    /// The same for an integer.
    static void makeCommand(const moUndoString& text, osg::FieldContainerPtr container, const std::string& fieldName,
                            unsigned int value, QUndoCommand* parent = nullptr);
    /// The same for an integer.
    static void makeCommand(const moUndoString& text, osg::FieldContainerPtr container, const std::string& fieldName,
                            int value, QUndoCommand* parent = nullptr);
    /// The same for an integer.
    static void makeCommand(const moUndoString& text, osg::FieldContainerPtr container, const std::string& fieldName,
                            std::int64_t value, QUndoCommand* parent = nullptr);
    /// The same for an integer.
    static void makeCommand(const moUndoString& text, osg::FieldContainerPtr container, const std::string& fieldName,
                            std::uint64_t value, QUndoCommand* parent = nullptr);
    /// The same for a float.
    static void makeCommand(const moUndoString& text, osg::FieldContainerPtr container, const std::string& fieldName,
                            float value, QUndoCommand* parent = nullptr);
    /// The same for a double.
    static void makeCommand(const moUndoString& text, osg::FieldContainerPtr container, const std::string& fieldName,
                            double value, QUndoCommand* parent = nullptr);

    /// Does not compile: a pointer, and so a text, is no value.
    template<class Value, std::enable_if_t<isPointer<Value>, int> = 0>
    static void makeCommand(const moUndoString& text, osg::FieldContainerPtr container, const std::string& fieldName,
                            Value&& value, QUndoCommand* parent = nullptr) = delete;

    /// makeCommand() for integers and bools; its overloads call it.
    static void makeIntTypeCommand(const moUndoString& text, osg::FieldContainerPtr container,
                                   const std::string& fieldName, std::int64_t value, QUndoCommand* parent = nullptr);

    /// makeCommand() for float and double; its overloads call it.
    static void makeFloatTypeCommand(const moUndoString& text, osg::FieldContainerPtr container,
                                     const std::string& fieldName, double value, QUndoCommand* parent = nullptr);

    /// The same as moUndoStack::get(stackType).
    static moUndoStack& the(unsigned int stackType);

    /// The image in a field of the container with that id; null if there is no such container or image field. Adds no
    /// reference.
    static osg::ImagePtr getImageValue(unsigned int containerId, const std::string& fieldName);

    /// Sets an image field to the texture manager's image for `image`, without an undo command. Adds a reference on the
    /// image that enters the field and releases one on the image that leaves it. Unlike moImageFieldUndoCommand, it
    /// does not release the given image if another one enters. See docs/oddities.md#an-image-is-handed-over.
    static void setImageValue(osg::ImagePtr image, unsigned int containerId, const std::string& fieldName);

    /// The node's name in apostrophes, not escaped; '' for a null or nameless node.
    static QString makeNameList(const moNodePtr& node);
    /// The same for a plain handle.
    static QString makeNameList(const osg::NodePtr& node);

    /// The names of the first maxCount nodes, each in apostrophes, separated by ", ". Null and nameless nodes count but
    /// are not listed. If there are more than maxCount nodes, "..." follows. '' if there is nothing to list.
    static QString makeNameList(const std::vector<osg::NodePtr>& nodes, std::uint64_t maxCount);
    /// The same for all nodes.
    static QString makeNameList(const std::vector<osg::NodePtr>& nodes);
    /// The same for the first maxCount nodes of this type.
    static QString makeNameList(const std::vector<moNodePtr>& nodes, std::uint64_t maxCount);
    /// The same for all nodes of this type.
    static QString makeNameList(const std::vector<moNodePtr>& nodes);

    /// The same for pairs of a node and the index of a transform variant. Intended, part of the interface: a node that
    /// has a variant with a name at that index is listed with its own name twice, 'BoxBox', and not with the variant's.
    /// See docs/oddities.md#a-name-twice.
    static QString makeNameList(const std::vector<std::pair<osg::NodePtr, int>>& nodes, std::uint64_t maxCount);
};
