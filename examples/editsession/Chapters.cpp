#include <editsession/Chapters.h>

#include <editsession/Report.h>
#include <editsession/SceneDigest.h>

void Context::checkScene(const QString& what, const SceneState& then)
{
    scene.state();
    const SceneComparison comparison = scene.compareWith(then);
    report.check(what, comparison.same, comparison.rounded);
}

const std::vector<Chapter>& chapters()
{
    // A new family: a file Chapter<Family>.cpp with its function, declared in Chapters.h, and a row here. What it needs
    // in the scene beyond the model's nodes (cores for the lights, materials, attachments) is made by a prepare
    // function in the same file. A chapter must do with any model, down to a single node without light and material.

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
