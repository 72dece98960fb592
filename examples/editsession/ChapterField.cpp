#include <editsession/Chapters.h>
#include <editsession/Report.h>
#include <scene/ModelLoader.h>
#include <scene/Paint.h>
#include <scene/SceneDigest.h>

#include <moUndoStack/moUndoCommands.h>

#include <QtCore/QObject>

/// A check box of a user interface that shows whether a paint is lit.
class Switch : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    bool isOn() const { return m_on; }

public Q_SLOTS:
    void setOn(bool on) { m_on = on; }

private:
    bool m_on = true;
};

namespace {

moUndoString text(const char* action)
{
    return moUndoString(action, QStringLiteral("Paint Commands"));
}

std::vector<osg::PaintPtr> paints(const Model& model)
{
    std::vector<osg::PaintPtr> found;
    for (const osg::FieldContainerRefPtr& container : model.containers) {
        if (const auto paint = osg::PaintPtr::dcast(container.get())) found.push_back(paint);
    }
    return found;
}

/// Edits any field of any container by its name. The type of the field decides what the number becomes.
void setByName(Context& context, const osg::NodePtr& node, const osg::PaintPtr& paint)
{
    const int before = context.stack.size();
    moUndoUtil::makeCommand(text("Hide from Mirrors"), node, "travMask", 0xFE);
    moUndoUtil::makeCommand(text("Set Transparency"), paint, "Transparency", 0.25);
    moUndoUtil::makeCommand(text("Set Price"), paint, "price", 19.5F);
    moUndoUtil::makeCommand(text("Paint Twice"), paint, "coats", 2);
    context.report.check("field: fields are set by name, whatever their type",
                         context.stack.size() == before + 4 && node->getTravMask() == 0xFE &&
                             paint->getTransparency() == 0.25F && paint->getPrice() == 19.5 && paint->getCoats() == 2);

    const QByteArray scene = context.scene.state().digest;
    moUndoUtil::makeCommand(text("No Such Field"), paint, "colour", 1);
    moUndoUtil::makeCommand(text("Text is no Number"), paint, "label", 1);
    context.report.check("field: what cannot be set is left undone in silence",
                         context.stack.size() == before + 4 && context.scene.state().digest == scene);
}

/// Edits three fields in one step. The parent owns the commands.
void setTogether(Context& context, const osg::PaintPtr& paint)
{
    auto* const parent = new moMultiCommand(text("Varnish"), nullptr);
    moUndoUtil::makeCommand(text("Set Shininess"), paint, "shininess", 96.F, parent);
    moUndoUtil::makeCommand(text("Set Coats"), paint, "coats", 3, parent);
    moUndoUtil::makeCommand(text("Set Price"), paint, "price", 24.75, parent);
    context.stack.addOrExecute(parent);
    context.report.check("field: three fields are one step", context.stack.currentCommand() == parent &&
                                                                 parent->childCount() == 3 &&
                                                                 paint->getShininess() == 96.F);
}

/// Types a text: each key adds a command with the text so far.
void type(Context& context, const osg::PaintPtr& paint, const std::string& label)
{
    constexpr double noLimit = -1.;

    const int before = context.stack.size();
    const std::string start = paint->getLabel();
    for (std::size_t length = 1; length <= label.size(); ++length) {
        auto* const command =
            new moStringFieldUndoCommand(text("Name Paint"), paint, "label", label.substr(0, length), nullptr);
        command->setMergeResponseDelta(noLimit);
        context.stack.addOrExecute(command);
    }
    context.report.check("field: a word that is typed is one step",
                         context.stack.size() == before + 1 && paint->getLabel() == label);
    context.stack.undo();
    context.report.check("field: one undo takes the whole word back", paint->getLabel() == start);
    context.stack.redo();

    osg::MFString keywords;
    keywords.push_back(label);
    keywords.push_back("interior");
    context.stack.addOrExecute(new moStringsFieldUndoCommand(text("Set Keywords"), paint, "keywords", keywords));
    context.report.check("field: a list of texts is set at once", paint->getKeywords().size() == 2);
}

osg::ImagePtr chequered()
{
    constexpr osg::UInt8 pixels[] = {0, 255, 255, 0};
    osg::ImagePtr image = osg::Image::create();
    image->set(osg::Image::OSG_L_PF, 2, 2, 1, 1, 1, 0., pixels);
    return image;
}

/// Assigns a texture, undoes it and redoes it. Two paints with the same picture share one image.
void assignTexture(Context& context, const osg::PaintPtr& paint, const osg::PaintPtr& other)
{
    context.stack.addOrExecute(new moImageFieldUndoCommand(paint, "texture", chequered()));
    const osg::ImagePtr image = paint->getTexture();
    context.stack.undo();
    context.report.check("field: an assigned texture is taken back",
                         image != osg::NullFC && paint->getTexture() == osg::NullFC);
    context.stack.redo();
    context.report.check("field: and comes back as the same image", paint->getTexture() == image);

    context.stack.addOrExecute(new moImageFieldUndoCommand(other, "texture", chequered()));
    context.report.check("field: equal pictures are one image", other->getTexture() == image);
    context.stack.addOrExecute(new moImageFieldUndoCommand(other, "texture", osg::NullFC));
    context.report.check("field: a texture is removed", paint == other || paint->getTexture() == image);
}

/// A check box follows a field. The invoking command sets it at each redo and does nothing at undo. So the changed
/// callback of the step sets it after an undo.
void follow(Context& context, const osg::PaintPtr& paint)
{
    // Exists as long as the commands in the stack, which call it.
    auto* const lit = new Switch(&context.stack);
    lit->setOn(paint->getLit());
    const bool before = lit->isOn();

    auto* const step = new moMultiCommand(text("Switch the Light"), nullptr);
    moUndoUtil::makeCommand(text("Set Lit"), paint, "lit", !before, step);
    new moInvokeBoolFieldUndoCommand(text("Show Lit"), paint, "lit", !before, lit, "setOn(bool)", step);
    step->setChangedCB([lit, before](bool done) {
        if (!done) lit->setOn(before);
    });
    context.stack.addOrExecute(step);
    context.report.check("field: a switch follows a field", paint->getLit() != before && lit->isOn() != before);
    context.stack.undo();
    context.report.check("field: also when the change is taken back",
                         paint->getLit() == before && lit->isOn() == before);
    context.stack.redo();
    context.report.check("field: and made again", paint->getLit() != before && lit->isOn() != before);
}

} // namespace

void fieldChapter(Context& context)
{
    const std::vector<osg::PaintPtr> all = paints(context.model);
    setByName(context, context.model.nodes.front(), all.front());
    setTogether(context, all.front());
    type(context, all.front(), "Signal Red");
    assignTexture(context, all.front(), all.back());
    follow(context, all.front());
}

#include "ChapterField.moc"
