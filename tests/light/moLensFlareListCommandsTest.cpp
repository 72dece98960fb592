#include <light/LightTest.h>

#include <moUndoStack/light/moLensFlareListCommands.h>
#include <moUndoStack/light/moSetLensFlareEffectCommand.h>
#include <moUndoStack/light/moSetLightProfileShapeCommand.h>

#include <moOpenSGUtils/moLights.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QTranslator>

#include <set>

namespace {

/// What differs between elements of a light and ghosts of a ghost line; the tests are the same for both.
struct Elements
{
    using Add = moAddLensFlareElementCommand;
    using Remove = moRemoveLensFlareElementCommand;
    using Item = osg::LensFlareElement;
    using ItemPtr = osg::LensFlareElementPtr;
    using OwnerPtr = osg::NodePtr;
    static constexpr const char* addText = "Add Lens Flare Elements";
    static constexpr const char* removeText = "Remove Lens Flare Elements";
    static constexpr const char* ownerKey = "lightId";
    static constexpr const char* itemsKey = "elementIds";
    static constexpr osg::BitVector mask = osg::LensFlareEffect::ElementsFieldMask;

    static osg::FieldContainerPtr listHolder(const OwnerPtr& light) { return moLights::getLensFlareEffect(light); }
    static std::vector<unsigned int> list(const OwnerPtr& light)
    {
        return idsOf(*moLights::getLensFlareEffect(light)->getMFElements());
    }
    static void put(const OwnerPtr& light, const ItemPtr& item)
    {
        moLights::getLensFlareEffect(light)->addElement(item);
    }
};

struct Ghosts
{
    using Add = moAddGhostCommand;
    using Remove = moRemoveGhostCommand;
    using Item = osg::LensFlareGhost;
    using ItemPtr = osg::LensFlareGhostPtr;
    using OwnerPtr = osg::LensFlareGhostLinePtr;
    static constexpr const char* addText = "Add Ghost";
    static constexpr const char* removeText = "Remove Ghost";
    static constexpr const char* ownerKey = "ghostLineId";
    static constexpr const char* itemsKey = "ghostIds";
    static constexpr osg::BitVector mask = osg::LensFlareGhostLine::GhostsFieldMask;

    static osg::FieldContainerPtr listHolder(const OwnerPtr& line) { return line; }
    static std::vector<unsigned int> list(const OwnerPtr& line) { return idsOf(*line->getMFGhosts()); }
    static void put(const OwnerPtr& line, const ItemPtr& item) { line->addGhost(item); }
};

template<class Kind>
class LensFlareList : public LightTest
{
protected:
    void SetUp() override
    {
        LightTest::SetUp();
        makeOwner(owner);
    }

    void makeOwner(osg::NodePtr& light)
    {
        light = makeLight();
        moLights::setLensFlareEffect(light, osg::LensFlareEffect::create());
    }
    void makeOwner(osg::LensFlareGhostLinePtr& line) { line = keep(osg::LensFlareGhostLine::create()); }

    void destroyOwner(const osg::NodePtr& light) { destroy(light); }
    void destroyOwner(const osg::LensFlareGhostLinePtr& line) { drop(line); }

    /// Items that are in the owner's list, which alone holds them.
    std::vector<typename Kind::ItemPtr> listed(std::size_t count)
    {
        std::vector<typename Kind::ItemPtr> items;
        for (std::size_t i = 0; i < count; ++i) {
            items.push_back(Kind::Item::create());
            Kind::put(owner, items.back());
        }
        return items;
    }

    std::vector<unsigned int> list() const { return Kind::list(owner); }

