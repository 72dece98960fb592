#include <support/Images.h>
#include <support/UndoTest.h>

#include <moOpenSGUberBase/moTextureManager.h>

#include <OpenSG/OSGRefPtr.h>

namespace {

class TextureManagerTest : public UndoTest
{
protected:
    void TearDown() override
    {
        manager->setMaxTextureSize(m_maxTextureSize);
        m_images.clear();
        UndoTest::TearDown();
    }

    /// An image that lives as long as the test.
    osg::ImagePtr kept(const osg::ImagePtr& image)
    {
        m_images.emplace_back(image);
        return image;
    }

    osg::ImagePtr image(osg::UInt32 format, osg::Int32 width, osg::Int32 height, const std::vector<osg::UInt8>& pixels)
    {
        const osg::ImagePtr made = osg::Image::create();
        made->set(format, width, height, 1, 1, 1, 0.0, pixels.data());
        return kept(made);
    }

    moTextureManager* const manager = moTextureManager::the();

private:
    std::vector<osg::RefPtr<osg::ImagePtr>> m_images;
    const osg::Int32 m_maxTextureSize = manager->maxTextureSize();
};

} // namespace

TEST_F(TextureManagerTest, ThereIsOneManager)
{
    EXPECT_EQ(moTextureManager::the(), manager);
}

TEST_F(TextureManagerTest, AnImageNotSeenBeforeComesBackAndStandsForItsEqualsFromThenOn)
{
    const auto first = kept(makeImage({1, 2}));
    EXPECT_EQ(manager->getImage(first, true), first);
    EXPECT_EQ(manager->getImage(kept(makeImage({1, 2})), true), first);
    EXPECT_EQ(manager->getImage(kept(makeImage({1, 2})), false), first);
    EXPECT_EQ(manager->getImage(first, true), first);
}

TEST_F(TextureManagerTest, WithoutSharingAnImageStaysUnknown)
{
    const auto first = kept(makeImage({1, 2}));
    const auto other = kept(makeImage({1, 2}));
    EXPECT_EQ(manager->getImage(first, false), first);
    EXPECT_EQ(manager->getImage(other, false), other);
    EXPECT_EQ(manager->getImage(other, true), other);
    EXPECT_EQ(manager->getImage(first, true), other);
}

TEST_F(TextureManagerTest, ImagesThatDifferInPixelsSizeOrFormatAreNotShared)
{
    const std::vector<osg::UInt8> pixels = {1, 2, 3, 4, 5, 6};
    const std::vector<osg::ImagePtr> different = {
        image(osg::Image::OSG_L_PF, 6, 1, pixels),         image(osg::Image::OSG_L_PF, 1, 6, pixels),
        image(osg::Image::OSG_L_PF, 2, 3, pixels),         image(osg::Image::OSG_A_PF, 6, 1, pixels),
        image(osg::Image::OSG_RGB_PF, 2, 1, pixels),       image(osg::Image::OSG_L_PF, 6, 1, {1, 2, 3, 4, 5, 7}),
        image(osg::Image::OSG_L_PF, 5, 1, {1, 2, 3, 4, 5})};
    for (const auto& one : different)
        EXPECT_EQ(manager->getImage(one, true), one);
}

TEST_F(TextureManagerTest, NoReferenceIsAddedOrReleased)
{
    const auto first = kept(makeImage({1, 2}));
    const auto other = kept(makeImage({1, 2}));
    manager->getImage(first, true);
    manager->getImage(other, true);
    EXPECT_EQ(first.getRefCount(), 1);
    EXPECT_EQ(other.getRefCount(), 1);
}

TEST_F(TextureManagerTest, ADestroyedImageIsForgotten)
{
    const osg::ImagePtr gone = makeImage({1, 2});
    manager->getImage(gone, true);
    osg::subRefCP(gone);
    const auto next = kept(makeImage({1, 2}));
    EXPECT_EQ(manager->getImage(next, true), next);
}

TEST_F(TextureManagerTest, AnEditedImageNoLongerStandsForWhatItWas)
{
    const auto edited = kept(makeImage({1, 2}));
    manager->getImage(edited, true);
    (*edited->getMFPixel())[0] = 9;
    const auto original = kept(makeImage({1, 2}));
    EXPECT_EQ(manager->getImage(original, true), original);
    EXPECT_EQ(manager->getImage(edited, true), edited);
    EXPECT_EQ(manager->getImage(kept(makeImage({9, 2})), true), edited);
}

TEST_F(TextureManagerTest, NullGivesNull)
{
    EXPECT_EQ(manager->getImage(osg::NullFC, true), osg::NullFC);
    EXPECT_EQ(manager->getImage(osg::NullFC, false), osg::NullFC);
}

TEST_F(TextureManagerTest, ImagesWithoutPixelsAreNotShared)
{
    const auto first = kept(osg::Image::create());
    const auto other = kept(osg::Image::create());
    EXPECT_EQ(manager->getImage(first, true), first);
    EXPECT_EQ(manager->getImage(other, true), other);
}

TEST_F(TextureManagerTest, AnImageThatIsTooLargeIsRefused)
{
    EXPECT_EQ(manager->maxTextureSize(), 16384);
    manager->setMaxTextureSize(2);
    EXPECT_EQ(manager->getImage(image(osg::Image::OSG_L_PF, 3, 1, {1, 2, 3}), true), osg::NullFC);
    EXPECT_EQ(manager->getImage(image(osg::Image::OSG_L_PF, 1, 3, {1, 2, 3}), false), osg::NullFC);
    const auto fits = image(osg::Image::OSG_L_PF, 2, 2, {1, 2, 3, 4});
    EXPECT_EQ(manager->getImage(fits, true), fits);
}
