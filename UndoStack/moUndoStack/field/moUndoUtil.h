#pragma once

#include <moUndoStack/core/moUndoStackExport.h>

#include <moOpenSGUtils/moNodePtr.h>

#include <OpenSG/OSGImage.h>
#include <OpenSG/OSGNode.h>

#include <QtCore/QString>

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

class QUndoCommand;
class moUndoStack;
class moUndoString;

/// Helpers around fields, images, stacks and names. Holds nothing; all members are static.
///
/// Whatever cannot be done (null container, unknown name, field of a type that does not fit) is left undone in silence.
class MO_UNDO_STACK_EXPORT moUndoUtil
{
public:
    /// The description of the container's field of that name, or else of the same name with the case of its first
    /// character flipped; null if there is neither. The rest of the name is taken as it is. An empty name is never found.
    static osg::FieldDescription* findField(osg::FieldContainerPtr container, const std::string& name);

    /// Makes the command that sets a field to a value and records it: as a child of `parent`, or on the default stack
    /// when `parent` is null. While a composite is being composed it becomes a child of that; if recording is off then,
    /// nothing is made. `fieldName` is as in findField().
    ///
    /// The field's own type decides which command it is, never the overload. Integers and bools go into any integer or
    /// bool field: an integer is cut to the field's width, anything but 0 is true. float and double go into either of
    /// their fields. Integers do not go into floating fields, nor the reverse; this is intended.
    static void makeCommand(const moUndoString& text, osg::FieldContainerPtr container, const std::string& fieldName,
                            bool value, QUndoCommand* parent = nullptr);
    static void makeCommand(const moUndoString& text, osg::FieldContainerPtr container, const std::string& fieldName,
                            unsigned char value, QUndoCommand* parent = nullptr);
    static void makeCommand(const moUndoString& text, osg::FieldContainerPtr container, const std::string& fieldName,
                            signed char value, QUndoCommand* parent = nullptr);
    static void makeCommand(const moUndoString& text, osg::FieldContainerPtr container, const std::string& fieldName,
                            unsigned short value, QUndoCommand* parent = nullptr);
    static void makeCommand(const moUndoString& text, osg::FieldContainerPtr container, const std::string& fieldName,
                            short value, QUndoCommand* parent = nullptr);
    static void makeCommand(const moUndoString& text, osg::FieldContainerPtr container, const std::string& fieldName,
                            unsigned int value, QUndoCommand* parent = nullptr);
    static void makeCommand(const moUndoString& text, osg::FieldContainerPtr container, const std::string& fieldName,
                            int value, QUndoCommand* parent = nullptr);
    static void makeCommand(const moUndoString& text, osg::FieldContainerPtr container, const std::string& fieldName,
                            std::int64_t value, QUndoCommand* parent = nullptr);
    static void makeCommand(const moUndoString& text, osg::FieldContainerPtr container, const std::string& fieldName,
                            std::uint64_t value, QUndoCommand* parent = nullptr);
    static void makeCommand(const moUndoString& text, osg::FieldContainerPtr container, const std::string& fieldName,
                            float value, QUndoCommand* parent = nullptr);
    static void makeCommand(const moUndoString& text, osg::FieldContainerPtr container, const std::string& fieldName,
                            double value, QUndoCommand* parent = nullptr);

    /// What the integer and bool overloads of makeCommand() do.
    static void makeIntTypeCommand(const moUndoString& text, osg::FieldContainerPtr container,
                                   const std::string& fieldName, std::int64_t value, QUndoCommand* parent = nullptr);

    /// What the floating overloads of makeCommand() do.
    static void makeFloatTypeCommand(const moUndoString& text, osg::FieldContainerPtr container,
                                     const std::string& fieldName, double value, QUndoCommand* parent = nullptr);

    /// moUndoStack::get(stackType).
    static moUndoStack& the(unsigned int stackType);

    /// The image in a field of a container, given by id. No reference is added. Null also when there is no such
    /// container or image field.
    static osg::ImagePtr getImageValue(unsigned int containerId, const std::string& fieldName);

    /// Sets an image field, without an undo command, to the texture manager's image for `image`. The image that enters
    /// the field gets a reference, the one that leaves it loses one; `image` itself is left alone, whichever enters.
    static void setImageValue(osg::ImagePtr image, unsigned int containerId, const std::string& fieldName);

    /// The node's name in apostrophes, nothing in it escaped; '' for a node that has none and for null.
    static QString makeNameList(const moNodePtr& node);
    static QString makeNameList(const osg::NodePtr& node);

    /// Names in apostrophes, separated by ", ", of the nodes at the first maxCount positions. A null or nameless node
    /// uses up its position and leaves no trace. With more nodes than maxCount, "..." takes the last place. Nothing to
    /// list gives ''. Without a maxCount, all nodes.
    static QString makeNameList(const std::vector<osg::NodePtr>& nodes, std::uint64_t maxCount);
    static QString makeNameList(const std::vector<osg::NodePtr>& nodes);
    static QString makeNameList(const std::vector<moNodePtr>& nodes, std::uint64_t maxCount);
    static QString makeNameList(const std::vector<moNodePtr>& nodes);

    /// The same for (node, index of a transform variant): a node that has a variant with a name at that index is listed
    /// with its own name written twice ('BoxBox'). Elements that yield no text leave no trace.
    static QString makeNameList(const std::vector<std::pair<osg::NodePtr, int>>& nodes, std::uint64_t maxCount);
};
