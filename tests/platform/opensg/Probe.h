#pragma once

#include <support/LiveContainers.h>

#include <OpenSG/OSGFieldContainerFactory.h>
#include <OpenSG/OSGFieldTable.h>
#include <OpenSG/OSGNode.h>
#include <OpenSG/OSGTransform.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

namespace osg {

class Probe;
typedef FCPtr<AttachmentContainerPtr, Probe> ProbePtr;
OSG_HANDLE_FIELDS(ProbePtr)

// clang-format off
//         type      Name        description   default
#define OSG_PROBE_FIELDS(SINGLE, MULTI) \
    SINGLE(Bool,     Enabled,    "enabled",    true) \
    SINGLE(Vec3f,    Direction,  "direction",  1, 2, 3) \
    SINGLE(String,   Label,      "label",      "probe") \
    MULTI (NodePtr,  Targets,    "targets") \
    MULTI (Int64,    Numbers,    "numbers") \
    SINGLE(ProbePtr, Follower,   "follower",   NullFC)
// clang-format on

OSG_CONTAINER_BASE(Probe, AttachmentContainer, OSG_PROBE_FIELDS)

/// A container that writes down what is done to it.
class Probe : public ProbeBase
{
    OSG_CONTAINER(Probe)

public:
    static std::vector<std::string> s_log;

    /// Called in onDestroy with the id.
    std::function<void(UInt32 id)> whenDestroyed;
    std::function<void()> whenChanged;

    void changed(BitVector whichField, UInt32 origin) override;
    UInt32 number() const { return m_number; }

protected:
    ~Probe() override;
    void onDestroy() override;

private:
    void onCreate(const FieldContainer* source = nullptr);

    UInt32 m_number = 0;
};

class SpecialProbe;
typedef FCPtr<ProbePtr, SpecialProbe> SpecialProbePtr;
#define OSG_SPECIALPROBE_FIELDS(SINGLE, MULTI)
OSG_CONTAINER_BASE(SpecialProbe, Probe, OSG_SPECIALPROBE_FIELDS)

/// A table without rows.
class SpecialProbe : public SpecialProbeBase
{
    OSG_CONTAINER(SpecialProbe)
};

class AbstractProbe;
typedef FCPtr<FieldContainerPtr, AbstractProbe> AbstractProbePtr;
#define OSG_ABSTRACTPROBE_FIELDS(SINGLE, MULTI) SINGLE(Int32, Level, "level", 7)
OSG_ABSTRACT_CONTAINER_BASE(AbstractProbe, FieldContainer, OSG_ABSTRACTPROBE_FIELDS)

class AbstractProbe : public AbstractProbeBase
{
    OSG_CONTAINER(AbstractProbe)

public:
    virtual int answer() const = 0;
};

class TagProbe;
typedef FCPtr<AttachmentPtr, TagProbe> TagProbePtr;
#define OSG_TAGPROBE_FIELDS(SINGLE, MULTI) MULTI(UInt64, Values, "values")
OSG_CONTAINER_BASE(TagProbe, Attachment, OSG_TAGPROBE_FIELDS)

/// An attachment of the group "tags".
class TagProbe : public TagProbeBase
{
    OSG_CONTAINER(TagProbe)
};

} // namespace osg

/// A test that has to leave as many containers as it found. The current change list is empty and records nothing at its
/// start.
class OpenSG : public testing::Test
{
protected:
    void SetUp() override
    {
        osg::Probe::s_log.clear();
        changes->setReadOnly(true);
        changes->clearAll();
    }
    void TearDown() override
    {
        EXPECT_EQ(liveContainerCount(), m_before);
        changes->setReadOnly(true);
        changes->clearAll();
    }

    static std::vector<std::string> takeLog() { return std::exchange(osg::Probe::s_log, {}); }

    osg::FieldContainerFactory* const factory = osg::FieldContainerFactory::the();
    osg::ChangeList* const changes = osg::Thread::getCurrentChangeList();

private:
    const std::size_t m_before = liveContainerCount();
};
