#include "Shadow.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace {

std::string quoted(const std::string& text)
{
    return '"' + text + '"';
}

} // namespace

// --- making commands ------------------------------------------------------------------------------------------------

Shadow::CommandPtr Shadow::make(Kind kind, int id, const std::string& what)
{
    auto command = std::make_shared<Command>();
    command->kind = kind;
    command->id = id;
    command->text = what + ' ' + std::to_string(++m_made);
    command->description = "about " + command->text;
    command->made = m_now;
    return command;
}

Shadow::CommandPtr Shadow::makeSwap(const std::string& field, int id, unsigned fieldId, unsigned target,
                                    const std::string& value)
{
    const CommandPtr command = make(Kind::Swap, id, field);
    command->field = field;
    command->target = target;
    command->fieldId = target != 0 ? fieldId : 0;
    command->value = value;
    return command;
}

Shadow::CommandPtr Shadow::makeFor(const Operation& operation)
{
    const Facts::Thing& thing = m_slots[operation.slotOrNone()];
    switch (operation.kind) {
    case Operation::Rename:
        return makeSwap("name", m_facts.renameId, 0, thing.node, operation.value());
    case Operation::Number:
    case Operation::MakeNumber:
        return makeSwap("number", m_facts.numberId, m_facts.numberField, thing.core, operation.value());
    case Operation::Switch:
        return makeSwap("switch", m_facts.switchId, m_facts.switchField, thing.core,
                        operation.value() == "0" ? "false" : "true");
    case Operation::Text: {
        const CommandPtr command = makeSwap("text", m_facts.textId, m_facts.textField, thing.core, operation.value());
        command->kind = Kind::Text;
        const auto container = m_containers.find(thing.core);
        if (container != m_containers.end()) command->old = container->second.at("text");
        return command;
    }
    case Operation::Group: {
        const CommandPtr group = make(Kind::Composite, m_facts.compositeId, "group");
        group->hasAfter = true;
        group->children = {makeSwap("number", m_facts.numberId, m_facts.numberField, thing.core, operation.value()),
                           make(Kind::Tally, -1, "tally")};
        group->children.back()->number = operation.slot();
        return group;
    }
    case Operation::Sample: {
        const CommandPtr command = make(Kind::Sample, m_facts.samples.at(m_samples.size()).id, "sample");
        command->number = static_cast<unsigned>(m_samples.size());
        m_samples.push_back(false);
        return command;
    }
    default: {
        const CommandPtr command = make(Kind::Tally, -1, "tally");
        command->number = operation.slot();
        return command;
    }
    }
}

void Shadow::adjust(Command& command, const Operation& operation)
{
    if (operation.hasInterval()) command.interval = operation.interval();
    command.mergeEnabled = operation.kind != Operation::Sample && operation.mergeEnabled();
    if (operation.hasChangedCallback()) command.changed = command.text;
}

void Shadow::handIn(const CommandPtr& command, unsigned stack, bool execute)
{
    if (recording() && !m_compositions.empty()) {
        m_compositions.back().composite->children.push_back(command);
        happened("child made");
    } else if (execute && !recording()) {
        runUnrecorded(stack, command);
    } else if (m_compositions.empty()) {
        push(stack, command);
    } else {
        happened("command left to its maker");
    }
}

// --- operations -----------------------------------------------------------------------------------------------------

