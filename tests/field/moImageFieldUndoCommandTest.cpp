#include "FieldTest.h"

#include <support/Images.h>

#include <moUndoStack/field/moImageFieldUndoCommand.h>
#include <moUndoStack/field/moUndoUtil.h>

#include <moOpenSGUberBase/moTextureManager.h>

#include <OpenSG/OSGFieldContainerFactory.h>
#include <OpenSG/OSGRefPtr.h>

#include <QtCore/QTranslator>

#include <utility>

namespace {

using Lines = std::vector<std::string>;

/// Follows the references of named images. Images are kept by id, so that a destroyed one can be told.
class ImageFieldTest : public FieldTest
{
protected:
    void TearDown() override
    {
        moUndoStack::clearAll();
        if (container != osg::NullFC) setField(osg::NullFC);
        FieldTest::TearDown();
        moTextureManager::the()->setMaxTextureSize(m_maxTextureSize);
    }

    osg::ImagePtr watch(const std::string& name, const osg::ImagePtr& image)
    {
        m_watched.emplace_back(name, image.getFieldContainerId());
        return image;
    }

    /// The references of all watched images and what the field holds, e.g. "old 1, new gone, field old".
    std::string references() const
    {
        std::string line;
        std::string held = "null";
        for (const auto& [name, id] : m_watched) {
            const osg::FieldContainerPtr image = osg::FieldContainerFactory::the()->getContainer(id);
            line += name + ' ' + (image == osg::NullFC ? "gone" : std::to_string(image.getRefCount())) + ", ";
            if (image != osg::NullFC && field() == image) held = name;
        }
        return line + "field " + held;
    }

    const osg::ImagePtr& field() const { return container->getSingleImagePtr(); }

    /// Puts an image into the field as a loader does: the field's reference is counted.
    void setField(const osg::ImagePtr& image)
    {
        osg::addRefCP(image);
        const osg::ImagePtr before = field();
        container->setSingleImagePtr(image);
        osg::subRefCP(before);
    }

    moImageFieldUndoCommand* command(const osg::ImagePtr& image)
    {
        return new moImageFieldUndoCommand(container, "singleImagePtr", image);
    }

    /// References after construction, redo, undo, redo, and after the step was cleared away.
    Lines lifeDone(const osg::ImagePtr& image)
    {
        Lines lines;
        auto* const made = command(image);
        lines.push_back(references());
        stack.add(made);
        lines.push_back(references());
        stack.undo();
        lines.push_back(references());
        stack.redo();
        lines.push_back(references());
        stack.clear();
        lines.push_back(references());
        return lines;
    }

    /// References after construction, redo, undo, and after the undone step was cleared away.
    Lines lifeUndone(const osg::ImagePtr& image)
    {
        Lines lines;
        auto* const made = command(image);
        lines.push_back(references());
        stack.add(made);
        lines.push_back(references());
        stack.undo();
        lines.push_back(references());
        stack.clear();
        lines.push_back(references());
        return lines;
    }

private:
    std::vector<std::pair<std::string, osg::UInt32>> m_watched;
    const osg::Int32 m_maxTextureSize = moTextureManager::the()->maxTextureSize();
};

} // namespace

TEST_F(ImageFieldTest, AnImageNotSeenBeforeIsKeptByTheCommandAndByTheField)
{
    const auto image = watch("new", makeImage({1, 2}));
    EXPECT_EQ(lifeDone(image), Lines({"new 1, field null", "new 2, field new", "new 1, field null", "new 2, field new",
                                      "new 1, field new"}));
}

TEST_F(ImageFieldTest, TheCallersReferenceOfAnImageNotSeenBeforeStays)
{
    const auto image = watch("new", makeImage({1, 2}));
    const osg::RefPtr<osg::ImagePtr> callers(image);
    EXPECT_EQ(lifeUndone(image),
              Lines({"new 2, field null", "new 3, field new", "new 2, field null", "new 1, field null"}));
}

