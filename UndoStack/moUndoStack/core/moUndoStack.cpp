#include <moUndoStack/core/moUndoStack.h>

#include <moUndoStack/core/moCommandSort_p.h>
#include <moUndoStack/core/moHistoryWindow_p.h>
#include <moUndoStack/core/moMultiCommand.h>
#include <moUndoStack/core/moStackCalls_p.h>
#include <moUndoStack/core/moStep.h>
#include <moUndoStack/core/moUndoCommandBase.h>

#include <moUndoUtils/moUndoString.h>
#include <moUtils/moLog.h>
#include <moUtils/moMessage.h>

#include <QUndoStack>
#include <QtWidgets/QApplication>

#include <algorithm>
#include <memory>
#include <string>

unsigned int moUndoStack::s_undoEnableCount = 0;
unsigned int moUndoStack::s_blockUndoCount = 0;
std::vector<moUndoStack::Composition> moUndoStack::s_multiCommands;
unsigned int moUndoStack::s_compositionCount = 0;
std::vector<moMultiCommand*> moUndoStack::s_abandoned;

namespace {

constexpr const char* redoMessage = "moURManager::redo";
constexpr const char* undoMessage = "moURManager::undo";
constexpr unsigned int stackCount = 2;

using Kind = moStackCall::Kind;

/// What QString::toStdString() gives, without its detour over a byte array for texts that are plain ASCII, as most are:
/// 550 instructions less for the two texts of a message, of 4400 for an undo with a message.
std::string toUtf8(const QString& text)
{
    std::string bytes(static_cast<std::size_t>(text.size()), '\0');
    ushort bits = 0;
    std::transform(text.begin(), text.end(), bytes.begin(), [&bits](QChar c) {
        bits |= c.unicode();
        return static_cast<char>(c.unicode());
    });
    if (bits > 0x7f) return text.toStdString();
    return bytes;
}

void fill(moMessage& message, const QUndoCommand& command, int index, bool added)
{
    message.set("index", index, true);
    message.set("added", added, true);
    message.set("text", toUtf8(command.text()), true);
    const moCommandSort::Sort sort = moCommandSort::of(command);
    if (sort == moCommandSort::Foreign) return;
    const auto& ours = static_cast<const moUndoCommandBase&>(command);
    message.set("description", toUtf8(ours.getDescription()), true);
    if (sort == moCommandSort::Speaking) ours.makeMessage(message);
}

} // namespace

/// Both stacks; the second one is destroyed first.
struct moUndoStacks
{
    moUndoStack all[stackCount];

    static moUndoStacks& the()
    {
        static moUndoStacks s_stacks;
        return s_stacks;
    }

    moUndoStacks() { qRegisterMetaType<const QUndoCommand*>(); }
    moUndoStacks(const moUndoStacks&) = delete;
    moUndoStacks& operator=(const moUndoStacks&) = delete;
    ~moUndoStacks()
    {
        // Deleting a command may run foreign code that calls a stack. Both stacks exist until the last command is
        // deleted, but are closed: such a call finds them empty and changes nothing.
        for (moUndoStack& stack : all)
            stack.m_calls->close();
        while (!moUndoStack::s_multiCommands.empty()) {
            moUndoStack::abandon(moUndoStack::s_multiCommands.back().composite);
            moUndoStack::s_multiCommands.pop_back();
        }
        for (const moMultiCommand* composite : moUndoStack::s_abandoned)
            delete composite;
        moUndoStack::s_abandoned.clear();
        all[moUndoStack::SecondStack].deleteCommands();
        all[moUndoStack::DefaultStack].deleteCommands();
    }
};

moUndoStack::moUndoStack() : m_stack(new QUndoStack), m_calls(std::make_unique<moStackCalls>(*m_stack, *this))
{
    connect(m_stack, &QUndoStack::indexChanged, this, &moUndoStack::indexChanged);
}