void Shadow::play(const Operation& operation)
{
    const unsigned stack = operation.stackType();
    switch (operation.kind) {
    case Operation::MakeNumber:
        if (m_slots[operation.slotOrNone()].core != 0) handIn(makeFor(operation), 0, false);
        break;
    case Operation::Rename:
    case Operation::Number:
    case Operation::Text:
    case Operation::Switch:
    case Operation::Tally:
    case Operation::Group:
    case Operation::Sample: {
        if (operation.kind == Operation::Sample && m_samples.size() == m_facts.samples.size()) break;
        const CommandPtr command = makeFor(operation);
        adjust(*command, operation);
        handIn(command, stack, operation.isExecuted());
        break;
    }
    case Operation::Undo:
        perform(stack, [this, stack] {
            if (m_stacks[stack].index == 0) return;
            if (inMacro(stack)) {
                tell("qt: QUndoStack::undo(): cannot undo in the middle of a macro");
                return;
            }
            const std::size_t index = m_stacks[stack].index - 1;
            undo(*m_stacks[stack].steps[index]);
            happened("undone");
            moveTo(stack, index, false);
        });
        break;
    case Operation::UndoAll:
        undoAll(stack);
        break;
    case Operation::Redo:
        perform(stack, [this, stack] {
            if (m_stacks[stack].index == m_stacks[stack].steps.size()) return;
            if (inMacro(stack)) {
                tell("qt: QUndoStack::redo(): cannot redo in the middle of a macro");
                return;
            }
            redo(*m_stacks[stack].steps[m_stacks[stack].index]);
            happened("redone");
            moveTo(stack, m_stacks[stack].index + 1, false);
        });
        break;
    case Operation::Mark:
        perform(stack, [this, stack] { m_stacks[stack].mark = m_stacks[stack].index; });
        break;
    case Operation::Reset:
        perform(stack, [this, stack] { jump(stack, m_stacks[stack].mark); });
        break;
    case Operation::Begin:
        begin(operation);
        break;
    case Operation::End:
        end(stack);
        break;
    case Operation::Cancel:
        cancel(stack);
        break;
    case Operation::SetClean:
        perform(stack, [this, stack] {
            if (inMacro(stack))
                tell("qt: QUndoStack::setClean(): cannot set clean in the middle of a macro");
            else
                m_stacks[stack].clean = static_cast<long>(m_stacks[stack].index);
        });
        break;
    case Operation::ResetClean:
        perform(stack, [this, stack] { m_stacks[stack].clean = -1; });
        break;
    case Operation::Limit:
        perform(stack, [this, stack, limit = operation.limit()] {
            if (m_stacks[stack].steps.empty()) {
                m_stacks[stack].limit = limit;
                return;
            }
            tell("qt: QUndoStack::setUndoLimit(): an undo limit can only be set when the stack is empty");
            happened("limit refused");
        });
        break;
    case Operation::BeginMacro: {
        const CommandPtr macro = make(Kind::Macro, -1, "macro");
        perform(stack, [this, stack, macro] {
            Stack& on = m_stacks[stack];
            if (on.macros.empty()) {
                purge(stack);
                on.steps.push_back(macro);
            } else {
                on.macros.back()->children.push_back(macro);
                happened("nested macro");
            }
            on.macros.push_back(macro);
        });
        break;
    }
    case Operation::EndMacro:
        perform(stack, [this, stack] { endMacro(stack); });
        break;
    case Operation::BeginUndo:
        ++m_enabled;
        break;
    case Operation::EndUndo:
        if (m_enabled > 0) {
            --m_enabled;
        } else {
            tell("log: errorNR: moUndoStack::endUndo(): no matching beginUndo()");
            happened("surplus end");
        }
        break;
    case Operation::BeginBlock:
        ++m_blocked;
        break;
    case Operation::EndBlock:
        if (m_blocked > 0) {
            --m_blocked;
        } else {
            tell("log: errorNR: moUndoStack::endBlockUndo(): no matching beginBlockUndo()");
            happened("surplus end");
        }
        break;
    case Operation::Clear:
        clear(stack);
        break;
    case Operation::ClearAll:
        clear(0);
        clear(1);
        break;
    case Operation::Wait:
        m_now += operation.ticks() / 64.0;
        break;
    case Operation::Destroy:
        destroy(operation);
        break;
    case Operation::Create:
        create(operation);
        break;
    case Operation::Messages:
        m_stacks[stack].messages = !m_stacks[stack].messages;
        break;
    case Operation::Respond:
        m_stacks[stack].responses = {operation.response()};
        break;
    }
}

