// Which texts of the library change with the language. Two translations: the German one, and one that puts each text in
// brackets.

#include <support/Samples.h>
#include <support/UndoTest.h>

#include <moUndoStack/core/moUndoCommand.h>
#include <moUndoStack/core/moUndoHistoryModel.h>
#include <moUndoStack/core/moUndoStackState.h>
#include <moUndoStack/light/moLightPropertyUndoCommands.h>

#include <moUtils/moMessage.h>

#include <QAction>
#include <QtCore/QCoreApplication>
#include <QtCore/QFile>
#include <QtCore/QRegularExpression>
#include <QtCore/QTranslator>
#include <QtCore/QXmlStreamReader>
#include <QtWidgets/QApplication>
#include <QtWidgets/QWidget>

#include <map>
#include <memory>
#include <set>
#include <string>
#include <utility>

namespace {

using testing::ElementsAreArray;

/// Texts of the library by where they are seen.
using Texts = std::map<std::string, QString>;
/// Context and text.
using Source = std::pair<std::string, std::string>;

/// While it exists, texts are translated by the file, and what is asked for is noted.
class Language : public QTranslator
{
public:
    explicit Language(const char* file)
    {
        EXPECT_TRUE(load(QString::fromUtf8(file)));
        QCoreApplication::installTranslator(this);
    }
    ~Language() override { QCoreApplication::removeTranslator(this); }

    QString translate(const char* context, const char* text, const char* disambiguation, int n) const override
    {
        const bool isOurs = std::string(context).rfind("mo", 0) == 0 || std::string(context) == "LightUndoCommand";
        if (isOurs) m_asked.emplace(context, text);
        return QTranslator::translate(context, text, disambiguation, n);
    }

    const std::set<Source>& asked() const { return m_asked; }

private:
    mutable std::set<Source> m_asked;
};

/// The texts of the German file, with their translations.
std::map<Source, QString> german()
{
    std::map<Source, QString> texts;
    QFile file(QStringLiteral(MO_GERMAN_SOURCE));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    QXmlStreamReader xml(&file);
    std::string context, text;
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement) continue;
        if (xml.name() == QLatin1String("name")) context = xml.readElementText().toStdString();
        if (xml.name() == QLatin1String("source")) text = xml.readElementText().toStdString();
        if (xml.name() == QLatin1String("translation")) texts[{context, text}] = xml.readElementText();
    }
    EXPECT_FALSE(xml.hasError()) << xml.errorString().toStdString();
    return texts;
}

class Translations : public UndoTest
{
protected:
    /// The texts of all commands, of a composite without a text, of the history and of the actions.
    Texts texts()
    {
        Texts all;
        for (const Sample& sample : samples()) {
            SampleScene scene;
            const std::unique_ptr<moUndoCommandBase> command(sample.make(scene.target, 0));
            const std::string name = sample.className + (sample.form.empty() ? "" : " " + sample.form);
            all[name] = command->text();
            all[name + ", description"] = command->getDescription();
        }
        SampleScene scene;
        all["moLightVisibleUndoCommand on"] = moLightVisibleUndoCommand(scene.target.light(), true, nullptr).text();

        const moUndoStackState state(stack);
        const std::unique_ptr<QAction> undo(state.createUndoAction(nullptr));
        const std::unique_ptr<QAction> redo(state.createRedoAction(nullptr));
        all["undo of nothing"] = undo->text();
        all["redo of nothing"] = redo->text();
        stack.beginMultiCommand("", "", false);
        samples().front().make(scene.target, 0);
        stack.endMultiCommand();
        all["composite"] = stack.currentCommand()->text();
        all["composite, description"] = dynamic_cast<const moUndoCommandBase&>(*stack.command(0)).getDescription();
        all["undo"] = undo->text();
        stack.undo();
        all["redo"] = redo->text();
        stack.clear();

        all["start of the history"] = moUndoHistoryModel(stack).index(0, 0).data().toString();
        stack.showHistory();
        for (QWidget* window : QApplication::topLevelWidgets()) {
            if (!window->windowTitle().isEmpty()) all["history"] = window->windowTitle();
            delete window;
        }
        return all;
    }

    std::map<std::string, std::string> changed(const Texts& before, const Texts& after)
    {
        std::map<std::string, std::string> result;
        for (const auto& [where, text] : after)
            if (text != before.at(where)) result[where] = text.toStdString();
        return result;
    }
};

