#pragma once

#include <support/OSGAllFields.h>
#include <support/UndoTest.h>

#include <moUndoUtils/moUndoString.h>

#include <string>
#include <utility>
#include <vector>

/// Two containers with a field of every type, single and multi, whose edits are recorded.
class FieldTest : public UndoTest
{
protected:
    void SetUp() override
    {
        UndoTest::SetUp();
        container = makeContainer();
        lists = osg::AllMultiFields::create();
        osg::addRefCP(lists);
        container->onChanged = lists->onChanged = [this](osg::BitVector mask, osg::UInt32 origin) {
            edits.push_back("mask " + std::to_string(mask) + " origin " + std::to_string(origin));
        };
        containerId = container.getFieldContainerId();
    }

    void TearDown() override
    {
        moUndoStack::clearAll();
        destroy(container);
        destroy(lists);
        UndoTest::TearDown();
    }

    static osg::AllSingleFieldsPtr makeContainer()
    {
        osg::AllSingleFieldsPtr made = osg::AllSingleFields::create();
        osg::addRefCP(made);
        return made;
    }

    template<class Ptr>
    static void destroy(Ptr& which)
    {
        osg::subRefCP(which);
        which = osg::NullFC;
    }

    /// What `edits` holds after one edit of a field.
    static std::vector<std::string> oneEdit(osg::BitVector mask)
    {
        return {"mask " + std::to_string(mask) + " origin 1"};
    }

    std::vector<std::string> takeEdits() { return std::exchange(edits, {}); }

    osg::AllSingleFieldsPtr container;
    osg::AllMultiFieldsPtr lists;
    unsigned int containerId = 0;
    std::vector<std::string> edits;
    const moUndoString text{QStringLiteral("Edit"), QStringLiteral("edits a field"), QStringLiteral("Fields")};
};
