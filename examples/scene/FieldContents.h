#pragma once

#include <OpenSG/OSGBaseTypes.h>

#include <string>
#include <vector>

namespace osg {
class Field;
}

/// The values of a container's fields, in three lists: those that are compared to the bit, the numbers that may differ
/// by rounding (of single precision, as places in the world are rounded to floats), and the containers that its handles
/// point to, by id (0 for null).
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
    /// Writes the length, too, so that different lists of texts never give the same bytes.
    void addText(const std::string& text);
};

using FieldReader = void (*)(const osg::Field& field, FieldContents& contents);

/// How to read fields of this field's type. Caches (volumes) and plain pointers have no contents.
///
/// \throws std::logic_error  for a type that has no row in FieldContents.cpp, so that no field is skipped silently.
FieldReader readerOf(const osg::Field& field);