void Shadow::begin(const Operation& operation)
{
    auto composite = std::make_shared<Command>();
    composite->kind = Kind::Composite;
    composite->id = m_facts.compositeId;
    composite->mergeEnabled = operation.composesMergeably();
    ++m_made;
    if (operation.hasText()) composite->text = "composite " + std::to_string(m_made);
    if (operation.hasDescription()) composite->description = "about composite " + std::to_string(m_made);
    if (operation.hasChangedCallback() && recording()) composite->changed = "composite " + std::to_string(m_made);

    const bool nests = recording() && !m_compositions.empty();
    if (nests) {
        m_compositions.back().composite->children.push_back(composite);
        happened("nested composition");
    }
    m_compositions.push_back({composite, operation.stackType(), nests});
}

bool Shadow::mayEnd(unsigned stack, const std::string& call)
{
    if (m_compositions.empty()) {
        tell("log: errorNR: moUndoStack::" + call + "(): no matching beginMultiCommand()");
        happened("surplus end");
        return false;
    }
    if (m_compositions.back().stack != stack) {
        tell("log: errorNR: moUndoStack::" + call + "(): no matching beginMultiCommand() for stack " +
             std::to_string(stack) + '.');
        happened("composition ended on the wrong stack");
        return false;
    }
    return true;
}

/// A nested composition that is cancelled stays where it is and does nothing.
void Shadow::cancel(unsigned stack)
{
    if (!mayEnd(stack, "cancelMultiCommand")) return;
    Command& composite = *m_compositions.back().composite;
    composite.cancelled = true;
    removeChanged(composite);
    happened(m_compositions.size() > 1 ? "nested composition cancelled" : "composition cancelled");
    m_compositions.pop_back();
}

void Shadow::removeChanged(Command& command)
{
    command.changed.clear();
    for (const CommandPtr& child : command.children)
        removeChanged(*child);
}

const Shadow::Command* Shadow::Command::first() const
{
    for (const CommandPtr& child : children) {
        if (!child->cancelled) return child.get();
    }
    return nullptr;
}

void Shadow::end(unsigned stack)
{
    if (!mayEnd(stack, "endMultiCommand")) return;
    const CommandPtr composite = m_compositions.back().composite;
    if (m_compositions.size() > 1) {
        if (!m_compositions.back().hasParent) happened("composition without parent");
        m_compositions.pop_back();
        return;
    }
    m_compositions.pop_back();
    if (!composite->first()) return;

    if (composite->description.empty()) composite->description = "Set " + composite->first()->description;
    if (composite->text.empty()) {
        Commands done;
        std::copy_if(composite->children.begin(), composite->children.end(), std::back_inserter(done),
                     [](const CommandPtr& child) { return !child->cancelled; });
        composite->text = "Set ";
        for (const CommandPtr& child : done)
            composite->text += done.size() > 1 ? '(' + child->text + ") " : child->text;
    }
    if (recording())
        push(stack, composite);
    else
        runUnrecorded(stack, composite);
}

void Shadow::clear(unsigned stack)
{
    perform(stack, [this, stack] {
        Stack& on = m_stacks[stack];
        const bool hadSteps = !on.steps.empty();
        const bool wasAtStart = on.index == 0;
        on.steps.clear();
        on.macros.clear();
        on.index = 0;
        if (hadSteps) {
            report(stack, nullptr, wasAtStart, 0, false);
            happened("history cleared");
        }
        on.mark = 0;
        on.clean = 0;
        if (!m_compositions.empty()) {
            tell("log: warningNR: moUndoStack::clearMultiCommands() called while multi command is composed.");
            happened("composition cleared");
        }
        m_compositions.clear();
        signal(stack, "signal cleared");
    });
}

void Shadow::jump(unsigned stack, std::size_t index)
{
    Stack& on = m_stacks[stack];
    if (inMacro(stack)) {
        tell("qt: QUndoStack::setIndex(): cannot set index in the middle of a macro");
        return;
    }
    const std::size_t target = std::min(index, on.steps.size());
    if (target + 1 < on.index) happened("jump back");
    if (target > on.index + 1) happened("jump forward");
    for (std::size_t i = on.index; i < target; ++i)
        redo(*on.steps[i]);
    for (std::size_t i = on.index; i > target; --i)
        undo(*on.steps[i - 1]);
    if (target != on.index) moveTo(stack, target, false);
}

