#include "TestModel.h"

#include <editsession/ModelLoader.h>
#include <editsession/SceneDigest.h>
#include <support/UndoTest.h>

#include <OpenSG/OSGImage.h>
#include <OpenSG/OSGSimpleAttachments.h>
#include <OpenSG/OSGTransform3D.h>

#include <cmath>
#include <limits>

namespace {

class SceneDigest : public UndoTest
{
protected:
    osg::NodePtr add(const osg::NodePtr& parent)
    {
        const osg::NodePtr node = osg::makeNodeFor(osg::Transform3D::create());
        parent->addChild(node);
        model.nodes.push_back(node);
        return node;
    }

    osg::Transform3DPtr transform(const osg::NodePtr& node) { return osg::Transform3DPtr::dcast(node->getCore()); }

    /// Runs the change, which must show in the digest, and then its opposite, which must give the former digest back.
    template<class Change, class Opposite>
    void expectSeen(Change change, Opposite opposite)
    {
        const QByteArray before = sceneDigest(model);
        change();
        EXPECT_NE(sceneDigest(model), before);
        opposite();
        EXPECT_EQ(sceneDigest(model), before);
    }

    void SetUp() override
    {
        UndoTest::SetUp();
        model.root = osg::makeNodeFor(osg::Transform3D::create());
        model.nodes = {model.root.get()};
        first = add(model.root);
        second = add(model.root);
        osg::setName(first, "first");
    }

    void TearDown() override
    {
        model = Model();
        UndoTest::TearDown();
    }

    Model model;
    osg::NodePtr first;
    osg::NodePtr second;
};

TEST_F(SceneDigest, HasSixtyFourHexadecimalDigits)
{
    EXPECT_THAT(sceneDigest(model).toStdString(), testing::MatchesRegex("[0-9a-f]+"));
    EXPECT_EQ(sceneDigest(model).size(), 64);
}

TEST_F(SceneDigest, SeesANameComeChangeAndGo)
{
    expectSeen([&] { osg::setName(first, "other"); }, [&] { osg::setName(first, "first"); });
    expectSeen([&] { osg::setName(second, ""); }, [&] { osg::setName(second, static_cast<const char*>(nullptr)); });
}

TEST_F(SceneDigest, SeesWhichNodeHasAName)
{
    expectSeen(
        [&] {
            osg::setName(second, "first");
            osg::setName(first, static_cast<const char*>(nullptr));
        },
        [&] {
            osg::setName(first, "first");
            osg::setName(second, static_cast<const char*>(nullptr));
        });
}

TEST_F(SceneDigest, SeesTheOrderOfChildren)
{
    expectSeen([&] { model.root->insertChild(1, first); }, [&] { model.root->insertChild(0, first); });
}

TEST_F(SceneDigest, SeesANewParent)
{
    expectSeen([&] { second->addChild(first); }, [&] { model.root->insertChild(0, first); });
}

TEST_F(SceneDigest, SeesTheSmallestStepOfANumber)
{
    const auto set = [&](float x) {
        const osg::CPEditor edit(transform(first), osg::Transform3D::TranslationFieldMask);
        transform(first)->setTranslation(osg::Vec3f(x, 0.f, 0.f));
    };
    set(1.f);
    expectSeen([&] { set(std::nextafter(1.f, 2.f)); }, [&] { set(1.f); });
}

TEST_F(SceneDigest, SeesTheSignOfZeroInAFieldThatMovesNothing)
{
    expectSeen([&] { transform(first)->getShear()[0] = -0.f; }, [&] { transform(first)->getShear()[0] = 0.f; });
}

TEST_F(SceneDigest, SeesThatTwoNodesShareACore)
{
    const osg::RefPtr<osg::NodeCorePtr> own(second->getCore());
    expectSeen([&] { second->setCore(first->getCore()); }, [&] { second->setCore(own.get()); });
}

TEST_F(SceneDigest, SeesWhatIsKeptBesideTheNodes)
{
    const osg::ImagePtr image = osg::Image::create();
    model.containers.emplace_back(image);
    expectSeen([&] { image->setFrameDelay(0.5); }, [&] { image->setFrameDelay(0.); });
    expectSeen([&] { image->getMFPixel()->push_back(7); }, [&] { image->getMFPixel()->clear(); });
}

TEST_F(SceneDigest, DoesNotDependOnContainerIds)
{
    const QByteArray digest = sceneDigest(model);
    Model other;
    const osg::NodePtr late = osg::makeNodeFor(osg::Transform3D::create());
    const osg::NodePtr early = osg::makeNodeFor(osg::Transform3D::create());
    osg::setName(early, "first");
    other.root = osg::makeNodeFor(osg::Transform3D::create());
    other.root->addChild(early);
    other.root->addChild(late);
    EXPECT_EQ(sceneDigest(other), digest);
}

TEST_F(SceneDigest, DoesNotDependOnWhetherVolumesAreUpToDate)
{
    const QByteArray before = sceneDigest(model);
    model.root->updateVolume();
    EXPECT_EQ(sceneDigest(model), before);
}

TEST_F(SceneDigest, CoversADeepScene)
{
    osg::NodePtr deepest = second;
    for (int i = 0; i < 2000; ++i)
        deepest = add(deepest);
    expectSeen([&] { osg::setName(deepest, "deepest"); },
               [&] { osg::setName(deepest, static_cast<const char*>(nullptr)); });
}

TEST_F(SceneDigest, OfAnEmptyModelIsOne)
{
    EXPECT_EQ(sceneDigest(Model()).size(), 64);
}

} // namespace