TEST_F(ImageFieldTest, TheOldImageOutlivesItsFieldAsLongAsItMayComeBack)
{
    setField(watch("old", makeImage({1})));
    const auto image = watch("new", makeImage({2}));
    EXPECT_EQ(lifeDone(image), Lines({"old 2, new 1, field old", "old 1, new 2, field new", "old 2, new 1, field old",
                                      "old 1, new 2, field new", "old gone, new 1, field new"}));
}

TEST_F(ImageFieldTest, AnUndoneStepThatIsClearedLeavesTheOldImageToTheField)
{
    setField(watch("old", makeImage({1})));
    const auto image = watch("new", makeImage({2}));
    EXPECT_EQ(lifeUndone(image), Lines({"old 2, new 1, field old", "old 1, new 2, field new", "old 2, new 1, field old",
                                        "old 1, new gone, field old"}));
}

TEST_F(ImageFieldTest, WhenTheManagerHasAnEqualImageTheGivenOneIsConsumed)
{
    const auto managed = watch("managed", makeImage({1, 2}));
    const osg::RefPtr<osg::ImagePtr> kept(moTextureManager::the()->getImage(managed, true));
    const auto given = watch("given", makeImage({1, 2}));
    EXPECT_EQ(lifeDone(given), Lines({"managed 2, given gone, field null", "managed 3, given gone, field managed",
                                      "managed 2, given gone, field null", "managed 3, given gone, field managed",
                                      "managed 2, given gone, field managed"}));
}

TEST_F(ImageFieldTest, TheImageOfOneCommandTakesThePlaceOfItsEqualsInLaterOnes)
{
    const auto first = watch("first", makeImage({1, 2}));
    stack.add(command(first));
    stack.add(command(watch("equal", makeImage({1, 2}))));
    EXPECT_EQ(references(), "first 4, equal gone, field first");
}

TEST_F(ImageFieldTest, OnlyOneReferenceOfTheGivenImageIsConsumed)
{
    const auto managed = watch("managed", makeImage({1, 2}));
    const osg::RefPtr<osg::ImagePtr> kept(moTextureManager::the()->getImage(managed, true));
    const auto given = watch("given", makeImage({1, 2}));
    const osg::RefPtr<osg::ImagePtr> another(given);
    osg::addRefCP(given);
    EXPECT_EQ(lifeUndone(given), Lines({"managed 2, given 1, field null", "managed 3, given 1, field managed",
                                        "managed 2, given 1, field null", "managed 1, given 1, field null"}));
}

TEST_F(ImageFieldTest, NullClearsTheFieldAndTheOldImageComesBack)
{
    setField(watch("old", makeImage({1})));
    EXPECT_EQ(lifeUndone(osg::NullFC),
              Lines({"old 2, field old", "old 1, field null", "old 2, field old", "old 1, field old"}));
    EXPECT_EQ(lifeDone(osg::NullFC), Lines({"old 2, field old", "old 1, field null", "old 2, field old",
                                            "old 1, field null", "old gone, field null"}));
}

TEST_F(ImageFieldTest, AnImageThatTheManagerRefusesIsConsumedAndClearsTheField)
{
    moTextureManager::the()->setMaxTextureSize(2);
    setField(watch("old", makeImage({1})));
    const auto given = watch("given", makeImage({1, 2, 3}));
    EXPECT_EQ(lifeUndone(given), Lines({"old 2, given gone, field old", "old 1, given gone, field null",
                                        "old 2, given gone, field old", "old 1, given gone, field old"}));
}

TEST_F(ImageFieldTest, AnImageThatTakesItsOwnPlaceSurvives)
{
    const auto image = watch("same", makeImage({1}));
    setField(image);
    EXPECT_EQ(lifeDone(image), Lines({"same 3, field same", "same 3, field same", "same 3, field same",
                                      "same 3, field same", "same 1, field same"}));
}

TEST_F(ImageFieldTest, ACommandThatWasNeverRunGivesItsReferencesBack)
{
    setField(watch("old", makeImage({1})));
    const osg::RefPtr<osg::ImagePtr> callers(watch("new", makeImage({2})));
    delete command(callers);
    EXPECT_EQ(references(), "old 1, new 1, field old");
}