void Shadow::endMacro(unsigned stack)
{
    Stack& on = m_stacks[stack];
    if (on.macros.empty()) {
        tell("qt: QUndoStack::endMacro(): no matching beginMacro()");
        happened("surplus end");
        return;
    }
    on.macros.pop_back();
    if (!on.macros.empty()) return;
    happened("macro recorded");
    keepLimit(stack);
    moveTo(stack, on.index + 1, true);
}

void Shadow::create(const Operation& operation)
{
    const unsigned slot = operation.slot();
    if (m_containers.count(m_slots[slot].node) > 0) return;
    m_slots[slot] = m_facts.things[slot];
    m_containers[m_slots[slot].node] = {{"name", ""}};
    m_containers[m_slots[slot].core] = {{"number", "0"}, {"text", ""}, {"switch", "false"}};
    happened("thing created");
}

void Shadow::destroy(const Operation& operation)
{
    const unsigned slot = operation.slot();
    happened(m_containers.erase(m_slots[slot].node) > 0 ? "thing destroyed" : "nothing destroyed");
    m_containers.erase(m_slots[slot].core);
    m_slots[slot] = {};
}

/// In a listener the loop ends before its first undo is carried out, so it makes one for each step.
void Shadow::undoAll(unsigned stack)
{
    if (!m_stacks[stack].busy) {
        while (canUndo(stack))
            play({Operation::Undo, stack});
        return;
    }
    for (std::size_t left = inMacro(stack) ? 0 : m_stacks[stack].index; left > 0; --left)
        play({Operation::Undo, stack});
    happened("loop of a listener");
}

// --- steps ----------------------------------------------------------------------------------------------------------

/// A stack at work lets calls wait until it has run and reported the step at hand.
template<class Call>
void Shadow::perform(unsigned stack, Call call)
{
    Stack& on = m_stacks[stack];
    if (on.busy) {
        on.waiting.emplace_back(std::move(call));
        happened("call waited");
        return;
    }
    on.busy = true;
    call();
    while (!on.waiting.empty()) {
        const auto next = std::move(on.waiting.front());
        on.waiting.pop_front();
        next();
    }
    on.busy = false;
}

void Shadow::push(unsigned stack, const CommandPtr& command)
{
    perform(stack, [this, stack, command] {
        Stack& on = m_stacks[stack];
        redo(*command);
        if (!inMacro(stack)) purge(stack);
        Commands& list = inMacro(stack) ? on.macros.back()->children : on.steps;
        const bool saved = !inMacro(stack) && on.clean == static_cast<long>(on.index);
        if (saved && !list.empty() && list.back()->id == command->id && mayMerge(*list.back(), *command))
            happened("held back from the clean step");
        if (!saved && !list.empty() && command->id != -1 && list.back()->id == command->id &&
            merge(*list.back(), *command)) {
            happened(inMacro(stack) ? "merged in a macro" : "merged");
            if (command->kind == Kind::Composite) happened("composite merged");
            if (!inMacro(stack)) moveTo(stack, on.index, true);
            return;
        }
        list.push_back(command);
        if (inMacro(stack)) {
            happened("pushed into a macro");
        } else {
            happened("pushed");
            keepLimit(stack);
            moveTo(stack, on.index + 1, true);
        }
    });
}

void Shadow::purge(unsigned stack)
{
    Stack& on = m_stacks[stack];
    if (on.index == on.steps.size()) return;
    on.steps.resize(on.index);
    happened("redo branch purged");
    if (on.clean <= static_cast<long>(on.index)) return;
    on.clean = -1;
    happened("clean state lost");
}

void Shadow::keepLimit(unsigned stack)
{
    Stack& on = m_stacks[stack];
    if (on.limit == 0 || on.steps.size() <= on.limit) return;
    on.steps.erase(on.steps.begin());
    --on.index;
    if (on.mark > 0) --on.mark;
    if (on.clean >= 0) --on.clean;
    happened("oldest step dropped");
}

void Shadow::runUnrecorded(unsigned stack, const CommandPtr& command)
{
    happened("run unrecorded");
    redo(*command);
    report(stack, command.get(), true, -1, true);
}