moUndoStack::~moUndoStack()
{
    delete m_stack;
}

/// Called by ~moUndoStacks() while both stacks exist. Reports nothing, and the history window is disconnected first.
void moUndoStack::deleteCommands()
{
    moHistoryWindow::abandon(*m_stack);
    m_stack->clear();
}

moUndoStack& moUndoStack::get(unsigned int type)
{
    return moUndoStacks::the().all[type < stackCount ? type : 0U];
}

moUndoStack::StackType moUndoStack::getType() const
{
    return this == &get(SecondStack) ? SecondStack : DefaultStack;
}

// --- recording ------------------------------------------------------------------------------------------------------

bool moUndoStack::undoEnabled()
{
    return s_undoEnableCount != 0 && s_blockUndoCount == 0;
}

bool moUndoStack::undoBlocked()
{
    return s_blockUndoCount != 0;
}

void moUndoStack::beginUndo()
{
    ++s_undoEnableCount;
}

void moUndoStack::endUndo()
{
    if (s_undoEnableCount == 0)
        moLog::errorNR("moUndoStack::endUndo(): no matching beginUndo()");
    else
        --s_undoEnableCount;
}

void moUndoStack::beginBlockUndo()
{
    ++s_blockUndoCount;
}

void moUndoStack::endBlockUndo()
{
    if (s_blockUndoCount == 0)
        moLog::errorNR("moUndoStack::endBlockUndo(): no matching beginBlockUndo()");
    else
        --s_blockUndoCount;
}

// --- composition ----------------------------------------------------------------------------------------------------

QUndoCommand* moUndoStack::currentMultiCommand()
{
    return s_multiCommands.empty() ? nullptr : s_multiCommands.back().composite;
}

bool moUndoStack::isComposing()
{
    return !s_multiCommands.empty();
}

QUndoCommand* moUndoStack::getCurrentCommandParent()
{
    return undoEnabled() ? currentMultiCommand() : nullptr;
}

bool moUndoStack::isChildOfMultiCommand(const QUndoCommand* command)
{
    return std::any_of(s_multiCommands.begin(), s_multiCommands.end(),
                       [command](const Composition& each) { return each.composite->hasChild(command); });
}

void moUndoStack::beginMultiCommand(const QString& text, const QString& description, bool mergeEnabled)
{
    s_multiCommands.reserve(s_multiCommands.size() + 1);
    auto* composite = new moMultiCommand(moUndoString(text, description, QString()), nullptr, mergeEnabled);
    s_multiCommands.push_back({composite, getType(), ++s_compositionCount});
}

/// Whether the innermost composition was begun on this stack; logs an error if not.
bool moUndoStack::checkComposition(const char* function) const
{
    if (s_multiCommands.empty()) {
        moLog::errorNR("moUndoStack::%s(): no matching beginMultiCommand()", function);
        return false;
    }
    if (s_multiCommands.back().type != getType()) {
        moLog::errorNR("moUndoStack::%s(): no matching beginMultiCommand() for stack %i.", function,
                       static_cast<int>(getType()));
        return false;
    }
    return true;
}

void moUndoStack::endMultiCommand()
{
    if (!checkComposition("endMultiCommand")) return;

    moMultiCommand* composite = s_multiCommands.back().composite;
    if (s_multiCommands.size() > 1) {
        abandon(composite);
        s_multiCommands.pop_back();
        return;
    }
    const QUndoCommand* const firstChild = composite->firstChild();
    std::vector<const QUndoCommand*> children; // for the text; before anything changes: memory may run out
    if (composite->text().isEmpty()) children = moMultiCommand::childrenOf(*composite);
    s_multiCommands.pop_back();
    if (!firstChild) {
        delete composite;
        return;
    }

    if (composite->getDescription().isEmpty()) {
        if (const auto* first = dynamic_cast<const moUndoCommandBase*>(firstChild))
            composite->setDescription(QStringLiteral("Set ") + first->getDescription());
    }
    if (composite->text().isEmpty()) {
        QString text = tr("Set ");
        for (const QUndoCommand* child : children) {
            const QString name = child->text();
            text += children.size() == 1 ? name : QLatin1Char('(') + name + QLatin1String(") ");
        }
        composite->setText(text);
    }
    addOrExecute(composite);
}