TEST_F(ImageFieldTest, AnUnresolvedFieldKeepsNoOldImageAndStillReleasesTheNewOne)
{
    setField(watch("old", makeImage({1})));
    stack.add(new moImageFieldUndoCommand(container, "noSuchField", watch("new", makeImage({2}))));
    EXPECT_EQ(references(), "old 1, new 1, field old");
    stack.undo();
    stack.clear();
    EXPECT_EQ(references(), "old 1, new gone, field old");
}

TEST_F(ImageFieldTest, ImagesOutliveAContainerThatWasDestroyedUntilTheStepIsCleared)
{
    setField(watch("old", makeImage({1})));
    const auto image = watch("new", makeImage({2}));
    stack.add(command(image));
    stack.undo();
    setField(osg::NullFC);
    destroy(container);
    stack.redo();
    stack.undo();
    EXPECT_EQ(image.getRefCount(), 1);
    stack.clear();
}

TEST_F(ImageFieldTest, StepsOnOneFieldNeverMerge)
{
    const auto first = watch("first", makeImage({1}));
    const auto next = watch("next", makeImage({2}));
    stack.add(command(first));
    stack.add(command(next));
    EXPECT_EQ(stack.size(), 2);
    EXPECT_EQ(references(), "first 2, next 2, field next");
    stack.undo();
    EXPECT_EQ(references(), "first 3, next 1, field first");
    stack.undo();
    EXPECT_EQ(references(), "first 2, next 1, field null");
    stack.clear();
    EXPECT_EQ(references(), "first gone, next gone, field null");

    const moImageFieldUndoCommand older(container, "singleImagePtr", osg::NullFC);
    const moImageFieldUndoCommand newer(container, "singleImagePtr", osg::NullFC);
    EXPECT_FALSE(older.canMergeWith(&newer));
}

TEST_F(ImageFieldTest, TheReferenceMovesBetweenTheEndOfTheEditAndTheNotifyFunction)
{
    const auto image = watch("new", makeImage({1}));
    Lines lines;
    container->onChanged = [&](osg::BitVector, osg::UInt32) { lines.push_back("edit: " + references()); };
    auto* const made = command(image);
    made->setNotifyFunction([&] { lines.push_back("notify: " + references()); });
    stack.add(made);
    EXPECT_EQ(lines, Lines({"edit: new 1, field new", "notify: new 2, field new"}));
}

TEST_F(ImageFieldTest, TheReferenceMovesEvenWhenAListenerToTheChangeThrows)
{
    const auto image = watch("new", makeImage({1}));
    stack.add(command(image));
    container->onChanged = [](osg::BitVector, osg::UInt32) { throw 1; };
    EXPECT_THROW(stack.undo(), int);
    EXPECT_EQ(references(), "new 1, field null");
    container->onChanged = nullptr;
}

TEST_F(ImageFieldTest, BothConstructorsSetATextOfTheirOwn)
{
    const moImageFieldUndoCommand byName(container, "singleImagePtr", osg::NullFC);
    const moImageFieldUndoCommand byId(container, static_cast<int>(osg::AllSingleFields::SingleImagePtrFieldId),
                                       osg::NullFC);
    EXPECT_EQ(byName.text(), "Set Texture");
    EXPECT_EQ(byName.getDescription(), "Set Texture");
    EXPECT_EQ(byId.text(), "Set Texture");
    EXPECT_EQ(byId.getDescription(), "Set Texture");
    EXPECT_EQ(byId.id(), moImageFieldUndoCommand::commandId());
}

TEST_F(ImageFieldTest, TranslationsAreLookedUpInTheContextOfTheClass)
{
    class Shouting : public QTranslator
    {
    public:
        bool isEmpty() const override { return false; }
        QString translate(const char* context, const char* source, const char* disambiguation, int n) const override
        {
            return QString("%1/%2/%3/%4").arg(context, source, disambiguation).arg(n);
        }
    };
    Shouting translator;
    QCoreApplication::installTranslator(&translator);
    EXPECT_EQ(moImageFieldUndoCommand::tr("Set Texture", "menu", 2), "moImageFieldUndoCommand/Set Texture/menu/2");
    QCoreApplication::removeTranslator(&translator);
}