void Shadow::redo(Command& command)
{
    step(command, true);
}

void Shadow::undo(Command& command)
{
    step(command, false);
}

void Shadow::step(Command& command, bool forward)
{
    switch (command.kind) {
    case Kind::Swap: {
        const auto container = m_containers.find(command.target);
        if (container == m_containers.end()) {
            happened("step without a target");
            return;
        }
        const std::string before = container->second.at(command.field);
        write(command, command.value);
        command.value = before;
        break;
    }
    case Kind::Text:
        write(command, forward ? command.value : command.old);
        break;
    case Kind::Tally:
        m_tally[command.number] += forward ? 1 : -1;
        tell((forward ? "tally up " : "tally down ") + std::to_string(command.number));
        break;
    case Kind::Sample:
        m_samples[command.number] = forward;
        m_stepped.push_back(command.number);
        happened("sample stepped");
        break;
    case Kind::Composite:
    case Kind::Macro:
        if (command.cancelled) break;
        if (forward) {
            for (std::size_t i = 0; i < command.children.size(); ++i)
                redo(*command.children[i]);
        } else {
            for (std::size_t i = command.children.size(); i > 0; --i)
                undo(*command.children[i - 1]);
        }
        if (command.hasAfter) tell("after");
        break;
    }
}

void Shadow::write(const Command& command, const std::string& value)
{
    const auto container = m_containers.find(command.target);
    if (container == m_containers.end()) return;
    container->second[command.field] = value;
    if (command.field != "name") tell("edit " + std::to_string(command.target) + ' ' + command.field + " 1");
}

// --- merging --------------------------------------------------------------------------------------------------------

bool Shadow::mayMerge(const Command& older, const Command& newer)
{
    if (older.id != newer.id || older.kind == Kind::Macro || newer.kind == Kind::Macro) return false;
    if (older.kind == Kind::Composite) {
        if (older.cancelled || newer.cancelled) return false;
        if (!older.mergeEnabled || older.children.size() != newer.children.size()) return false;
        for (std::size_t i = 0; i < older.children.size(); ++i) {
            if (!mayMerge(*older.children[i], *newer.children[i])) return false;
        }
        return true;
    }
    // A sample's target is its own.
    if (!newer.mergeEnabled || older.kind == Kind::Sample) return false;
    const bool unlimited = !(newer.interval >= 0.0);
    if (!unlimited && newer.made - older.made >= newer.interval) return false;
    if (older.kind == Kind::Text) return newer.old == older.value;
    if (older.kind == Kind::Swap) return older.field != "switch" && older.target == newer.target;
    return true;
}

bool Shadow::merge(Command& older, const Command& newer)
{
    if (!mayMerge(older, newer) || older.kind == Kind::Tally) return false;
    if (older.kind == Kind::Composite) {
        for (std::size_t i = 0; i < older.children.size(); ++i)
            merge(*older.children[i], *newer.children[i]);
        older.text = newer.text;
        return true;
    }
    older.made = newer.made;
    if (older.kind == Kind::Text) older.value = newer.value;
    return true;
}

// --- reports --------------------------------------------------------------------------------------------------------

void Shadow::moveTo(unsigned stack, std::size_t index, bool added)
{
    Stack& on = m_stacks[stack];
    const bool forward = index >= on.index;
    on.index = index;
    const std::size_t reported = forward ? index - 1 : index;
    report(stack, on.steps[reported].get(), forward, static_cast<long>(reported), added);
}

void Shadow::report(unsigned stack, const Command* command, bool forward, long index, bool added)
{
    const std::string name = forward ? "redo" : "undo";
    signal(stack, "signal " + name + ' ' + (command ? quoted(command->text) : "null") + (added ? " added" : ""));
    if (!command) return;
    if (m_stacks[stack].messages) {
        std::string line = std::to_string(stack) + " message moURManager::" + name +
                           " index=int:" + std::to_string(index) + " added=bool:" + (added ? "true" : "false") +
                           " text=string:" + quoted(command->text);
        if (command->kind != Kind::Macro) line += " description=string:" + quoted(command->description);
        tell(line + keys(*command));
    }
    if (command->kind != Kind::Macro) callChanged(*command, forward);
}

