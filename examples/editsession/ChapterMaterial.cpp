#include <editsession/Chapters.h>
#include <editsession/Report.h>
#include <scene/ModelLoader.h>

#include <moUndoStack/moUndoCommands.h>

#include <moOpenSGUberMaterial/OSGUBRDFMaterial.h>
#include <moOpenSGUberMaterial/OSGUberMaterial.h>

#include <algorithm>

namespace {

template<class Ptr>
std::vector<Ptr> containersOf(const Model& model)
{
    std::vector<Ptr> found;
    for (const osg::FieldContainerRefPtr& container : model.containers) {
        if (const Ptr typed = Ptr::dcast(container.get())) found.push_back(typed);
    }
    return found;
}

moFieldUndoCommand<float>* setChannel(const osg::ColorComponentSettingsPtr& settings, const std::string& channel,
                                      float value, QUndoCommand* parent = nullptr)
{
    return new moFieldUndoCommand<float>(moUndoString("Set Channel", "Material Commands"), settings, channel, value,
                                         parent);
}

/// Drags a slider; every move is announced to the renderer.
void dragRed(Context& context, const osg::UberMaterialPtr& material)
{
    constexpr int moves = 20;

    const osg::ColorComponentSettingsPtr settings = material->getColorComponents(0);
    const float start = settings->getRed();
    const auto moved = [start](int move) { return start + 0.03125f * static_cast<float>(move); };
    const auto rendered = [&material] { return material->getColorComponentData(0); };

    const int before = context.stack.size();
    bool followed = true;
    for (int move = 1; move <= moves; ++move) {
        auto* const red = setChannel(settings, "red", moved(move));
        auto* const command = new moMaterialUndoCommand(moUndoString("Change Red", "Material Commands"), red, material,
                                                        settings, nullptr);
        // Longer than the user may rest in the middle of a drag.
        red->setMergeResponseDelta(10.);
        command->setMergeResponseDelta(10.);
        context.stack.addOrExecute(command);
        followed = followed && rendered() == moved(move);
    }
    context.report.check("material: the moves of a slider are one step", context.stack.size() == before + 1);
    context.report.check("material: the renderer sees every move", followed);
    context.stack.undo();
    context.report.check("material: one undo takes the whole drag back", rendered() == start);
    context.stack.redo();
}

/// Gives all materials the same grey: one step, with one composite for each material.
void paintGrey(Context& context, const std::vector<osg::UberMaterialPtr>& materials)
{
    static constexpr float grey = 0.5f;

    const int before = context.stack.size();
    context.stack.beginMultiCommand("Paint Grey", "Change Colours", false);
    for (const osg::UberMaterialPtr& material : materials) {
        const osg::ColorComponentSettingsPtr settings = material->getColorComponents(0);
        auto* const paint =
            new moMaterialMultiUndoCommand(moUndoString("Change Colour", "Material Commands"), material, settings);
        for (const char* channel : {"red", "green", "blue"})
            setChannel(settings, channel, grey, paint);
        context.stack.addOrExecute(paint);
    }
    context.stack.endMultiCommand();

    const auto isGrey = [](const osg::UberMaterialPtr& material) {
        const auto& data = material->getColorComponentData().getValues();
        return std::count(data.begin(), data.end(), grey) == 3;
    };
    context.report.check("material: all materials change in one step",
                         context.stack.size() == before + 1 && std::all_of(materials.begin(), materials.end(), isGrey));
}

/// Edits the label of a colour, which only the editor reads: the renderer gets no announcement.
void label(Context& context, const osg::UberMaterialPtr& material)
{
    const osg::ColorComponentSettingsPtr settings = material->getColorComponents(0);
    context.stack.addOrExecute(new moColorComponentUndoCommand(
        moUndoString("Label Colour", "Material Commands"),
        new moStringFieldUndoCommand(settings, "label", settings->getLabel() + " (grey)"), material, settings,
        nullptr));
    context.report.check("material: a colour is labelled", settings->getLabel().find("(grey)") != std::string::npos);
}

/// Sets an environment and replaces it. The scene holds both, because a command holds no reference on them.
void setEnvironments(Context& context, const osg::UBRDFMaterialPtr& glass, const osg::MaterialPtr& studio,
                     const osg::MaterialPtr& sky)
{
    context.stack.addOrExecute(new moSetEnvironmentUndoCommand(glass, studio, nullptr));
    context.stack.addOrExecute(new moSetEnvironmentUndoCommand(glass, sky, nullptr));
    context.report.check("material: an environment is replaced", glass->getEnvironment() == sky);
    context.stack.undo();
    context.report.check("material: undo gives the environment before", glass->getEnvironment() == studio);
    context.stack.redo();
}

} // namespace

void materialChapter(Context& context)
{
    const auto materials = containersOf<osg::UberMaterialPtr>(context.model);

    dragRed(context, materials.front());
    paintGrey(context, materials);
    label(context, materials.front());
    setEnvironments(context, containersOf<osg::UBRDFMaterialPtr>(context.model).front(),
                    materials[materials.size() - 2], materials.back());
}