TEST_F(ImageFieldTest, ReadingAFieldAddsNoReference)
{
    setField(watch("old", makeImage({1})));
    EXPECT_EQ(moUndoUtil::getImageValue(containerId, "singleImagePtr"), field());
    EXPECT_EQ(moUndoUtil::getImageValue(containerId, "SingleImagePtr"), field());
    EXPECT_EQ(references(), "old 1, field old");
}

TEST_F(ImageFieldTest, ReadingWhatIsNoImageFieldGivesNull)
{
    setField(makeImage({1}));
    EXPECT_EQ(moUndoUtil::getImageValue(0, "singleImagePtr"), osg::NullFC);
    EXPECT_EQ(moUndoUtil::getImageValue(0xFFFFFFFFU, "singleImagePtr"), osg::NullFC);
    EXPECT_EQ(moUndoUtil::getImageValue(containerId, ""), osg::NullFC);
    EXPECT_EQ(moUndoUtil::getImageValue(containerId, "noSuchField"), osg::NullFC);
    EXPECT_EQ(moUndoUtil::getImageValue(containerId, "singleInt32"), osg::NullFC);
    EXPECT_EQ(moUndoUtil::getImageValue(containerId, "singleNodePtr"), osg::NullFC);
}

TEST_F(ImageFieldTest, SettingWithoutUndoIsOneEditAndMovesTheFieldsReference)
{
    const osg::RefPtr<osg::ImagePtr> callers(watch("old", makeImage({1})));
    setField(callers);
    takeEdits();
    moUndoUtil::setImageValue(watch("new", makeImage({2})), containerId, "SingleImagePtr");
    EXPECT_EQ(references(), "old 1, new 1, field new");
    EXPECT_EQ(takeEdits(), oneEdit(osg::AllSingleFields::SingleImagePtrFieldMask));
    EXPECT_TRUE(stack.isEmpty());

    moUndoUtil::setImageValue(osg::NullFC, containerId, "singleImagePtr");
    EXPECT_EQ(references(), "old 1, new gone, field null");
}

TEST_F(ImageFieldTest, SettingWithoutUndoPutsTheManagersImageInAndLeavesTheGivenOneAlone)
{
    const auto managed = watch("managed", makeImage({1, 2}));
    moUndoUtil::setImageValue(managed, containerId, "singleImagePtr");
    const osg::RefPtr<osg::ImagePtr> given(watch("given", makeImage({1, 2})));
    moUndoUtil::setImageValue(given, containerId, "singleImagePtr");
    EXPECT_EQ(references(), "managed 1, given 1, field managed");
}

TEST_F(ImageFieldTest, SettingWithoutUndoReleasesTheOldImageEvenWhenAListenerToTheChangeThrows)
{
    setField(watch("old", makeImage({1})));
    const auto image = watch("new", makeImage({2}));
    container->onChanged = [](osg::BitVector, osg::UInt32) { throw 1; };
    EXPECT_THROW(moUndoUtil::setImageValue(image, containerId, "singleImagePtr"), int);
    EXPECT_EQ(references(), "old gone, new 1, field new");
    container->onChanged = nullptr;
}

TEST_F(ImageFieldTest, SettingWhatIsNoImageFieldLeavesTheImageUntouched)
{
    const osg::RefPtr<osg::ImagePtr> callers(watch("new", makeImage({2})));
    const auto original = contents(container);
    moUndoUtil::setImageValue(callers, 0, "singleImagePtr");
    moUndoUtil::setImageValue(callers, 0xFFFFFFFFU, "singleImagePtr");
    moUndoUtil::setImageValue(callers, containerId, "");
    moUndoUtil::setImageValue(callers, containerId, "noSuchField");
    moUndoUtil::setImageValue(callers, containerId, "singleInt32");
    moUndoUtil::setImageValue(callers, containerId, "singleNodePtr");
    EXPECT_EQ(references(), "new 1, field null");
    EXPECT_EQ(contents(container), original);
    EXPECT_EQ(takeEdits(), Lines());
}
