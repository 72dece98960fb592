#include "DockTest.h"

#include <scene/Paint.h>

#include <support/OSGAllFields.h>

#include <moUndoStack/moUndoCommands.h>

#include <QtGui/QImage>

namespace {

class FieldDockTest : public DockTest
{
protected:
    /// Makes a container the one whose fields are shown.
    void show(const osg::FieldContainerPtr& container)
    {
        auto& box = widget<QComboBox>("field-container");
        const int row = box.findData(osg::getContainerId(container));
        ASSERT_GE(row, 0);
        box.setCurrentIndex(row);
        Q_EMIT box.activated(row);
    }
    void choose(const char* field)
    {
        auto& table = widget<QTreeWidget>("field-table");
        const QList<QTreeWidgetItem*> rows = table.findItems(field, Qt::MatchExactly, 1);
        ASSERT_EQ(rows.size(), 1) << field;
        table.setCurrentItem(rows.front());
    }
    std::vector<osg::PaintPtr> paints()
    {
        std::vector<osg::PaintPtr> found;
        for (const osg::FieldContainerRefPtr& each : session().model().containers)
            if (const auto paint = osg::PaintPtr::dcast(each.get())) found.push_back(paint);
        return found;
    }
    osg::PaintPtr paint() { return paints().front(); }
    void expectOneStepOf(const char* field, const Control& control)
    {
        choose(field);
        expectOneStep(control);
    }
    /// All edits of a paint, as with the box for ids.
    void editPaint(const char* whole, const char* number)
    {
        const char* table = "field-table";
        const SceneState before = now();
        show(paint());
        expectOneStepOf("lit", {"click field-flag", "field-flag", "moBoolFieldUndoCommand"});
        expectOneStepOf("lit", {"click field-switch", "field-lamp",
                                "moInvokeMultiCommand(moBoolFieldUndoCommand, moInvokeBoolFieldUndoCommand)"});
        expectOneStepOf("coats", {"set field-whole 7", "field-whole", whole});
        expectOneStepOf("price", {"set field-number 2.5", "field-number", number});
        expectOneStepOf("label", {"set field-text \"Signal Red\"", "field-text", "moStringFieldUndoCommand"});
        choose("keywords");
        widget<QPlainTextEdit>("field-list").setPlainText("warm\ninterior");
        expectOneStep({"click field-set-list", table, "moStringsFieldUndoCommand"});
        expectOneStepOf("texture", {"click field-image-chequer", table, "moImageFieldUndoCommand"});
        expectOneStepOf("texture", {"click field-image-none", table, "moImageFieldUndoCommand"});
        expectUndoTo(0, before);
    }
};

TEST_F(FieldDockTest, EachKindOfFieldIsOneStepThatTheDockFollows)
{
    editPaint("moFieldUndoCommand<unsigned char>", "moFieldUndoCommand<double>");
}

TEST_F(FieldDockTest, FieldsAreAddressedByIdToo)
{
    script("click field-by-id");
    editPaint("moFieldUndoCommand<unsigned char>", "moFieldUndoCommand<double>");
}

TEST_F(FieldDockTest, NumbersOfAllWidthsAreEdited)
{
    const osg::AllSingleFieldsPtr all = osg::AllSingleFields::create();
    session().model().containers.emplace_back(all);
    session().noteSceneChanged();
    show(all);
    const auto edit = [this](const char* field, const char* box, const char* type) {
        choose(field);
        const int steps = stack.size();
        script((std::string("set ") + box + " 17").c_str());
        ASSERT_EQ(stack.size(), steps + 1) << field;
        EXPECT_EQ(classesOf(*stack.command(steps)), "moFieldUndoCommand<" + std::string(type) + ">") << field;
        EXPECT_EQ(widget<QDoubleSpinBox>(box).value(), 17.) << field;
        stack.undo();
        EXPECT_EQ(widget<QDoubleSpinBox>(box).value(), 0.) << field;
        stack.redo();
        EXPECT_EQ(widget<QDoubleSpinBox>(box).value(), 17.) << field;
    };
    edit("singleInt8", "field-whole", "signed char");
    edit("singleUInt8", "field-whole", "unsigned char");
    edit("singleInt16", "field-whole", "short");
    edit("singleUInt16", "field-whole", "unsigned short");
    edit("singleInt32", "field-whole", "int");
    edit("singleUInt32", "field-whole", "unsigned int");
    edit("singleInt64", "field-whole", "long");
    edit("singleUInt64", "field-whole", "unsigned long");
    edit("singleReal32", "field-number", "float");
    edit("singleReal64", "field-number", "double");
    EXPECT_EQ(all->getSingleInt8(), 17);
    EXPECT_EQ(all->getSingleUInt64(), 17U);
    stack.clear();
    session().model().containers.pop_back();
}

TEST_F(FieldDockTest, ANodeIsShownWithItsPartsAndWhatBelongsToNoNode)
{
    const auto containers = [this] {
        QStringList names;
        for (int i = 0; i < widget<QComboBox>("field-container").count(); ++i)
            names.append(widget<QComboBox>("field-container").itemText(i));
        return names;
    };
    EXPECT_FALSE(containers().contains("Node 'Plate'"));
    EXPECT_TRUE(containers().contains("AimConstraint"));
    script("select Plate\nclick variant-record");
    for (const char* name : {"Node 'Plate'", "Transform3D", "TagAttachment", "TransformVariant 'Pose 1'"})
        EXPECT_TRUE(containers().contains(name)) << name;
    show(node("Plate"));
    expectOneStepOf("travMask", {"set field-whole 5", "field-whole", "moFieldUndoCommand<unsigned int>"});
    script("select Table");
    EXPECT_EQ(seen("field-container"), "Node 'Table'") << "of another node, the same part is shown";
    show(paint());
    script("select Plate");
    EXPECT_EQ(seen("field-container"),
              containers()[widget<QComboBox>("field-container").findData(osg::getContainerId(paint()))].toStdString());
}

TEST_F(FieldDockTest, ATextOfOneContainerDoesNotContinueThatOfAnother)
{
    const std::vector<osg::PaintPtr> all = paints();
    ASSERT_GE(all.size(), 2U);
    for (const bool isList : {false, true}) {
        const SceneState before = now();
        const int index = stack.index();
        const auto set = [&](const osg::PaintPtr& paint, const char* text) {
            show(paint);
            choose(isList ? "keywords" : "label");
            if (!isList) return script((std::string("set field-text ") + text).c_str());
            widget<QPlainTextEdit>("field-list").setPlainText(text);
            script("click field-set-list");
        };
        set(all[1], "same");
        set(all[0], "same");
        set(all[1], "other");
        EXPECT_EQ(stack.size(), index + 3);
        expectUndoTo(index, before);
    }
}

TEST_F(FieldDockTest, AnImageIsReadFromAFile)
{
    QImage picture(3, 2, QImage::Format_RGB32);
    picture.fill(Qt::black);
    picture.setPixel(0, 0, qRgb(255, 0, 0));
    ASSERT_TRUE(picture.save(folder.filePath("picture.png")));
    show(paint());
    choose("texture");
    script("set field-image-file /no/such/file\nclick field-image-load");
    EXPECT_EQ(stack.size(), 0);
    EXPECT_EQ(seen("field-image-note"), "'/no/such/file' is no image that can be read");
    widget<QLineEdit>("field-image-file").setText(folder.filePath("picture.png"));
    expectOneStep({"click field-image-load", "field-table", "moImageFieldUndoCommand"});
    EXPECT_EQ(seen("field-image-note"), "");
    const osg::ImagePtr image = paint()->getTexture();
    ASSERT_NE(image, osg::ImagePtr(osg::NullFC));
    EXPECT_EQ(image->getWidth(), 3);
    EXPECT_EQ(image->getData()[3 * 4], 255) << "the first row of the file is the upper one of the image";
    EXPECT_EQ(image->getData()[0], 0);
}

TEST_F(FieldDockTest, NothingIsRecordedWhileRecordingIsOff)
{
    script("trigger record");
    show(paint());
    choose("coats");
    script("set field-whole 9");
    EXPECT_EQ(paint()->getCoats(), 9);
    choose("lit");
    const bool lit = paint()->getLit();
    script("click field-switch");
    EXPECT_EQ(paint()->getLit(), !lit);
    EXPECT_EQ(stack.size(), 0);
}

TEST_F(FieldDockTest, WhatIsTypedInAListStaysUntilTheFieldChanges)
{
    show(paint());
    choose("keywords");
    widget<QPlainTextEdit>("field-list").setPlainText("not set yet");
    session().noteSceneChanged();
    EXPECT_EQ(seen("field-list"), "not set yet");
    osg::MFString list;
    list.push_back("new");
    session().apply(new moStringsFieldUndoCommand(paint(), "keywords", list));
    EXPECT_EQ(seen("field-list"), "new");
}

TEST_F(FieldDockTest, OnlyTheControlsOfTheKindAreEnabled)
{
    const auto enabled = [this] {
        std::string names;
        for (const char* name : {"whole", "number", "flag", "switch", "text", "list", "image-load"})
            if (widget(("field-" + std::string(name)).c_str()).isEnabled()) names += name + std::string(" ");
        return names;
    };
    EXPECT_EQ(enabled(), "");
    show(paint());
    const std::vector<std::pair<const char*, const char*>> kinds{
        {"coats", "whole "},   {"price", "number "},       {"lit", "flag switch "}, {"label", "text "},
        {"keywords", "list "}, {"texture", "image-load "}, {"diffuse", ""}};
    for (const auto& [field, controls] : kinds) {
        choose(field);
        EXPECT_EQ(enabled(), controls) << field;
    }
}

} // namespace
