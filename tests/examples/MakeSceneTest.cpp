#include "TestModel.h"

#include <scene/ModelLoader.h>
#include <support/UndoTest.h>

#include <QtCore/QProcess>

namespace {

class MakeScene : public UndoTest
{
protected:
    QByteArray make(const QStringList& arguments)
    {
        QProcess process;
        process.start(QStringLiteral(MAKE_SCENE_SCRIPT), arguments);
        EXPECT_TRUE(process.waitForFinished()) << process.errorString().toStdString();
        status = process.exitCode();
        return process.readAllStandardOutput();
    }

    ModelFiles files;
    int status = -1;
};

TEST_F(MakeScene, WritesASceneOfAsManyNodesWithTenChildrenEach)
{
    for (int nodes : {2, 11, 12, 250}) {
        const Model model = loadModel(files.write("made.gltf", make({QString::number(nodes)})));
        EXPECT_EQ(status, 0);
        EXPECT_EQ(model.nodes.size(), std::size_t(nodes));
        EXPECT_EQ(model.root->getNChildren(), osg::UInt32(std::min(nodes - 1, 10)));
    }
}

TEST_F(MakeScene, WritesTheSameSceneEachTime)
{
    EXPECT_EQ(make({"20"}), make({"20"}));
}

TEST_F(MakeScene, RefusesWhatIsNoNumberOfNodes)
{
    for (const QStringList& arguments : std::vector<QStringList>{{}, {"0"}, {"-1"}, {"many"}, {"1", "2"}}) {
        EXPECT_EQ(make(arguments), "");
        EXPECT_EQ(status, 2);
    }
}

} // namespace