    typename Kind::OwnerPtr owner;
};

using Kinds = testing::Types<Elements, Ghosts>;

struct KindNames
{
    template<class Kind>
    static std::string GetName(int)
    {
        return std::is_same_v<Kind, Elements> ? "Elements" : "Ghosts";
    }
};

TYPED_TEST_SUITE(LensFlareList, Kinds, KindNames);

#define USING_KIND                                                                                                     \
    using Add [[maybe_unused]] = typename TypeParam::Add;                                                              \
    using Remove [[maybe_unused]] = typename TypeParam::Remove;                                                        \
    using Item [[maybe_unused]] = typename TypeParam::Item;                                                            \
    using ItemPtr [[maybe_unused]] = typename TypeParam::ItemPtr;                                                      \
    using Ids [[maybe_unused]] = std::vector<unsigned int>;

TYPED_TEST(LensFlareList, AddPutsTheItemsInAndUndoTakesThemOut)
{
    USING_KIND
    const std::vector<ItemPtr> old = this->listed(1);
    const std::vector<ItemPtr> added{Item::create(), Item::create()};
    this->stack.addOrExecute(new Add(this->owner, added, nullptr));
    EXPECT_EQ(this->list(), (Ids{idOf(old[0]), idOf(added[0]), idOf(added[1])}));
    this->stack.undo();
    EXPECT_EQ(this->list(), idsOf(old));
    this->stack.redo();
    EXPECT_EQ(this->list(), (Ids{idOf(old[0]), idOf(added[0]), idOf(added[1])}));
}

TYPED_TEST(LensFlareList, RemoveTakesTheItemsOutAndUndoPutsThemBackInTheirPlaces)
{
    USING_KIND
    const std::vector<ItemPtr> items = this->listed(4);
    const Ids before = this->list();
    this->stack.addOrExecute(new Remove(this->owner, Ids{idOf(items[2]), idOf(items[0])}, nullptr));
    EXPECT_EQ(this->list(), (Ids{idOf(items[1]), idOf(items[3])}));
    this->stack.undo();
    EXPECT_EQ(this->list(), before);
    this->stack.redo();
    EXPECT_EQ(this->list(), (Ids{idOf(items[1]), idOf(items[3])}));
}

TYPED_TEST(LensFlareList, OnlyTheListIsEditedOnceEachStep)
{
    USING_KIND
    const std::vector<ItemPtr> items{Item::create(), Item::create()};
    const std::vector<EditLog::Edit> expected{{idOf(TypeParam::listHolder(this->owner)), TypeParam::mask}};
    EditLog edits;
    this->stack.addOrExecute(new Add(this->owner, items, nullptr));
    EXPECT_EQ(edits.take(), expected);
    this->stack.undo();
    EXPECT_EQ(edits.take(), expected);
    this->stack.addOrExecute(new Remove(this->owner, idsOf(items), nullptr));
    EXPECT_EQ(edits.take(), expected);
}

TYPED_TEST(LensFlareList, TextAndDescriptionAreNotTranslatedAndIdsAreTheirOwn)
{
    USING_KIND
    const Add add(this->owner, {}, nullptr);
    const Remove remove(this->owner, {}, nullptr);
    EXPECT_STREQ(qPrintable(add.text()), TypeParam::addText);
    EXPECT_STREQ(qPrintable(add.getDescription()), TypeParam::addText);
    EXPECT_STREQ(qPrintable(remove.text()), TypeParam::removeText);
    EXPECT_STREQ(qPrintable(remove.getDescription()), TypeParam::removeText);
    EXPECT_EQ(add.id(), Add::commandId());
    EXPECT_EQ(remove.id(), Remove::commandId());
    const std::set<int> ids{moAddLensFlareElementCommand::commandId(), moRemoveLensFlareElementCommand::commandId(),
                            moAddGhostCommand::commandId(), moRemoveGhostCommand::commandId()};
    EXPECT_EQ(ids.size(), 4u);
    EXPECT_GT(*ids.begin(), 0);
}

TYPED_TEST(LensFlareList, TheMessageNamesOwnerAndItemsAndNoLightCommand)
{
    USING_KIND
    const ItemPtr item = Item::create();
    Trace trace(this->stack);
    this->stack.addOrExecute(new Add(this->owner, {item}, nullptr));
    this->stack.undo();
    const std::string text = TypeParam::addText;
    const std::string tail = " text=string:\"" + text + "\" description=string:\"" + text +
                             "\" id=int:" + std::to_string(Add::commandId()) + ' ' + TypeParam::ownerKey +
                             "=uint:" + std::to_string(idOf(this->owner)) + ' ' + TypeParam::itemsKey + "=uints:[" +
                             std::to_string(idOf(item)) + ']';
    EXPECT_THAT(trace.takeMessages(), testing::ElementsAre("moURManager::redo index=int:0 added=bool:true" + tail,
                                                           "moURManager::undo index=int:0 added=bool:false" + tail));
}

TYPED_TEST(LensFlareList, NullItemsAreSkippedAndTheOthersKeepTheirOrder)
{
    USING_KIND
    const ItemPtr a = Item::create(), b = Item::create();
    Trace trace(this->stack);
    this->stack.addOrExecute(new Add(this->owner, {osg::NullFC, b, osg::NullFC, a}, nullptr));
    EXPECT_EQ(this->list(), (Ids{idOf(a), idOf(b)}));
    EXPECT_THAT(trace.takeMessages().at(0),
                testing::HasSubstr("uints:[" + std::to_string(idOf(b)) + ' ' + std::to_string(idOf(a)) + ']'));
}

TYPED_TEST(LensFlareList, IdsThatAreNoItemsAreDroppedSilentlyAndTheOthersKeepTheirOrder)
{
    USING_KIND
    const std::vector<ItemPtr> items = this->listed(2);
    const ItemPtr gone = this->keep(Item::create());
    const unsigned int goneId = idOf(gone);
    this->drop(gone);
    const Ids given{0, idOf(items[1]), idOf(this->root), 999999999, goneId, idOf(items[0])};
    Trace trace(this->stack);
    this->stack.addOrExecute(new Remove(this->owner, given, nullptr));
    EXPECT_THAT(this->list(), testing::IsEmpty());
    EXPECT_THAT(trace.takeMessages().at(0), testing::HasSubstr("uints:[" + std::to_string(idOf(items[1])) + ' ' +
                                                               std::to_string(idOf(items[0])) + ']'));
    EXPECT_THAT(this->log.lines(), testing::IsEmpty());
}

TYPED_TEST(LensFlareList, AnEmptyListIsAStepThatChangesNothing)
{
    USING_KIND
    this->listed(1);
    const Ids before = this->list();
    EditLog edits;
    for (moUndoCommand* command : {static_cast<moUndoCommand*>(new Add(this->owner, {}, nullptr)),
                                   static_cast<moUndoCommand*>(new Add(this->owner, {osg::NullFC}, nullptr)),
                                   static_cast<moUndoCommand*>(new Remove(this->owner, {}, nullptr))}) {
        this->stack.addOrExecute(command);
        this->stack.undo();
        this->stack.redo();
    }
    EXPECT_EQ(this->stack.size(), 3);
    EXPECT_EQ(this->list(), before);
    EXPECT_THAT(edits.take(), testing::IsEmpty());
}

TYPED_TEST(LensFlareList, ANullOwnerIsHarmlessAndItsIdIsZero)
{
    USING_KIND
    const ItemPtr item = this->keep(Item::create());
    Trace trace(this->stack);
    this->stack.addOrExecute(new Add(osg::NullFC, {item}, nullptr));
    this->stack.undo();
    this->stack.redo();
    EXPECT_THAT(trace.takeMessages().at(0), testing::HasSubstr(std::string(TypeParam::ownerKey) + "=uint:0 "));
    EXPECT_EQ(item.getRefCount(), 2);
    this->stack.clear();
    EXPECT_EQ(item.getRefCount(), 1);
}

TYPED_TEST(LensFlareList, AnOwnerThatWasDestroyedMakesEveryStepHarmless)
{
    USING_KIND
    const ItemPtr item = this->keep(Item::create());
    this->stack.addOrExecute(new Add(this->owner, {item}, nullptr));
    this->destroyOwner(this->owner);
    EXPECT_EQ(item.getRefCount(), 2) << "the test's and the command's";
    this->stack.undo();
    this->stack.redo();
    this->stack.clear();
    EXPECT_EQ(item.getRefCount(), 1);
}

TYPED_TEST(LensFlareList, TheSameItemTwiceIsInTheListOnceAndCountedTwice)
{
    USING_KIND
    const ItemPtr item = this->keep(Item::create());
    this->stack.addOrExecute(new Add(this->owner, {item, item}, nullptr));
    EXPECT_EQ(this->list(), Ids{idOf(item)});
    EXPECT_EQ(item.getRefCount(), 1 + 2 + 1) << "the test's, the command's, the list's";
    this->stack.undo();
    EXPECT_THAT(this->list(), testing::IsEmpty());
    this->stack.clear();
    EXPECT_EQ(item.getRefCount(), 1);
}

TYPED_TEST(LensFlareList, ReferencesLastFromConstructionToDestructionAndAreTheSameDoneOrUndone)
{
    USING_KIND
    const ItemPtr item = this->keep(Item::create());
    auto* add = new Add(this->owner, {item}, nullptr);
    EXPECT_EQ(item.getRefCount(), 2);
    this->stack.addOrExecute(add);
    EXPECT_EQ(item.getRefCount(), 3);
    this->stack.undo();
    EXPECT_EQ(item.getRefCount(), 2);
    this->stack.redo();
    EXPECT_EQ(item.getRefCount(), 3);
    this->stack.addOrExecute(new Remove(this->owner, Ids{idOf(item)}, nullptr));
    EXPECT_EQ(item.getRefCount(), 3) << "the test's and both commands'";
    this->stack.undo();
    EXPECT_EQ(item.getRefCount(), 4);
    this->stack.clear();
    EXPECT_EQ(item.getRefCount(), 2) << "the test's and the list's";
}

TYPED_TEST(LensFlareList, DestroyingAnUndoneAddFreesItemsThatNobodyElseHolds)
{
    USING_KIND
    const ItemPtr item = Item::create();
    const unsigned int id = idOf(item);
    this->stack.addOrExecute(new Add(this->owner, {item}, nullptr));
    this->stack.undo();
    EXPECT_TRUE(isAlive(id));
    this->stack.clear();
    EXPECT_FALSE(isAlive(id));
}

TYPED_TEST(LensFlareList, DestroyingADoneAddLeavesTheItemsToTheList)
{
    USING_KIND
    const ItemPtr item = Item::create();
    this->stack.addOrExecute(new Add(this->owner, {item}, nullptr));
    this->stack.clear();
    EXPECT_EQ(this->list(), Ids{idOf(item)});
    EXPECT_EQ(item.getRefCount(), 1);
}

TYPED_TEST(LensFlareList, DestroyingADoneRemoveFreesItemsThatNobodyElseHolds)
{
    USING_KIND
    const std::vector<ItemPtr> items = this->listed(1);
    const unsigned int id = idOf(items[0]);
    this->stack.addOrExecute(new Remove(this->owner, Ids{id}, nullptr));
    EXPECT_TRUE(isAlive(id));
    this->stack.clear();
    EXPECT_FALSE(isAlive(id));
}

TYPED_TEST(LensFlareList, ACommandThatNeverRanFreesWhatItAloneHeld)
{
    USING_KIND
    const ItemPtr item = Item::create();
    const unsigned int id = idOf(item);
    delete new Add(this->owner, {item}, nullptr);
    EXPECT_FALSE(isAlive(id));
}

TYPED_TEST(LensFlareList, AnItemDestroyedByOthersIsLeftOutOfEveryLaterStep)
{
    USING_KIND
    ItemPtr item = Item::create();
    const ItemPtr other = Item::create();
    this->stack.addOrExecute(new Add(this->owner, {item, other}, nullptr));
    this->stack.undo();
    osg::subRefCP(item); // gives back the command's reference by mistake
    this->stack.redo();
    EXPECT_EQ(this->list(), Ids{idOf(other)});
    this->stack.undo();
    EXPECT_THAT(this->list(), testing::IsEmpty());
}

TYPED_TEST(LensFlareList, NothingMergesHoweverFast)
{
    USING_KIND
    const ItemPtr item = Item::create();
    auto* first = new Add(this->owner, {item}, nullptr);
    auto* again = new Add(this->owner, {item}, nullptr);
    again->setMergeResponseDelta(-1.);
    EXPECT_FALSE(first->canMergeWith(again));
    EXPECT_FALSE(first->mergeWith(again));
    this->stack.addOrExecute(first);
    this->stack.addOrExecute(again);
    this->stack.addOrExecute(new Remove(this->owner, Ids{idOf(item)}, nullptr));
    this->stack.addOrExecute(new Remove(this->owner, Ids{idOf(item)}, nullptr));
    EXPECT_EQ(this->stack.size(), 4);
}

using LensFlareElements = LightTest;

TEST_F(LensFlareElements, AGhostLineIsAnElementToo)
{
    const osg::NodePtr light = makeLight();
    moLights::setLensFlareEffect(light, osg::LensFlareEffect::create());
    const osg::LensFlareEffectPtr effect = moLights::getLensFlareEffect(light);
    const osg::LensFlareGhostLinePtr line = osg::LensFlareGhostLine::create();
    effect->addElement(line);
    stack.addOrExecute(new moRemoveLensFlareElementCommand(light, {idOf(line)}, nullptr));
    EXPECT_TRUE(effect->getMFElements()->empty());
    stack.undo();
    EXPECT_EQ(idsOf(*effect->getMFElements()), std::vector<unsigned int>{idOf(line)});
}

TEST_F(LensFlareElements, AGhostIsNoElementAndAnElementNoGhost)
{
    const osg::NodePtr light = makeLight();
    const auto ghost = keep(osg::LensFlareGhost::create());
    const auto element = keep(osg::LensFlareElement::create());
    const auto line = keep(osg::LensFlareGhostLine::create());
    Trace trace(stack);
    stack.addOrExecute(new moRemoveLensFlareElementCommand(light, {idOf(ghost)}, nullptr));
    stack.addOrExecute(new moRemoveGhostCommand(line, {idOf(element)}, nullptr));
    for (const std::string& message : trace.takeMessages())
        EXPECT_THAT(message, testing::HasSubstr("Ids=uints:[]"));
    EXPECT_EQ(ghost.getRefCount(), 1);
    EXPECT_EQ(element.getRefCount(), 1);
}

TEST_F(LensFlareElements, ANodeThatIsNoLightAndALightWithoutEffectTakeNoElements)
{
    const auto element = keep(osg::LensFlareElement::create());
    const osg::NodePtr light = makeLight();
    const osg::NodePtr transform = makeNode<osg::Transform3D>("transform");
    EditLog edits;
    for (const osg::NodePtr& node : {light, transform}) {
        stack.addOrExecute(new moAddLensFlareElementCommand(node, {element}, nullptr));
        stack.undo();
        stack.redo();
    }
    EXPECT_THAT(edits.take(), testing::IsEmpty());
    EXPECT_TRUE(moLights::getLensFlareEffect(light) == osg::NullFC);
}

TEST_F(LensFlareElements, AParentThatIsGivenIsTheParent)
{
    QUndoCommand parent;
    new moAddLensFlareElementCommand(osg::NullFC, {}, &parent);
    new moRemoveLensFlareElementCommand(osg::NullFC, {}, &parent);
    new moAddGhostCommand(osg::NullFC, {}, &parent);
    new moRemoveGhostCommand(osg::NullFC, {}, &parent);
    new moSetLensFlareEffectCommand(osg::NullFC, osg::NullFC, &parent);
    new moSetLightProfileShapeCommand(osg::NullFC, &parent);
    EXPECT_EQ(parent.childCount(), 6);
}

TEST_F(LensFlareElements, EachClassTranslatesInItsOwnContext)
{
    class ContextNames : public QTranslator
    {
    public:
        QString translate(const char* context, const char*, const char*, int) const override
        {
            return QString::fromUtf8(context);
        }
        bool isEmpty() const override { return false; }
    };
    ContextNames translator;
    QCoreApplication::installTranslator(&translator);
    EXPECT_EQ(moAddLensFlareElementCommand::tr("text"), QStringLiteral("moAddLensFlareElementCommand"));
    EXPECT_EQ(moRemoveLensFlareElementCommand::tr("text"), QStringLiteral("moRemoveLensFlareElementCommand"));
    EXPECT_EQ(moAddGhostCommand::tr("text"), QStringLiteral("moAddGhostCommand"));
    EXPECT_EQ(moRemoveGhostCommand::tr("text"), QStringLiteral("moRemoveGhostCommand"));
    EXPECT_EQ(moSetLensFlareEffectCommand::tr("text"), QStringLiteral("moSetLensFlareEffectCommand"));
    EXPECT_EQ(moSetLightProfileShapeCommand::tr("text"), QStringLiteral("moSetLightProfileShapeCommand"));
    QCoreApplication::removeTranslator(&translator);
}

} // namespace
