#include <moOpenSGExt/OSGTransformVariantsAttachment.h>

#include <OpenSG/OSGFieldContainerFactory.h>
#include <OpenSG/OSGNode.h>
#include <OpenSG/OSGRefPtr.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

namespace {

using Holder = osg::RefPtr<osg::TransformVariantPtr>;
using ListHolder = osg::RefPtr<osg::TransformVariantsAttachmentPtr>;

bool exists(unsigned int id)
{
    return osg::FieldContainerFactory::the()->getContainer(id) != osg::NullFC;
}

osg::TransformVariantPtr named(const std::string& name)
{
    const osg::TransformVariantPtr variant = osg::TransformVariant::create();
    variant->setName(name);
    return variant;
}

std::string names(const osg::TransformVariantsAttachmentPtr& list)
{
    std::string result;
    for (osg::UInt64 i = 0; i < list->getVariantCount(); ++i)
        result += list->getVariant(i)->getName();
    return result;
}

} // namespace

TEST(TransformVariant, AppliesEverythingButShearUnlessToldOtherwise)
{
    const Holder variant(named("A"));
    EXPECT_EQ(variant->getApplyFlags(), osg::UInt64(osg::TransformVariant::ApplyAll));
    EXPECT_EQ(variant->getApplyFlags(), 0xBFFu);
    EXPECT_EQ(variant->getTransform(), osg::NullFC);
    EXPECT_EQ(osg::TransformVariant::ApplyRotationDirection, 0x800u);
}

TEST(TransformVariant, KeepsSixtyFourFlags)
{
    const Holder variant(named("A"));
    variant->setApplyFlags(0xFEDCBA9876543210u);
    EXPECT_EQ(variant->getApplyFlags(), 0xFEDCBA9876543210u);
}

TEST(TransformVariant, HoldsItsCoreUntilItGetsAnotherOrGoes)
{
    const osg::Transform3DPtr first = osg::Transform3D::create();
    const osg::Transform3DPtr second = osg::Transform3D::create();
    const unsigned int firstId = first.getFieldContainerId();
    const unsigned int secondId = second.getFieldContainerId();
    {
        const Holder variant(named("A"));
        variant->setTransform(first);
        variant->setTransform(first);
        EXPECT_EQ(first.getRefCount(), 1);
        variant->setTransform(second);
        EXPECT_FALSE(exists(firstId));
        EXPECT_EQ(second.getRefCount(), 1);
    }
    EXPECT_FALSE(exists(secondId));
}

TEST(TransformVariant, ACopyHasNoCore)
{
    const Holder variant(named("A"));
    variant->setTransform(osg::Transform3D::create());
    const Holder copy(osg::TransformVariantPtr::dcast(variant->shallowCopy()));
    EXPECT_EQ(copy->getName(), "A");
    EXPECT_EQ(copy->getTransform(), osg::NullFC);
    EXPECT_EQ(variant->getTransform().getRefCount(), 1);
}

TEST(TransformVariantsAttachment, HasItsListAtTheFirstIdOfAnAttachment)
{
    EXPECT_EQ(unsigned(osg::TransformVariantsAttachment::VariantsFieldId), 3u);
}

TEST(TransformVariantsAttachment, InsertsWhereItIsToldAndClosesTheGap)
{
    const ListHolder holder(osg::TransformVariantsAttachment::create());
    const osg::TransformVariantsAttachmentPtr list = holder;
    list->insertVariant(0, named("A"));
    list->insertVariant(1, named("C"));
    list->insertVariant(1, named("B"));
    EXPECT_EQ(names(list), "ABC");
    list->removeVariant(1);
    EXPECT_EQ(names(list), "AC");
}

TEST(TransformVariantsAttachment, IgnoresNullAndPositionsPastTheEnd)
{
    const ListHolder holder(osg::TransformVariantsAttachment::create());
    const osg::TransformVariantsAttachmentPtr list = holder;
    list->insertVariant(0, named("A"));
    const Holder outside(named("B"));
    list->insertVariant(0, osg::NullFC);
    list->insertVariant(2, outside);
    list->insertVariant(osg::UInt64(-1), outside);
    list->insertVariant(osg::UInt64(1) << 32, outside);
    list->removeVariant(1);
    list->removeVariant(osg::UInt64(1) << 32);
    EXPECT_EQ(names(list), "A");
    EXPECT_EQ(list->getVariant(1), osg::NullFC);
    EXPECT_EQ(list->getVariant(osg::UInt64(1) << 32), osg::NullFC);
}

TEST(TransformVariantsAttachment, CountsOneReferencePerEntry)
{
    const Holder a(named("A"));
    const Holder b(named("B"));
    unsigned int ownedId = 0;
    {
        const ListHolder holder(osg::TransformVariantsAttachment::create());
        const osg::TransformVariantsAttachmentPtr list = holder;
        list->insertVariant(0, a);
        list->insertVariant(1, a);
        list->insertVariant(2, b);
        list->insertVariant(3, named("C"));
        ownedId = list->getVariant(3).getFieldContainerId();
        EXPECT_EQ(osg::TransformVariantPtr(a).getRefCount(), 3);
        list->removeVariant(0);
        EXPECT_EQ(osg::TransformVariantPtr(a).getRefCount(), 2);
    }
    EXPECT_EQ(osg::TransformVariantPtr(a).getRefCount(), 1);
    EXPECT_EQ(osg::TransformVariantPtr(b).getRefCount(), 1);
    EXPECT_FALSE(exists(ownedId));
}

TEST(TransformVariantsAttachment, ACopyIsAnEmptyList)
{
    const ListHolder list(osg::TransformVariantsAttachment::create());
    list->insertVariant(0, named("A"));
    const ListHolder copy(osg::TransformVariantsAttachmentPtr::dcast(list->shallowCopy()));
    EXPECT_EQ(copy->getVariantCount(), 0u);
    EXPECT_EQ(list->getVariant(0).getRefCount(), 1);
}
