#include "Probe.h"

#include <OpenSG/OSGFieldTable.h>
#include <OpenSG/OSGImage.h>
#include <OpenSG/OSGMaterialGroup.h>
#include <OpenSG/OSGSimpleAttachments.h>
#include <OpenSG/OSGSimpleMaterial.h>

#include <numeric>

namespace {

using namespace osg;
using testing::ElementsAre;

class ImageTest : public OpenSG
{
protected:
    void SetUp() override
    {
        OpenSG::SetUp();
        image = Image::create();
    }
    void TearDown() override
    {
        subRefCP(image);
        OpenSG::TearDown();
    }

    ImagePtr image;
};

TEST_F(ImageTest, IsInvalidAndWithoutPixelsAtFirst)
{
    EXPECT_FALSE(image->isValid());
    EXPECT_EQ(image->getSize(), 0u);
    EXPECT_EQ(image->getData(), nullptr);
}

TEST_F(ImageTest, HoldsACopyOfThePixelsThatItIsSetTo)
{
    UInt8 data[] = {1, 2, 3, 4, 5, 6};
    EXPECT_TRUE(image->set(Image::OSG_RGB_PF, 2, 1, 1, 1, 1, 0.5, data));
    data[0] = 99;
    EXPECT_TRUE(image->isValid());
    EXPECT_THAT(image->getPixel().getValues(), ElementsAre(1, 2, 3, 4, 5, 6));
    EXPECT_EQ(image->getWidth(), 2);
    EXPECT_EQ(image->getHeight(), 1);
    EXPECT_EQ(image->getDimension(), 1);
    EXPECT_EQ(image->getBpp(), 3);
    EXPECT_EQ(image->getFrameDelay(), 0.5);
    EXPECT_EQ(image->getSize(), 6u);
    const UInt8 other[] = {6, 5, 4, 3, 2, 1};
    EXPECT_TRUE(image->setData(other));
    EXPECT_EQ(*image->getData(), 6);
    testing::internal::CaptureStderr();
    EXPECT_FALSE(image->setData(nullptr));
    EXPECT_THAT(testing::internal::GetCapturedStderr(), testing::HasSubstr("WARNING"));
    EXPECT_EQ(*image->getData(), 6);
}

TEST_F(ImageTest, FindsThePixelsOfEachLevelFrameAndSide)
{
    // Levels of 4 x 2, 2 x 1 and 1 x 1 pixels with 2 bytes each.
    ASSERT_TRUE(image->set(Image::OSG_L_PF, 4, 2, 1, 3, 2, 0.0, nullptr, Image::OSG_UINT16_IMAGEDATA, true, 2));
    EXPECT_EQ(image->getSideSize(), 22);
    EXPECT_EQ(image->getFrameSize(), 44);
    EXPECT_EQ(image->getSize(), 88u);
    auto& pixels = image->getPixel().getValues();
    std::iota(pixels.begin(), pixels.end(), UInt8(0));
    EXPECT_EQ(*image->getData(), 0);
    EXPECT_EQ(*image->getData(1), 16);
    EXPECT_EQ(*image->getData(2), 20);
    EXPECT_EQ(*image->getData(0, 0, 1), 22);
    EXPECT_EQ(*image->getData(2, 1, 1), 86);
}

TEST_F(ImageTest, TakesASizeBelowOneAsOneAndHasNoPixelsInAnUnknownFormat)
{
    const UInt8 data[] = {1, 2, 3};
    EXPECT_TRUE(image->set(Image::OSG_RGB_PF, 0, -3, 0, 0, 0, 0.0, data));
    EXPECT_EQ(image->getWidth(), 1);
    EXPECT_EQ(image->getHeight(), 1);
    EXPECT_EQ(image->getMipMapCount(), 1);
    EXPECT_THAT(image->getPixel().getValues(), ElementsAre(1, 2, 3));
    EXPECT_FALSE(image->set(77, 2, 2, 1, 1, 1, 0.0, data));
    EXPECT_EQ(image->getPixelFormat(), 77u);
    EXPECT_EQ(image->getBpp(), 0);
    EXPECT_TRUE(image->getPixel().empty());
}

TEST_F(ImageTest, EditsItsFormatAndThenItsPixels)
{
    const UInt8 data[] = {1, 2, 3};
    changes->setReadOnly(false);
    const UInt32 id = getContainerId(image);
    image->set(Image::OSG_RGB_PF, 1, 1, 1, 1, 1, 0.0, data);
    image->setData(data);
    EXPECT_THAT((std::vector<ChangeList::ChangeEntry>(changes->beginChanged(), changes->endChanged())),
                ElementsAre(testing::Pair(id, 0x8F70u), testing::Pair(id, 0x13088u), testing::Pair(id, 0x13088u)));
}

TEST_F(ImageTest, CanBeSetToAnotherOneAndToItself)
{
    const UInt8 data[] = {1, 2, 3, 4};
    ASSERT_TRUE(image->set(Image::OSG_RGBA_PF, 1, 1, 1, 1, 1, 0.0, data));
    const ImagePtr copy = Image::create();
    EXPECT_TRUE(copy->set(image));
    EXPECT_TRUE(image->set(image));
    EXPECT_THAT(copy->getPixel().getValues(), ElementsAre(1, 2, 3, 4));
    EXPECT_THAT(image->getPixel().getValues(), ElementsAre(1, 2, 3, 4));
    EXPECT_EQ(copy->getPixelFormat(), UInt32(Image::OSG_RGBA_PF));
    subRefCP(copy);
}

TEST_F(ImageTest, CanHaveASizeWithoutPixels)
{
    EXPECT_FALSE(image->set(Image::OSG_RGB_PF, 2, 2, 1, 1, 1, 0.0, nullptr, Image::OSG_UINT8_IMAGEDATA, false));
    EXPECT_FALSE(image->isValid());
    EXPECT_EQ(image->getSize(), 12u);
    EXPECT_TRUE(image->getPixel().empty());
    EXPECT_EQ(image->getData(), nullptr);
}

TEST_F(ImageTest, TellsItsParentsWithTheOriginChildAndTheirFieldOrTheLastBit)
{
    const ProbePtr parent = Probe::create();
    FieldContainerPtr link = parent;
    link.setParentFieldPos(Probe::LabelFieldId);
    image->addParent(link);
    image->addParent(parent);
    endEditCP(image, Image::WidthFieldMask);
    EXPECT_THAT(takeLog(), ElementsAre("changed " + std::to_string(Probe::LabelFieldMask) + " from 4",
                                       "changed " + std::to_string(BitVector(1) << 63) + " from 4"));
    image->subParent(parent);
    image->subParent(image);
    EXPECT_EQ(image->getParents().size(), 1u);
    const ImagePtr copy = ImagePtr::dcast(image->shallowCopy());
    EXPECT_EQ(copy->getParents().size(), 1u) << "a copy names the same parents";
    subRefCP(copy);
    image->subParent(parent);
    subRefCP(parent);
}

TEST_F(ImageTest, HasANameFieldThatIsNotTheNameAttachment)
{
    setName(image, "attached");
    EXPECT_EQ(image->getName(), "");
    image->setName("own");
    EXPECT_STREQ(osg::getName(image), "attached");
    EXPECT_EQ(+Image::NameFieldId, 14u);
}

class MaterialTest : public OpenSG
{
};

TEST_F(MaterialTest, IsCountedByAGroupWhenItIsSetAndReleasedWithIt)
{
    const SimpleMaterialPtr material = SimpleMaterial::create();
    addRefCP(material);
    const MaterialGroupPtr group = MaterialGroup::create();
    group->setMaterial(material);
    group->setMaterial(material);
    EXPECT_EQ(material.getRefCount(), 2);
    group->setMaterial(NullFC);
    EXPECT_EQ(material.getRefCount(), 1);
    group->setMaterial(material);
    subRefCP(group);
    EXPECT_EQ(material.getRefCount(), 1);
    subRefCP(material);
}

TEST_F(MaterialTest, IsTransparentByItsModeOrItsTransparency)
{
    const SimpleMaterialPtr material = SimpleMaterial::create();
    EXPECT_FALSE(material->isTransparent());
    material->setTransparency(0.5f);
    EXPECT_TRUE(material->isTransparent());
    material->setTransparencyMode(Material::TransparencyForceOpaque);
    EXPECT_TRUE(material->isTransparent()) << "the transparency alone is enough";
    material->setTransparency(0.0f);
    EXPECT_FALSE(material->isTransparent());
    material->setTransparencyMode(Material::TransparencyForceTransparent);
    EXPECT_TRUE(material->isTransparent());
    EXPECT_EQ(material->getShininess(), 1.0f);
    EXPECT_TRUE(material->getLit());
    subRefCP(material);
}

} // namespace

