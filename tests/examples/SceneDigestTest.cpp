#include "TestModel.h"

#include <scene/ModelLoader.h>
#include <scene/SceneDigest.h>
#include <support/UndoTest.h>

#include <OpenSG/OSGImage.h>
#include <OpenSG/OSGSimpleAttachments.h>
#include <OpenSG/OSGThread.h>
#include <OpenSG/OSGTransform3D.h>

#include <cmath>
#include <functional>
#include <limits>
#include <stdexcept>

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
    /// Who watches from before must see the same when it reads everything.
    template<class Change, class Opposite>
    void expectSeen(Change change, Opposite opposite)
    {
        SceneWatch watch(model);
        const QByteArray before = watch.state().digest;
        EXPECT_EQ(sceneDigest(model), before);
        change();
        const QByteArray changed = sceneDigest(model);
        EXPECT_NE(changed, before);
        EXPECT_EQ(watch.readAll().digest, changed);
        opposite();
        EXPECT_EQ(sceneDigest(model), before);
        EXPECT_EQ(watch.readAll().digest, before);
    }

    void move(const osg::NodePtr& node, float x)
    {
        const osg::CPEditor edit(transform(node), osg::Transform3D::TranslationFieldMask);
        transform(node)->setTranslation(osg::Vec3f(x, 0.f, 0.f));
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

TEST_F(SceneDigest, HasThirtyTwoHexadecimalDigits)
{
    EXPECT_THAT(sceneDigest(model).toStdString(), testing::MatchesRegex("[0-9a-f]+"));
    EXPECT_EQ(sceneDigest(model).size(), 32);
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
    move(first, 1.f);
    expectSeen([&] { move(first, std::nextafter(1.f, 2.f)); }, [&] { move(first, 1.f); });
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
    EXPECT_EQ(sceneDigest(Model()).size(), 32);
}

TEST_F(SceneDigest, OfAWatchIsThatOfTheWholeSceneAfterEachEdit)
{
    SceneWatch watch(model);
    osg::NodePtr child;
    const std::vector<std::function<void()>> edits = {
        [&] { move(first, 1.f); },
        [&] { move(model.root.get(), 2.f); },
        [&] {
            const osg::CPEditor edit(second, osg::Node::ChildrenFieldMask);
            child = osg::makeNodeFor(osg::Transform3D::create());
            second->addChild(child);
        },
        [&] { move(child, 3.f); },
        [&] {
            const osg::CPEditor edit(first, osg::Node::ChildrenFieldMask);
            first->addChild(child);
        },
        [&] {
            const osg::CPEditor edit(first, osg::Node::AttachmentsFieldMask);
            osg::setName(first, static_cast<const char*>(nullptr));
        },
        [&] { model.containers.emplace_back(osg::Image::create()); },
        [&] {
            const osg::CPEditor edit(first, osg::Node::ChildrenFieldMask);
            first->subChild(child);
        },
    };
    for (const auto& edit : edits) {
        const QByteArray before = watch.state().digest;
        edit();
        EXPECT_NE(watch.state().digest, before);
        EXPECT_EQ(watch.state().digest, sceneDigest(model));
    }
}

TEST_F(SceneDigest, OfAWatchDoesNotReadWhatTheChangeListDoesNotName)
{
    SceneWatch watch(model);
    const SceneState before = watch.state();
    transform(first)->setTranslation(osg::Vec3f(1.f, 0.f, 0.f));
    EXPECT_EQ(watch.state().digest, before.digest);
    EXPECT_NE(watch.readAll().digest, before.digest);
}

TEST_F(SceneDigest, LeavesTheChangeListWithoutRecording)
{
    SceneWatch(model).state();
    move(first, 1.f);
    EXPECT_EQ(osg::Thread::getCurrentChangeList()->sizeChanged(), 0U);
}

TEST_F(SceneDigest, OfAWatchThatWasInterruptedIsWholeAtTheNextCall)
{
    bool interrupting = false;
    SceneWatch watch(model, [&interrupting](std::size_t, std::size_t) {
        if (interrupting) throw std::runtime_error("stop");
    });
    watch.state();
    move(first, 1.f);
    interrupting = true;
    EXPECT_THROW(watch.state(), std::runtime_error);
    interrupting = false;
    EXPECT_EQ(watch.state().digest, sceneDigest(model));
}

TEST_F(SceneDigest, OfStatesThatDifferByRoundingAreTheSameAndTheValuesAreCounted)
{
    move(first, 1.f);
    SceneWatch watch(model);
    const SceneState before = watch.state();
    move(first, 1.000005f);
    watch.state();
    const SceneComparison comparison = watch.compareWith(before);
    EXPECT_TRUE(comparison.same);
    EXPECT_EQ(comparison.rounded, 2U); // the translation and its place in the matrix
    move(first, 1.f);
    watch.state();
    EXPECT_TRUE(watch.compareWith(before).same);
    EXPECT_EQ(watch.compareWith(before).rounded, 0U);
}

TEST_F(SceneDigest, OfStatesThatDifferByMoreThanRoundingAreDifferent)
{
    move(first, 1.f);
    SceneWatch watch(model);
    const SceneState before = watch.state();
    const auto expectDifferent = [&](const std::function<void()>& edit, const std::function<void()>& opposite) {
        edit();
        watch.readAll();
        EXPECT_FALSE(watch.compareWith(before).same);
        opposite();
        watch.readAll();
        EXPECT_TRUE(watch.compareWith(before).same);
    };
    expectDifferent([&] { move(first, 1.00002f); }, [&] { move(first, 1.f); });
    expectDifferent([&] { move(first, std::numeric_limits<float>::quiet_NaN()); }, [&] { move(first, 1.f); });
    expectDifferent([&] { transform(first)->setSupposedState(1); }, [&] { transform(first)->setSupposedState(-1); });
    expectDifferent([&] { osg::setName(first, "other"); }, [&] { osg::setName(first, "first"); });
    expectDifferent([&] { model.root->insertChild(1, first); }, [&] { model.root->insertChild(0, first); });
    expectDifferent([&] { model.containers.emplace_back(osg::Image::create()); }, [&] { model.containers.clear(); });
}

// What was placed in the world comes back rounded to the digits that the place has there.
TEST_F(SceneDigest, OfATransformFarFromTheOriginAllowsForTheWayToTheWorldAndBack)
{
    const osg::NodePtr child = add(first);
    move(child, 1.f);
    const auto compare = [&](float far, float shift) {
        move(first, far);
        SceneWatch watch(model);
        const SceneState before = watch.state();
        move(child, 1.f + shift);
        watch.state();
        const bool same = watch.compareWith(before).same;
        move(child, 1.f);
        return same;
    };
    EXPECT_FALSE(compare(1.f, 1e-3f));
    EXPECT_FALSE(compare(50.f, 1e-3f));
    EXPECT_TRUE(compare(1000.f, 1e-3f));
}

} // namespace
