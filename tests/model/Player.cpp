#include "Player.h"

#include <support/Describe.h>
#include <support/Samples.h>
#include <support/UndoTest.h>

#include <moUndoStack/core/moFunctionUndoCommand.h>
#include <moUndoStack/core/moGenericFunctionUndoCommand.h>
#include <moUndoStack/core/moMultiCommand.h>
#include <moUndoStack/field/moBoolFieldUndoCommand.h>
#include <moUndoStack/field/moFieldUndoCommand.h>
#include <moUndoStack/field/moStringFieldUndoCommand.h>
#include <moUndoStack/field/moUndoUtil.h>
#include <moUndoUtils/moUndoString.h>
#include <moUtils/moMessage.h>

#include <OpenSG/OSGSimpleAttachments.h>

#include <algorithm>

namespace {

const std::string sampleText = "sample";

class RenameCommand : public moFunctionUndoCommand<std::string>
{
    MO_UNDO_COMMAND_ID

public:
    RenameCommand(const moUndoString& text, const osg::NodePtr& node, std::string name)
        : moFunctionUndoCommand(text, node, std::move(name), nullptr)
    {
    }

protected:
    std::string get(osg::NodePtr node) override { return osg::getName(node) ? osg::getName(node) : ""; }
    void set(osg::NodePtr node, std::string name) override { osg::setName(node, name); }
};

MO_UNDO_COMMAND_ID_IMPL(RenameCommand)

using Core = osg::AllSingleFields;

std::string fieldOf(osg::BitVector mask)
{
    if (mask == Core::SingleInt32FieldMask) return "number";
    if (mask == Core::SingleStringFieldMask) return "text";
    if (mask == Core::SingleBoolFieldMask) return "switch";
    return "mask " + std::to_string(mask);
}

std::string treeOf(const QUndoCommand& command)
{
    std::string line = '"' + command.text().toStdString() + '"';
    if (const auto* ours = dynamic_cast<const moUndoCommandBase*>(&command))
        line += " (" + ours->getDescription().toStdString() + ')';
    if (command.text().startsWith(QString::fromStdString(sampleText))) return line;
    for (int i = 0; i < command.childCount(); ++i)
        line += " [" + treeOf(*command.child(i)) + ']';
    return line;
}

/// Whether done or not done is all that can be seen of a sample. Samples whose targets are not compared could merge
/// with commands that are no samples.
bool isOpaque(const Sample& sample)
{
    return sample.commandId && sample.commandId() != moMultiCommand::commandId() &&
           !sample.has(Exception::TargetsAreNotCompared) && !sample.has(Exception::UndoDoesNothing);
}

/// Whether the command wraps others. These are made first and become children of a composition themselves.
bool joinsTwice(const Sample& sample)
{
    static const std::vector<std::string> s_wrappers = {"moMaterialUndoCommand", "moColorComponentUndoCommand",
                                                        "moMaterialMultiUndoCommand"};
    return std::find(s_wrappers.begin(), s_wrappers.end(), sample.className) != s_wrappers.end();
}

} // namespace

Player* Player::s_player = nullptr;

Player::Player() : m_containersBefore(liveContainerCount())
{
    s_player = this;
    m_logBefore = moLog::setListener([this](moLog::Kind kind, const std::string& line) {
        tell(std::string("log: ") + moLog::kindName(kind) + ": " + line);
    });
    m_qtBefore = qInstallMessageHandler(receiveQt);
    m_facts.renameId = RenameCommand::commandId();
    m_facts.numberId = moFieldUndoCommand<int>::commandId();
    m_facts.textId = moStringFieldUndoCommand::commandId();
    m_facts.switchId = moBoolFieldUndoCommand::commandId();
    m_facts.compositeId = moMultiCommand::commandId();
    m_facts.numberField = Core::SingleInt32FieldId;
    m_facts.textField = Core::SingleStringFieldId;
    m_facts.switchField = Core::SingleBoolFieldId;
    listen(0);
    listen(1);
}

Player::~Player()
{
    for (unsigned i = 0; i < 2; ++i) {
        m_responses[i].clear();
        moUndoStack::get(i).disconnect(&m_context);
        moUndoStack::get(i).setMessageCallback(nullptr);
    }
    moUndoStack::clearAll();
    leaveRecording();
    for (unsigned slot = 0; slot < Operation::slotCount; ++slot)
        destroy(slot);
    moLog::setListener(std::move(m_logBefore));
    qInstallMessageHandler(m_qtBefore);
    s_player = nullptr;
}

void Player::leaveRecording() const
{
    // Bounded: a counter that wrapped around is one of the faults to find.
    constexpr int mostOpen = 10000;
    for (int i = 0; i < mostOpen && moUndoStack::undoBlocked(); ++i)
        moUndoStack::endBlockUndo();
    for (int i = 0; i < mostOpen && moUndoStack::undoEnabled(); ++i)
        moUndoStack::endUndo();
}