namespace osg {

class ChunkProbe;
typedef FCPtr<StateChunkPtr, ChunkProbe> ChunkProbePtr;
#define OSG_CHUNKPROBE_FIELDS(SINGLE, MULTI)
OSG_CONTAINER_BASE(ChunkProbe, StateChunk, OSG_CHUNKPROBE_FIELDS)

/// A state chunk to hold; it adds nothing to the abstract one.
class ChunkProbe : public ChunkProbeBase
{
    OSG_CONTAINER(ChunkProbe)
};
OSG_CONTAINER_IMPL(ChunkProbe, StateChunk, OSG_CHUNKPROBE_FIELDS)

} // namespace osg

namespace {

TEST_F(MaterialTest, HoldsAReferenceForEveryEntryOfAChunk)
{
    const ChunkMaterialPtr material = ChunkMaterial::create();
    const ChunkProbePtr chunk = ChunkProbe::create();
    addRefCP(chunk);
    EXPECT_EQ(+StateChunk::IgnoreFieldId, 3u);
    EXPECT_TRUE(material->addChunk(chunk));
    EXPECT_TRUE(material->getSlots().empty()) << "none is named";
    EXPECT_TRUE(material->addChunk(chunk, 2));
    EXPECT_THAT(material->getSlots().getValues(), ElementsAre(-2, 2));
    EXPECT_TRUE(material->addChunk(NullFC)) << "null as well";
    EXPECT_EQ(chunk.getRefCount(), 3);
    EXPECT_EQ(material->getChunks().size(), 3u);
    EXPECT_EQ(material->find(chunk), 0);
    material->subChunk(chunk);
    EXPECT_EQ(chunk.getRefCount(), 2);
    EXPECT_THAT(material->getSlots().getValues(), ElementsAre(2));
    subRefCP(material);
    EXPECT_EQ(chunk.getRefCount(), 1);
    subRefCP(chunk);
}

} // namespace