void Shadow::signal(unsigned stack, const std::string& line)
{
    tell(std::to_string(stack) + ' ' + line);
    std::deque<Operation>& responses = m_stacks[stack].responses;
    if (responses.empty() || line == "signal cleared") return;
    const Operation response = responses.front();
    responses.pop_front();
    happened("response");
    play(response);
}

bool Shadow::isComposite(const Command& command) const
{
    return command.kind == Kind::Composite ||
           (command.kind == Kind::Sample && m_facts.samples[command.number].isComposite);
}

/// A composite sends the keys of its first child, unless that is a composite itself.
std::string Shadow::keys(const Command& command) const
{
    switch (command.kind) {
    case Kind::Macro:
        return {};
    case Kind::Composite:
        if (!command.first() || isComposite(*command.first())) return {};
        return keys(*command.first());
    case Kind::Sample:
        return m_facts.samples[command.number].keys + '*';
    case Kind::Tally:
        return " id=int:-1";
    case Kind::Swap:
    case Kind::Text:
        break;
    }
    const std::string id = " id=int:" + std::to_string(command.id);
    const std::string target = std::to_string(command.target);
    if (command.field == "name") return id + " node=uint:" + target;
    return id + " container=uint:" + target + " fieldId=uint:" + std::to_string(command.fieldId);
}

void Shadow::callChanged(const Command& command, bool forward)
{
    if (!command.changed.empty()) tell("changed " + quoted(command.changed) + (forward ? " true" : " false"));
    for (const CommandPtr& child : command.children)
        callChanged(*child, forward);
}

// --- queries --------------------------------------------------------------------------------------------------------

std::string Shadow::tree(const Command& command)
{
    std::string line = quoted(command.text);
    if (command.kind != Kind::Macro) line += " (" + command.description + ')';
    if (command.kind == Kind::Sample) return line;
    for (const CommandPtr& child : command.children)
        line += " [" + tree(*child) + ']';
    return line;
}

std::vector<std::string> Shadow::state(const std::vector<std::size_t>& samples) const
{
    std::vector<std::string> lines;
    for (unsigned i = 0; i < m_stacks.size(); ++i) {
        const Stack& on = m_stacks[i];
        lines.push_back("stack " + std::to_string(i) + ": " + std::to_string(on.steps.size()) + " steps" +
                        (canUndo(i) ? ", undo" : ", no undo") + (canRedo(i) ? ", redo" : ", no redo") + ", at " +
                        (on.index > 0 ? tree(*on.steps[on.index - 1]) : "start") + ", index " +
                        std::to_string(on.index) + ", clean " + std::to_string(on.clean) +
                        (!inMacro(i) && on.clean == static_cast<long>(on.index) ? " now" : "") + ", limit " +
                        std::to_string(on.limit));
    }
    lines.push_back(std::string("recording ") + (recording() ? "on" : "off") + (m_blocked > 0 ? ", blocked" : ""));
    const bool composing = !m_compositions.empty();
    lines.push_back(std::string("composing ") + (composing ? "yes" : "no") + ", parent " +
                    (composing && recording() ? tree(*m_compositions.back().composite) : "none"));
    for (const auto& [id, fields] : m_containers) {
        std::string line = "container " + std::to_string(id);
        for (const auto& [name, value] : fields)
            line += ' ' + name + '=' + value;
        lines.push_back(line);
    }
    for (const auto& [number, count] : m_tally)
        lines.push_back("tally " + std::to_string(number) + ": " + std::to_string(count));
    for (const std::size_t i : samples) {
        const Facts::SampleFacts& sample = m_facts.samples[i];
        const bool changed = m_samples[i] && !sample.after.empty();
        for (const std::string& line : changed ? sample.after : sample.before)
            lines.push_back("sample " + std::to_string(i) + ": " + line);
    }
    return lines;
}

std::vector<std::string> Shadow::takeTrace()
{
    return std::exchange(m_trace, {});
}