// --- listening ------------------------------------------------------------------------------------------------------

void Player::listen(unsigned stack)
{
    const auto quoted = [](const QUndoCommand* command) {
        return command ? '"' + command->text().toStdString() + '"' : std::string("null");
    };
    moUndoStack& source = moUndoStack::get(stack);
    QObject::connect(&source, &moUndoStack::redoPerformed, &m_context,
                     [this, stack, quoted](const QUndoCommand* command, bool added) {
                         signal(stack, "signal redo " + quoted(command) + (added ? " added" : ""));
                     });
    QObject::connect(
        &source, &moUndoStack::undoPerformed, &m_context,
        [this, stack, quoted](const QUndoCommand* command) { signal(stack, "signal undo " + quoted(command)); });
    QObject::connect(&source, &moUndoStack::cleared, &m_context,
                     [this, stack] { tell(std::to_string(stack) + " signal cleared"); });
    source.setMessageCallback(stack == 0 ? receive<0> : receive<1>);
}

void Player::signal(unsigned stack, const std::string& line)
{
    tell(std::to_string(stack) + ' ' + line);
    for (const Operation& response : std::exchange(m_responses[stack], {}))
        play(response);
}

template<unsigned stack>
bool Player::receive(const char* name, moMessage& message, int number)
{
    s_player->tell(std::to_string(stack) + " message " + name + ' ' + describe(message) +
                   (number == 0 ? "" : " not 0 but " + std::to_string(number)));
    return false;
}

void Player::receiveQt(QtMsgType type, const QMessageLogContext& context, const QString& line)
{
    // The library's own lines come through moLog.
    if (std::string(context.category ? context.category : "") == "mo.undo") return;
    if (type == QtFatalMsg) std::abort();
    s_player->tell("qt: " + line.toStdString());
}

void Player::toggleMessages(unsigned stack)
{
    m_messages[stack] = !m_messages[stack];
    moUndoStack::MessageCallback callback = stack == 0 ? receive<0> : receive<1>;
    moUndoStack::get(stack).setMessageCallback(m_messages[stack] ? callback : nullptr);
}

// --- making commands ------------------------------------------------------------------------------------------------

moUndoString Player::text(const std::string& what)
{
    const QString made = QString::fromStdString(what + ' ' + std::to_string(++m_made));
    return moUndoString(made, "about " + made, QString());
}

moUndoCommandBase* Player::make(const Operation& operation)
{
    const Thing& thing = m_things[operation.slotOrNone()];
    switch (operation.kind) {
    case Operation::Rename:
        return new RenameCommand(text("name"), thing.node, operation.value());
    case Operation::Number:
        return new moFieldUndoCommand<int>(text("number"), thing.core, "singleInt32", std::stoi(operation.value()));
    case Operation::Text:
        return new moStringFieldUndoCommand(text("text"), thing.core, "singleString", operation.value());
    case Operation::Switch:
        return new moBoolFieldUndoCommand(text("switch"), thing.core, "singleBool", operation.value() != "0");
    case Operation::Group: {
        auto* group = new moMultiCommand(text("group"), [this] { tell("after"); });
        new moFieldUndoCommand<int>(text("number"), thing.core, "singleInt32", std::stoi(operation.value()), group);
        makeTally(operation.slot(), group);
        return group;
    }
    default:
        return makeTally(operation.slot(), nullptr);
    }
}

moUndoCommandBase* Player::makeTally(unsigned number, QUndoCommand* parent)
{
    const auto step = [this, number, alive = m_alive](int by) {
        m_tally[number] += by;
        tell((by > 0 ? "tally up " : "tally down ") + std::to_string(number));
    };
    return new moGenericFunctionUndoCommand(
        text("tally"), [step] { step(-1); }, [step] { step(1); }, parent);
}

void Player::adjust(moUndoCommandBase& command, const Operation& operation)
{
    const bool merges = operation.kind != Operation::Sample && operation.mergeEnabled();
    if (auto* single = dynamic_cast<moUndoCommand*>(&command)) {
        if (operation.hasInterval()) single->setMergeResponseDelta(operation.interval());
        single->setMergeEnabled(merges);
    } else if (auto* composite = dynamic_cast<moMultiCommand*>(&command)) {
        composite->setMergeEnabled(merges);
    }
    if (!operation.hasChangedCallback()) return;
    const std::string name = command.text().toStdString();
    command.setChangedCB([this, name](bool done) { tell("changed \"" + name + (done ? "\" true" : "\" false")); });
}

