#include <support/EditTrace.h>

#include <OpenSG/OSGFieldContainerType.h>

#include <gtest/gtest.h>

#include <algorithm>

namespace {

EditTrace* s_trace = nullptr;

std::string fieldNames(const osg::FieldContainerType& type, osg::BitVector mask)
{
    if (mask == osg::FieldBits::AllFields) return "everything";
    std::string names;
    for (osg::UInt32 id = 0; id < 64; ++id) {
        if ((mask & (osg::BitVector(1) << id)) == 0) continue;
        const osg::FieldDescription* field = type.getFieldDescription(id);
        names += (names.empty() ? "" : "|") + (field ? std::string(field->getCName()) : std::to_string(id));
    }
    return names.empty() ? "nothing" : names;
}

} // namespace

EditTrace::EditTrace()
{
    EXPECT_EQ(s_trace, nullptr) << "one trace at a time";
    s_trace = this;
}

EditTrace::~EditTrace()
{
    s_trace = nullptr;
}

void EditTrace::tell(const osg::FieldContainerPtr& container, osg::BitVector mask, osg::UInt32 origin)
{
    if (!s_trace) return;
    const auto& names = s_trace->m_names;
    const auto named =
        std::find_if(names.begin(), names.end(),
                     [id = container.getFieldContainerId()](const auto& entry) { return entry.first == id; });
    const std::string name = named == names.end() ? std::string(container->getTypeName()) : named->second;
    s_trace->m_lines.push_back(name + ' ' + fieldNames(container->getType(), mask) + ' ' + std::to_string(origin));
    // Removed while it runs: its own changes do not call it again.
    if (const auto onChange = std::exchange(s_trace->m_onChange, {})) {
        onChange();
        s_trace->m_onChange = onChange;
    }
}
