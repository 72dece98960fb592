// One run of osgInit to the end of the process, named by the argument; exit status 0 if everything was as expected.

#include "Probe.h"

#include <OpenSG/OSGBaseFunctions.h>
#include <OpenSG/OSGRefPtr.h>
#include <OpenSG/OSGSimpleAttachments.h>

#include <cstdio>
#include <cstring>

namespace {

using namespace osg;

int s_failures = 0;

void expect(bool condition, const char* what)
{
    if (!condition) {
        std::fprintf(stderr, "not so: %s\n", what);
        ++s_failures;
    }
}

void withoutInit()
{
    auto* const factory = FieldContainerFactory::the();
    expect(GlobalSystemState == Startup, "the state is Startup");
    expect(Transform::getClassType().getNumFieldDescs() == 0, "a type has no descriptions");
    expect(!Transform::getClassType().findFieldDescription("matrix"), "no field is found");
    expect(!Transform::create() && !factory->createFieldContainer("Node"), "create gives null");
    expect(!factory->initializePendingTypes(), "types stay pending");
    expect(!factory->getContainer(1), "a look-up gives null");
    const NodePtr node = Node::createEmpty();
    expect(getContainerId(node) == 1 && factory->getContainer(1) == node, "the first container has the id 1");
    setName(node, "nameless");
    expect(!getName(node), "there is no name attachment yet");
    subRefCP(node);
}

void initTwice()
{
    expect(osgInit(0, nullptr), "osgInit succeeds");
    const auto prototypes = static_cast<UInt32>(liveContainerCount());
    expect(prototypes > 5, "every concrete type has a prototype");
    const NodePtr node = Node::create();
    expect(getContainerId(node) == prototypes + 1, "the prototypes have the first ids");
    ChangeList& changes = *Thread::getCurrentChangeList();
    changes.setReadOnly(false);
    endEditCP(node, Node::VolumeFieldMask);
    expect(osgInit(0, nullptr), "a second osgInit succeeds");
    expect(changes.sizeChanged() == 1, "and leaves the change list alone");
    endEditCP(node, Node::VolumeFieldMask);
    expect(changes.sizeChanged() == 2, "which goes on recording");
    expect(liveContainerCount() == prototypes + 1, "and makes nothing");
    subRefCP(node);
    expect(!osgInit(0, nullptr, OSG_MAJOR_VERSION + 1), "another major version is refused");
    expect(osgExit() && liveContainerCount() == 0, "osgExit destroys the prototypes");
    expect(GlobalSystemState == Shutdown, "the state is Shutdown");
    expect(!Node::create(), "create gives null afterwards");
    expect(osgExit(), "a second osgExit is harmless");
    expect(osgInit(0, nullptr), "osgInit may be called again");
    const NodePtr again = Node::create();
    expect(getContainerId(again) > prototypes + 1, "ids go on");
    subRefCP(again);
}

void recordFromStart()
{
    ChangeList::setReadWriteDefault(true);
    osgInit(0, nullptr);
    const ChangeList& changes = *Thread::getCurrentChangeList();
    expect(changes.empty(), "the list knows nothing of the prototypes");
    const NodePtr node = Node::create();
    expect(changes.sizeCreated() == 1 && *changes.beginCreated() == getContainerId(node), "creation is recorded");
    subRefCP(node);
    expect(changes.sizeDestroyed() == 1, "destruction is recorded");
}

/// Destroyed after osgExit, as it was made before osgInit registered it.
struct LateHolder
{
    NodePtr node;
    ~LateHolder()
    {
        expect(GlobalSystemState == Shutdown, "osgExit was before");
        expect(FieldContainerFactory::the()->getContainer(getContainerId(node)) == node, "look-up still answers");
        subRefCP(node);
        expect(liveContainerCount() == 0, "nothing is left");
        if (s_failures) std::_Exit(1);
    }
};

void releaseAfterExit()
{
    static LateHolder s_holder;
    osgInit(0, nullptr);
    s_holder.node = makeNodeFor(Transform::create());
    const NodePtr child = makeNodeFor(Group::create());
    setName(child, "late");
    s_holder.node->addChild(child);
    addRefCP(s_holder.node);
}

void leaveContainers()
{
    osgInit(0, nullptr);
    addRefCP(makeNodeFor(Transform::create()));
}

struct Case
{
    const char* name;
    void (*run)();
};
constexpr Case s_cases[] = {{"WithoutInit", withoutInit},
                            {"InitTwice", initTwice},
                            {"RecordFromStart", recordFromStart},
                            {"ReleaseAfterExit", releaseAfterExit},
                            {"LeaveContainers", leaveContainers}};

} // namespace

int main(int argc, char** argv)
{
    for (const Case& candidate : s_cases) {
        if (argc > 1 && std::strcmp(argv[1], candidate.name) == 0) {
            candidate.run();
            return s_failures ? 1 : 0;
        }
    }
    std::fprintf(stderr, "no such case\n");
    return 2;
}
