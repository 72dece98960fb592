#include <editsession/Chapters.h>

#include <editsession/Report.h>
#include <scene/Prepare.h>
#include <scene/SceneDigest.h>

void Context::checkScene(const QString& what, const SceneState& then)
{
    scene.state();
    const SceneComparison comparison = scene.compareWith(then);
    report.check(what, comparison.same, comparison.rounded);
}

const std::vector<Chapter>& chapters()
{
    // A new family: a file Chapter<Family>.cpp with its function, declared in Chapters.h, and a row here. If it needs
    // more in the scene than the model's nodes (cores for lights, materials, attachments), a prepare function in
    // scene/Prepare.h makes it. A chapter must work with any model, down to a single node without light and material.

    // clang-format off
    static const std::vector<Chapter> table = {
        // name           prepare             run
        {"core",          nullptr,            coreChapter},
        {"field",         prepareFields,      fieldChapter},
        {"light",         prepareLights,      lightChapter},
        {"transform",     nullptr,            transformChapter},
        {"material",      prepareMaterials,   materialChapter},
        {"tags",          prepareTags,        tagChapter},
        {"constraints",   prepareConstraints, constraintChapter},
    };
    // clang-format on
    return table;
}
