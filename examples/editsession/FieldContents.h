#pragma once

#include <OpenSG/OSGBaseTypes.h>

#include <string>
#include <vector>

namespace osg {
class Field;
}

/// What is in the fields of a container, in three lists: what is compared to the bit, the numbers that may differ by
/// rounding (single precision: what goes through the world is rounded to floats), and the containers that its handles
/// lead to, by id (0 for null).
struct FieldContents
{
    /// The numbers of one field, or of one element of a list.
    struct Run
    {
        osg::UInt32 field;
        osg::UInt32 begin;
        osg::UInt32 count;
    };

    std::string exact;
    std::vector<float> numbers;
    std::vector<osg::UInt32> targets;
    std::vector<Run> runs; ///< of `numbers`, in their order

    osg::UInt32 field = 0; ///< the id of the field that is being read

    void clear();
    void addNumber(osg::UInt64 number);
    /// With its length, so that no two lists of texts look alike.
    void addText(const std::string& text);
};

using FieldReader = void (*)(const osg::Field& field, FieldContents& contents);

/// How to read fields of this field's type. Caches (volumes) and plain pointers have no contents.
///
/// \throws std::logic_error  for a type that stands in no table: nothing is left unread in silence. A new type of handle
/// needs a row in FieldContents.cpp.
FieldReader readerOf(const osg::Field& field);
