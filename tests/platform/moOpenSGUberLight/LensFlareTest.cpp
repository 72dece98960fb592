#include <support/Ground.h>

#include <moOpenSGUberLight/OSGLensFlareEffect.h>
#include <moOpenSGUberLight/OSGLensFlareGhostLine.h>

#include <OpenSG/OSGRefPtr.h>

#include <gtest/gtest.h>

#include <vector>

namespace {

/// The two containers that hold a list, seen alike.
struct EffectList
{
    using List = osg::LensFlareEffect;
    using Item = osg::LensFlareElement;
    static auto& items(List& list) { return list.getElements(); }
    static void add(List& list, const osg::LensFlareElementPtr& item) { list.addElement(item); }
    static void sub(List& list, const osg::LensFlareElementPtr& item) { list.subElement(item); }
    static void clear(List& list) { list.clearEffects(); }
};

struct GhostList
{
    using List = osg::LensFlareGhostLine;
    using Item = osg::LensFlareGhost;
    static auto& items(List& list) { return list.getGhosts(); }
    static void add(List& list, const osg::LensFlareGhostPtr& item) { list.addGhost(item); }
    static void sub(List& list, const osg::LensFlareGhostPtr& item) { list.subGhost(item); }
    static void clear(List& list) { list.clearGhosts(); }
};

template<class Kind>
class LensFlareContainer : public testing::Test
{
protected:
    using ItemPtr = typename Kind::Item::Ptr;

    std::vector<ItemPtr> listed() { return Kind::items(*list.get()).getValues(); }

    osg::RefPtr<typename Kind::List::Ptr> list{Kind::List::create()};
    osg::RefPtr<ItemPtr> a{Kind::Item::create()}, b{Kind::Item::create()}, c{Kind::Item::create()};
};

using Lists = testing::Types<EffectList, GhostList>;
TYPED_TEST_SUITE(LensFlareContainer, Lists);

TYPED_TEST(LensFlareContainer, EntriesAreHeldAndStandInTheOrderOfTheirCreation)
{
    TypeParam::add(*this->list.get(), this->c);
    TypeParam::add(*this->list.get(), this->a);
    TypeParam::add(*this->list.get(), this->b);
    EXPECT_EQ(this->listed(), (std::vector{this->a.get(), this->b.get(), this->c.get()}));
    EXPECT_EQ(this->b.get().getRefCount(), 2);
    TypeParam::sub(*this->list.get(), this->b);
    EXPECT_EQ(this->b.get().getRefCount(), 1);
    EXPECT_EQ(this->listed(), (std::vector{this->a.get(), this->c.get()}));
    TypeParam::add(*this->list.get(), this->b);
    EXPECT_EQ(this->listed(), (std::vector{this->a.get(), this->b.get(), this->c.get()}));
    TypeParam::clear(*this->list.get());
    EXPECT_TRUE(this->listed().empty());
    for (const auto& item : {this->a, this->b, this->c})
        EXPECT_EQ(item.get().getRefCount(), 2) << "and the loop's";
}

TYPED_TEST(LensFlareContainer, NullTwiceAndUnknownChangeNothing)
{
    TypeParam::add(*this->list.get(), osg::NullFC);
    TypeParam::sub(*this->list.get(), osg::NullFC);
    TypeParam::sub(*this->list.get(), this->a);
    EXPECT_TRUE(this->listed().empty());
    EXPECT_EQ(this->a.get().getRefCount(), 1);
    TypeParam::add(*this->list.get(), this->a);
    TypeParam::add(*this->list.get(), this->a);
    EXPECT_EQ(this->listed().size(), 1u);
    EXPECT_EQ(this->a.get().getRefCount(), 2);
}

TYPED_TEST(LensFlareContainer, AnEntryMayBeTakenOutThroughTheListsOwnHandle)
{
    auto fresh = TypeParam::Item::create();
    TypeParam::add(*this->list.get(), fresh);
    TypeParam::add(*this->list.get(), this->a);
    TypeParam::sub(*this->list.get(), TypeParam::items(*this->list.get())[0]);
    TypeParam::sub(*this->list.get(), TypeParam::items(*this->list.get())[0]);
    EXPECT_TRUE(this->listed().empty());
}

TYPED_TEST(LensFlareContainer, DestroyingTheListReleasesItsEntries)
{
    TypeParam::add(*this->list.get(), this->a);
    this->list = typename TypeParam::List::Ptr();
    EXPECT_EQ(this->a.get().getRefCount(), 1);
}

TYPED_TEST(LensFlareContainer, ACopyHoldsTheSameEntriesOnItsOwn)
{
    TypeParam::add(*this->list.get(), this->a);
    auto copy = TypeParam::List::Ptr::dcast(this->list->shallowCopy());
    EXPECT_EQ(this->a.get().getRefCount(), 2 + ground::objectsPerContainer);
    TypeParam::clear(*this->list.get());
    EXPECT_EQ(TypeParam::items(*copy).size(), 1u);
    osg::subRefCP(copy);
    EXPECT_EQ(this->a.get().getRefCount(), 1);
}

TEST(LensFlareEffect, SwitchingLightPropertiesOverStartsAnewWithARoundFlare)
{
    using osg::LensFlareEffect;
    const osg::RefPtr<osg::LensFlareEffectPtr> effect(LensFlareEffect::create());
    for (const bool use : {true, false}) {
        effect->setLensFlareType(LensFlareEffect::AnamorphicFlare);
        effect->setUseLightProperties(use);
        EXPECT_EQ(effect->getUseLightProperties(), use);
        EXPECT_EQ(effect->getLensFlareType(), LensFlareEffect::RoundFlare);
        effect->setLensFlareType(LensFlareEffect::AnamorphicFlare);
        effect->setUseLightProperties(use);
        EXPECT_EQ(effect->getLensFlareType(), LensFlareEffect::AnamorphicFlare);
    }
}

TEST(LensFlareTypes, AGhostLineIsAnElementAndAGhostIsNot)
{
    EXPECT_TRUE(osg::LensFlareGhostLine::getClassType().isDerivedFrom(osg::LensFlareElement::getClassType()));
    EXPECT_FALSE(osg::LensFlareGhost::getClassType().isDerivedFrom(osg::LensFlareElement::getClassType()));
}

} // namespace