void Player::handIn(moUndoCommandBase* command, const Operation& operation)
{
    moUndoStack& stack = moUndoStack::get(operation.stackType());
    // The caller still owns a command that add() does not take over.
    const bool isLeft = !operation.isExecuted() && moUndoStack::isComposing() && !command->parent();
    if (operation.isExecuted())
        stack.addOrExecute(command);
    else
        stack.add(command);
    if (isLeft) delete command;
}

// --- operations -----------------------------------------------------------------------------------------------------

void Player::play(const Operation& operation)
{
    moUndoStack& stack = moUndoStack::get(operation.stackType());
    switch (operation.kind) {
    case Operation::Rename:
    case Operation::Number:
    case Operation::Text:
    case Operation::Switch:
    case Operation::Tally:
    case Operation::Group:
        push(operation);
        break;
    case Operation::MakeNumber: {
        // An empty slot makes no command, so it must not use up a name.
        const Thing& thing = m_things[operation.slotOrNone()];
        if (thing.core == osg::NullFC)
            moUndoUtil::makeCommand(moUndoString(), thing.core, "singleInt32", 1);
        else
            moUndoUtil::makeCommand(text("number"), thing.core, "SingleInt32", std::stoi(operation.value()));
        break;
    }
    case Operation::Sample:
        pushSample(operation);
        break;
    case Operation::Undo:
        stack.undo();
        break;
    case Operation::Redo:
        stack.redo();
        break;
    case Operation::UndoAll:
        // Bounded: an endless loop is one of the faults to find.
        for (int i = 0; i < 10000 && stack.canUndo(); ++i)
            stack.undo();
        break;
    case Operation::Mark:
        stack.mark();
        break;
    case Operation::Reset:
        stack.reset();
        break;
    case Operation::Begin:
        begin(operation);
        break;
    case Operation::End:
        stack.endMultiCommand();
        break;
    case Operation::Cancel:
        stack.cancelMultiCommand();
        break;
    case Operation::SetClean:
        stack.setClean();
        break;
    case Operation::ResetClean:
        stack.resetClean();
        break;
    case Operation::Limit:
        stack.setUndoLimit(static_cast<int>(operation.limit()));
        break;
    case Operation::BeginMacro:
        stack.beginMacro(text("macro").text());
        break;
    case Operation::EndMacro:
        stack.endMacro();
        break;
    case Operation::BeginUndo:
        moUndoStack::beginUndo();
        break;
    case Operation::EndUndo:
        moUndoStack::endUndo();
        break;
    case Operation::BeginBlock:
        moUndoStack::beginBlockUndo();
        break;
    case Operation::EndBlock:
        moUndoStack::endBlockUndo();
        break;
    case Operation::Clear:
        stack.clear();
        break;
    case Operation::ClearAll:
        moUndoStack::clearAll();
        break;
    case Operation::Wait:
        m_clock.advance(operation.ticks() / 64.0);
        break;
    case Operation::Destroy:
        destroy(operation.slot());
        break;
    case Operation::Create:
        create(operation.slot());
        break;
    case Operation::Messages:
        toggleMessages(operation.stackType());
        break;
    case Operation::Respond:
        m_responses[operation.stackType()] = {operation.response()};
        break;
    }
}

void Player::push(const Operation& operation)
{
    moUndoCommandBase* const command = make(operation);
    adjust(*command, operation);
    handIn(command, operation);
}

void Player::pushSample(const Operation& operation)
{
    constexpr std::size_t mostScenes = 6;
    const Sample& sample = samples()[operation.how % samples().size()];
    if (m_scenes.size() == mostScenes || !isOpaque(sample)) return;
    if (moUndoStack::isComposing() && joinsTwice(sample)) return;

    m_scenes.push_back(std::make_unique<SampleScene>());
    SampleScene& scene = *m_scenes.back();
    moUndoCommandBase* const command = sample.make(scene.target, 0);
    const moUndoString name = text(sampleText);
    command->setText(name.text());
    command->setDescription(name.description());
    moMessage message;
    command->makeMessage(message);
    const std::string keys = describe(message);
    m_facts.samples.push_back({command->id(),
                               dynamic_cast<const moMultiCommand*>(command) != nullptr,
                               keys.empty() ? "" : ' ' + keys.substr(0, keys.find(' ')),
                               scene.digest(),
                               {}});
    adjust(*command, operation);
    handIn(command, operation);
}