void moUndoStack::cancelMultiCommand()
{
    if (checkComposition("cancelMultiCommand")) cancelInnermost();
}

void moUndoStack::cancelInnermost()
{
    moMultiCommand* composite = s_multiCommands.back().composite;
    if (s_multiCommands.size() > 1) {
        abandon(composite);
        composite->cancel();
        s_multiCommands.pop_back();
        return;
    }
    s_multiCommands.pop_back();
    delete composite;
}

void moUndoStack::clearMultiCommands()
{
    if (s_multiCommands.empty()) return;
    moLog::warningNR("moUndoStack::clearMultiCommands() called while multi command is composed.");
    while (!s_multiCommands.empty())
        cancelInnermost();
}

/// A nested composite stays a child of the one around it. One without a parent was begun while recording was off.
/// Intended: it is neither run nor recorded, and kept until the process ends, because it may be the parent of commands.
/// See docs/oddities.md#nested-composites-that-belong-to-nobody.
void moUndoStack::abandon(moMultiCommand* composite)
{
    if (!composite->parent()) s_abandoned.push_back(composite);
}

// --- work on Qt's stack ---------------------------------------------------------------------------------------------

bool moUndoStack::owns(const QUndoCommand* command) const
{
    const QUndoCommand* last = m_stack->command(m_stack->count() - 1);
    if (!last || last == command) return last;
    return last->childCount() > 0 && last->child(last->childCount() - 1) == command;
}

/// Deletes a command that could not be pushed, unless Qt's stack or a parent owns it: Qt takes a command over only
/// after it was run and was not merged. Listeners do not throw into Qt, see indexChanged().
void moUndoStack::drop(QUndoCommand* command) const
{
    const auto* ours = dynamic_cast<const moUndoCommandBase*>(command);
    if (!owns(command) && !(ours && ours->parent())) delete command;
}

void moUndoStack::pushNow(QUndoCommand* command)
{
    try {
        m_stack->push(command);
    } catch (...) {
        drop(command);
        throw;
    }
}

/// Goes to an index. Qt deletes a command that turns obsolete on the way, but moves its index only when the jump is done.
/// If a command throws before that, the index counts those that were deleted, and Qt's next step would read past the
/// end. Nothing but clear() brings such an index back. See docs/oddities.md#a-jump-that-fails-behind-an-obsolete-command.
void moUndoStack::jump(int index)
{
    const int count = m_stack->count();
    const int before = m_stack->index();
    try {
        m_stack->setIndex(index);
    } catch (...) {
        if (index < before && m_stack->count() < count) moStep::takeBack([this] { giveUpHistory(); });
        throw;
    }
}

void moUndoStack::deleteHistory()
{
    m_calls->setMark(0);
    m_stack->clear();
    m_lastIndex = 0;
}

/// Clears a history whose index cannot be told. No state of it is clean any more.
void moUndoStack::giveUpHistory()
{
    m_calls->turnIntoClear();
    deleteHistory();
    m_stack->resetClean();
    moStep::afterwards([this] { Q_EMIT cleared(); });
}

