#include "DockTest.h"

#include <laws/ExportedClasses.h>

#include <support/OSGAllFields.h>

#include <QtCore/QRegularExpression>
#include <QtWidgets/QColorDialog>

#include <set>
#include <string>

namespace {

/// Uses every control that makes a command of a class of its own.
constexpr const char* everything = R"(
select Plate
set translation-x 1.5
set rotation-y 30
set scale-z 2
set shear-x 0.5
set rotation-order ZYX
set quaternion-x 0.5
set rotation-pivot-x 1
set rotation-pivot-translation-y 2
set scale-pivot-z 3
set scale-pivot-translation-x 4
set orientation-x 45
set direction-y 1

click variant-record
click variant-record
set variant-list "Pose 2"
set variant-name Home
click variant-up
click apply-scale
click variant-apply
click variant-remove

select "Area Light"
click light-on
click light-visible
set light-diffuse-r 0.25
set light-glossy-b 0.75
set light-intensity 12.5
set light-cone 30
set light-penumbra 12
set light-attenuation Quadratic
click light-profile
click flare-active
click flare-add-line
click flare-add-ghost
click flare-remove
click flare-anamorphic
set flare-parts "1: Glow"
click flare-remove
click flare-present
select Table "Area Light"
click light-set-reference
click links-nodes-add

set material Oak
set material-color-r 0.9
set material-label "Dark Oak"
click material-color-pick
set material Measured
set material-environment Sky

set tagName checked
click addTag
click removeTag
click addServerTag
click removeServerTag

select Plate Table
click add-sources
click add-up-vectors
click set-target
select Plate
click remove-from-roles

set field-container "Paint 'Oak'"
set field-table lit
click field-flag
click field-switch
set field-table label
set field-text Signal
set field-table keywords
set field-list "warm"
click field-set-list
set field-table texture
click field-image-chequer
)";

/// The classes of all commands of the history, with those of the children.
std::set<std::string> classesOfHistory(const moUndoStack& stack, std::string (*classesOf)(const QUndoCommand&))
{
    static const QRegularExpression separators(QStringLiteral("[()]|, "));
    std::set<std::string> classes;
    for (int step = 0; step < stack.size(); ++step) {
        const QString names = QString::fromStdString(classesOf(*stack.command(step)));
        for (const QString& name : names.split(separators, Qt::SkipEmptyParts))
            classes.insert(name.toStdString());
    }
    return classes;
}

/// With keys that are held down meanwhile: they change what a click selects, but not what a control does.
class EveryCommandTest : public DockTest, public testing::WithParamInterface<Qt::KeyboardModifier>
{
protected:
    void SetUp() override
    {
        DockTest::SetUp();
        holdKeys(GetParam());
    }
    void TearDown() override
    {
        holdKeys(Qt::NoModifier);
        DockTest::TearDown();
    }
    void useEverything()
    {
        script(everything);
        auto* const dialog = window->findChild<QColorDialog*>();
        ASSERT_NE(dialog, nullptr) << "a step of the script opens it";
        dialog->setCurrentColor(Qt::blue);
        delete dialog;
    }

    /// Sets numbers of all widths, in a container that has them.
    void useNumbers()
    {
        session().model().containers.emplace_back(osg::AllSingleFields::create());
        session().noteSceneChanged();
        script("set field-container AllSingleFields");
        for (const char* width : {"Int8", "UInt8", "Int16", "UInt16", "Int32", "UInt32", "Int64", "UInt64"})
            script(qPrintable(QStringLiteral("set field-table single%1\nset field-whole 17").arg(width)));
        for (const char* width : {"Real32", "Real64"})
            script(qPrintable(QStringLiteral("set field-table single%1\nset field-number 0.5").arg(width)));
    }
};

// The library exports an identity of each class that can be made, and of no class that is only a base.
TEST_P(EveryCommandTest, IsReachableFromTheUserInterface)
{
    useEverything();
    useNumbers();
    const std::set<std::string> used = classesOfHistory(stack, &classesOf);
    const std::set<std::string> exported = exportedCommandClasses();
    ASSERT_FALSE(exported.empty()) << "the library's symbols could not be read";
    EXPECT_THAT(used, testing::IsSupersetOf(exported));
    // Without an identity of its own, because it never merges.
    EXPECT_EQ(used.count("moGenericFunctionUndoCommand"), 1U);
}

TEST_P(EveryCommandTest, OfASessionIsUndoneAndRedone)
{
    const QByteArray before = digest();
    useEverything();
    const QByteArray after = digest();
    undoAll();
    EXPECT_EQ(digest(), before);
    redoAll();
    EXPECT_EQ(digest(), after);
}

INSTANTIATE_TEST_SUITE_P(KeysHeld, EveryCommandTest,
                         testing::Values(Qt::NoModifier, Qt::ShiftModifier, Qt::ControlModifier), [](const auto& keys) {
                             return keys.param == Qt::ShiftModifier     ? "Shift"
                                    : keys.param == Qt::ControlModifier ? "Control"
                                                                        : "None";
                         });

} // namespace