void Player::begin(const Operation& operation)
{
    m_hasOrphans = m_hasOrphans || (moUndoStack::isComposing() && !moUndoStack::undoEnabled());
    const moUndoString name = text("composite");
    moUndoStack::get(operation.stackType())
        .beginMultiCommand(operation.hasText() ? name.text() : QString(),
                           operation.hasDescription() ? name.description() : QString(), operation.composesMergeably());
    auto* const composite = dynamic_cast<moUndoCommandBase*>(moUndoStack::getCurrentCommandParent());
    if (!composite || !operation.hasChangedCallback()) return;
    composite->setChangedCB([this, called = name.text().toStdString()](bool done) {
        tell("changed \"" + called + (done ? "\" true" : "\" false"));
    });
}

void Player::create(unsigned slot)
{
    Thing& thing = m_things[slot];
    if (thing.node != osg::NullFC) return;
    thing.node = osg::Node::create();
    osg::addRefCP(thing.node);
    thing.core = Core::create();
    osg::addRefCP(thing.core);
    const unsigned id = thing.core.getFieldContainerId();
    thing.core->onChanged = [this, id](osg::BitVector mask, osg::UInt32 origin) {
        tell("edit " + std::to_string(id) + ' ' + fieldOf(mask) + ' ' + std::to_string(origin));
    };
    m_facts.things[slot] = {thing.node.getFieldContainerId(), id};
    for (const osg::UInt32 made : {m_facts.things[slot].node, m_facts.things[slot].core}) {
        if (std::find(m_ids.begin(), m_ids.end(), made) != m_ids.end())
            tell("id " + std::to_string(made) + " was used again");
        m_ids.push_back(made);
    }
}

void Player::destroy(unsigned slot)
{
    Thing& thing = m_things[slot];
    osg::subRefCP(thing.node);
    osg::subRefCP(thing.core);
    thing = {};
}

// --- queries --------------------------------------------------------------------------------------------------------

std::vector<std::string> Player::state(const std::vector<std::size_t>& samples)
{
    std::vector<std::string> lines;
    for (unsigned i = 0; i < 2; ++i) {
        const moUndoStack& stack = moUndoStack::get(i);
        const QUndoCommand* current = stack.currentCommand();
        lines.push_back("stack " + std::to_string(i) + ": " + std::to_string(stack.size()) + " steps" +
                        (stack.canUndo() ? ", undo" : ", no undo") + (stack.canRedo() ? ", redo" : ", no redo") +
                        ", at " + (current ? treeOf(*current) : "start") + ", index " + std::to_string(stack.index()) +
                        ", clean " + std::to_string(stack.cleanIndex()) + (stack.isClean() ? " now" : "") + ", limit " +
                        std::to_string(stack.undoLimit()) +
                        (stack.isEmpty() != (stack.size() == 0) ? ", isEmpty() contradicts size()" : ""));
    }
    lines.push_back(std::string("recording ") + (moUndoStack::undoEnabled() ? "on" : "off") +
                    (moUndoStack::undoBlocked() ? ", blocked" : ""));
    const QUndoCommand* parent = moUndoStack::getCurrentCommandParent();
    lines.push_back(std::string("composing ") + (moUndoStack::isComposing() ? "yes" : "no") + ", parent " +
                    (parent ? treeOf(*parent) : "none"));

    std::map<unsigned, std::string> containers;
    for (const Thing& thing : m_things) {
        if (thing.node == osg::NullFC) continue;
        const char* name = osg::getName(thing.node);
        containers[thing.node.getFieldContainerId()] = std::string(" name=") + (name ? name : "");
        containers[thing.core.getFieldContainerId()] = " number=" + std::to_string(thing.core->getSingleInt32()) +
                                                       " switch=" + (thing.core->getSingleBool() ? "true" : "false") +
                                                       " text=" + thing.core->getSingleString();
    }
    for (const auto& [id, values] : containers)
        lines.push_back("container " + std::to_string(id) + values);
    for (const auto& [number, count] : m_tally)
        lines.push_back("tally " + std::to_string(number) + ": " + std::to_string(count));
    for (const std::size_t i : samples) {
        const std::vector<std::string> digest = m_scenes[i]->digest();
        Facts::SampleFacts& sample = m_facts.samples[i];
        if (sample.after.empty() && digest != sample.before) sample.after = digest;
        for (const std::string& line : digest)
            lines.push_back("sample " + std::to_string(i) + ": " + line);
    }
    return lines;
}

std::string Player::finish()
{
    moUndoStack::clearAll();
    for (const unsigned type : {0U, 1U})
        moUndoStack::get(type).setUndoLimit(0);
    leaveRecording();
    for (unsigned slot = 0; slot < Operation::slotCount; ++slot)
        destroy(slot);
    m_scenes.clear();
    if (m_hasOrphans) return {};
    const std::size_t containers = liveContainerCount();
    if (containers != m_containersBefore)
        return std::to_string(containers) + " containers at the end, " + std::to_string(m_containersBefore) + " before";
    if (m_alive.use_count() != 1) return "function commands were left behind";
    return {};
}