/// Inlined in moStackCalls::perform().
Q_ALWAYS_INLINE void moUndoStack::carryOut(const moStackCall& call)
{
    switch (call.kind) {
    case Kind::Push:
        pushNow(call.command);
        break;
    case Kind::Undo:
        m_stack->undo();
        break;
    case Kind::Redo:
        m_stack->redo();
        break;
    case Kind::Jump:
        jump(call.number);
        break;
    case Kind::Mark:
        m_calls->setMark(m_stack->index());
        break;
    case Kind::Reset:
        jump(m_calls->mark());
        break;
    case Kind::Clear:
        deleteHistory();
        m_stack->setClean(); // Qt's clear() forgets it if there is no command
        clearMultiCommands();
        moStep::afterwards([this] { Q_EMIT cleared(); });
        break;
    case Kind::BeginMacro:
        m_stack->beginMacro(*call.text);
        break;
    case Kind::EndMacro:
        m_stack->endMacro();
        break;
    case Kind::SetClean:
        m_stack->setClean();
        break;
    case Kind::ResetClean:
        m_stack->resetClean();
        break;
    case Kind::SetLimit:
        m_stack->setUndoLimit(call.number);
        break;
    }
}

void moUndoStack::add(QUndoCommand* command)
{
    if (!command || isComposing()) return;
    if (m_calls->isClosed()) {
        drop(command);
        return;
    }
    const bool waits = m_calls->isAtWork();
    try {
        m_calls->perform({Kind::Push, 0, command});
    } catch (...) {
        if (waits) drop(command); // no memory to let it wait
        throw;
    }
}

void moUndoStack::addOrExecute(moUndoCommandBase* command)
{
    if (!command) return;
    if (!command->parent() && !undoEnabled()) {
        const std::unique_ptr<moUndoCommandBase> owned(command);
        moStep::runOutermost([this, command] {
            command->redo();
            sendRedoNotification(command, -1, true);
        });
        return;
    }
    // Intended: only commands without a parent are asked about. See docs/oddities.md#a-command-with-a-parent-is-pushed.
    add(command);
}

void moUndoStack::undo()
{
    m_calls->perform({Kind::Undo});
}

void moUndoStack::redo()
{
    m_calls->perform({Kind::Redo});
}

void moUndoStack::beginMacro(const QString& text)
{
    m_calls->perform({Kind::BeginMacro, 0, nullptr, &text});
}

void moUndoStack::endMacro()
{
    m_calls->perform({Kind::EndMacro});
}

void moUndoStack::setIndex(int index)
{
    m_calls->perform({Kind::Jump, index});
}

void moUndoStack::mark()
{
    m_calls->perform({Kind::Mark});
}

void moUndoStack::reset()
{
    m_calls->perform({Kind::Reset});
}

void moUndoStack::setClean()
{
    m_calls->perform({Kind::SetClean});
}

void moUndoStack::resetClean()
{
    m_calls->perform({Kind::ResetClean});
}

void moUndoStack::setUndoLimit(int limit)
{
    m_calls->perform({Kind::SetLimit, limit});
}

void moUndoStack::clear()
{
    m_calls->perform({Kind::Clear});
}

void moUndoStack::clearAll()
{
    get(DefaultStack).clear();
    get(SecondStack).clear();
}

// --- queries --------------------------------------------------------------------------------------------------------

bool moUndoStack::canUndo() const
{
    const moStackPlace place = m_calls->place();
    return place.openMacros == 0 && place.index > 0;
}

bool moUndoStack::canRedo() const
{
    const moStackPlace place = m_calls->place();
    return place.openMacros == 0 && place.index < place.count;
}

const QUndoCommand* moUndoStack::currentCommand() const
{
    return m_calls->command(m_calls->place().index - 1);
}

int moUndoStack::size() const
{
    return m_calls->place().count;
}

bool moUndoStack::isEmpty() const
{
    return size() == 0;
}

int moUndoStack::index() const
{
    return m_calls->place().index;
}

const QUndoCommand* moUndoStack::command(int index) const
{
    return m_calls->command(index);
}

QString moUndoStack::undoText() const
{
    return canUndo() ? textAt(index() - 1) : QString();
}

QString moUndoStack::redoText() const
{
    return canRedo() ? textAt(index()) : QString();
}