TEST_F(Translations, ChangeTheTextsThatAreTranslatedAndNoOthers)
{
    const Texts english = texts();
    const Language brackets(MO_BRACKETS);
    const std::map<std::string, std::string> expected{
        {"composite", "[Set ]Sample"},
        {"history", "[Undo/Redo History]"},
        {"moAddTransformVariantUndoCommand", "[Insert transform variant 'plain']"},
        {"moAddTransformVariantUndoCommand, description", "[Insert transform variant]"},
        {"moApplyTransformationVariantUndoCommand", "[Apply variant to box]"},
        {"moApplyTransformationVariantUndoCommand from the second on", "[Apply variant to box]"},
        {"moApplyTransformationVariantUndoCommand from the second on, description", "[Apply variant]"},
        {"moApplyTransformationVariantUndoCommand, description", "[Apply variant]"},
        {"moLightAttenuationUndoCommand", "[Set Light Attenuation]"},
        {"moLightConeAngleUndoCommand", "[Light Cone Angle]"},
        {"moLightDiffuseUndoCommand", "[Diffuse Light Color]"},
        {"moLightEnableUndoCommand", "[Set Light on/off]"},
        {"moLightGlossyUndoCommand", "[Specular Light Color]"},
        {"moLightIntensityUndoCommand", "[Light Intensity]"},
        {"moLightPenumbraAngleUndoCommand", "[Light Penumbra Angle]"},
        {"moLightVisibleUndoCommand", "[Hide Light]"},
        {"moLightVisibleUndoCommand on", "[Show Light]"},
        {"moRemoveTransformSwitchVariantUndoCommand", "[Remove transform variant 'box']"},
        {"moRemoveTransformSwitchVariantUndoCommand, description", "[Remove transform variant]"},
        {"moTransformVariantMoveCommand", "[Move transform variant 'box']"},
        {"moTransformVariantMoveCommand, description", "[Move transform variant]"},
        {"redo", "[Redo [Set ]Sample]"},
        {"redo of nothing", "[Redo]"},
        {"start of the history", "[<empty>]"},
        {"undo", "[Undo [Set ]Sample]"},
        {"undo of nothing", "[Undo]"},
    };
    EXPECT_THAT(changed(english, texts()), ElementsAreArray(expected));
}

TEST_F(Translations, KnowEveryTextThatIsAskedForAndNoneThatIsNot)
{
    const Language brackets(MO_BRACKETS);
    texts();
    std::set<Source> known;
    for (const auto& [source, translation] : german())
        known.insert(source);
    EXPECT_EQ(brackets.asked(), known);
}

TEST_F(Translations, LeaveMessagesAndLogLinesAsTheyAre)
{
    const QRegularExpression id("uints?:[[]?[0-9]+");
    SampleScene scene;
    const auto messages = [&] {
        std::vector<std::string> lines;
        for (const Sample& sample : samples()) {
            const std::unique_ptr<moUndoCommandBase> command(sample.make(scene.target, 0));
            moMessage message;
            command->makeMessage(message);
            // Some containers are made anew.
            const QString line = QString::fromStdString(sample.className + ": " + describe(message));
            lines.push_back(QString(line).remove(id).toStdString());
        }
        stack.endMultiCommand();
        stack.showHistory();
        qDeleteAll(QApplication::topLevelWidgets());
        return std::make_pair(lines, log.take());
    };
    const auto english = messages();
    const Language brackets(MO_BRACKETS);
    EXPECT_EQ(messages(), english);
}

TEST_F(Translations, IntoGermanKeepPlacesAndBlanksOfEachText)
{
    for (const auto& [source, translation] : german()) {
        const QString text = QString::fromStdString(source.second);
        EXPECT_NE(translation, text) << source.second;
        EXPECT_EQ(translation.count("%1"), text.count("%1")) << source.second;
        EXPECT_EQ(translation.endsWith(' '), text.endsWith(' ')) << source.second;
        EXPECT_EQ(translation.trimmed().isEmpty(), false) << source.second;
    }
}

TEST_F(Translations, IntoGermanAreBuilt)
{
    const Language language(MO_GERMAN);
    for (const auto& [source, translation] : german())
        EXPECT_EQ(QCoreApplication::translate(source.first.c_str(), source.second.c_str()), translation);
}

} // namespace