QString moUndoStack::textAt(int index) const
{
    const QUndoCommand* command = m_calls->command(index);
    return command ? command->actionText() : QString();
}

bool moUndoStack::isClean() const
{
    const moStackPlace place = m_calls->place();
    return place.openMacros == 0 && place.clean == place.index;
}

int moUndoStack::cleanIndex() const
{
    return m_calls->place().clean;
}

int moUndoStack::undoLimit() const
{
    return m_calls->place().limit;
}

// --- history --------------------------------------------------------------------------------------------------------

void moUndoStack::showHistory()
{
    if (!qobject_cast<QApplication*>(QCoreApplication::instance())) {
        moLog::errorNR("moUndoStack::showHistory(): there is no QApplication");
        return;
    }
    moHistoryWindow::show(getType(), *this, *m_stack);
}

// --- notifications --------------------------------------------------------------------------------------------------

void moUndoStack::setMessageCallback(MessageCallback callback)
{
    m_messageCallback = callback;
    m_isHeard = m_hadSlots || hasMessages();
}

void moUndoStack::setMessageListener(MessageListener listener)
{
    m_messageListener.set(std::move(listener));
    m_isHeard = m_hadSlots || hasMessages();
}

/// Signals are emitted from the first connection on: emitting one that has no slot takes a tenth of an undo. A
/// disconnection does not switch this off again: Qt holds its lock then, and does not say which slots are left.
void moUndoStack::connectNotify(const QMetaMethod& signal)
{
    m_hadSlots = true;
    m_isHeard = true;
    QObject::connectNotify(signal);
}

/// Called by Qt after every push, merge, undo, redo, jump, end of a macro and clear, always inside a call that
/// carryOut() makes. Nothing may be thrown into Qt, because then it would not be known whether Qt owns the command: all
/// that can throw here runs in moStep::afterwards(), which keeps the exception.
void moUndoStack::indexChanged(int i)
{
    const bool forward = m_lastIndex <= i;
    m_lastIndex = i;
    if (m_isHeard || moUndoCommandBase::anyHasChangedCB())
        report(i, forward);
    else
        m_calls->settle();
}

/// Reports that Qt's stack has moved to an index. Kept apart: when nobody listens, indexChanged() needs no stack frame.
Q_NEVER_INLINE void moUndoStack::report(int i, bool forward)
{
    m_calls->settle();
    if (forward)
        sendRedoNotification(m_stack->command(i - 1), i - 1, m_calls->isAdding());
    else
        sendUndoNotification(m_stack->command(i), i);
}

void moUndoStack::sendRedoNotification(const QUndoCommand* command, int index, bool added)
{
    if (m_hadSlots) moStep::afterwards([&] { Q_EMIT redoPerformed(command, added); });
    if (hasMessages()) sendMessage(command, redoMessage, index, added);
    callChangedCB(command, true);
}

void moUndoStack::sendUndoNotification(const QUndoCommand* command, int index)
{
    if (m_hadSlots) moStep::afterwards([&] { Q_EMIT undoPerformed(command); });
    if (hasMessages()) sendMessage(command, undoMessage, index, false);
    callChangedCB(command, false);
}

void moUndoStack::sendMessage(const QUndoCommand* command, const char* name, int index, bool added) const
{
    if (!command) return;

    moMessage message;
    moStep::afterwards([&] { fill(message, *command, index, added); });
    // Checked again: makeMessage() is foreign code and may have removed the callback.
    if (m_messageCallback) moStep::afterwards([&] { m_messageCallback(name, message, 0); });
    if (m_messageListener) moStep::afterwards([&] { m_messageListener(name, message, 0); });
}

void moUndoStack::callChangedCB(const QUndoCommand* command, bool done)
{
    if (!moUndoCommandBase::anyHasChangedCB() || !command) return;
    if (moCommandSort::of(*command) == moCommandSort::Foreign) return;
    static_cast<const moUndoCommandBase*>(command)->callChangedCB(done);
}
