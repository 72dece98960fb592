#include <moUndoStack/core/moUndoStack.h>

#include <moUndoStack/core/moMultiCommand.h>
#include <moUndoStack/core/moStep.h>
#include <moUndoStack/core/moUndoCommand.h>

#include <moUndoUtils/moUndoString.h>
#include <moUtils/moLog.h>
#include <moUtils/moMessage.h>

#include <QtCore/QItemSelectionModel>
#include <QtWidgets/QApplication>
#include <QtWidgets/QUndoStack>
#include <QtWidgets/QUndoView>

#include <algorithm>
#include <cstdlib>
#include <memory>
#include <string>
#include <utility>

unsigned int moUndoStack::s_undoEnableCount = 0;
unsigned int moUndoStack::s_blockUndoCount = 0;
QStack<QPair<moMultiCommand*, moUndoStack::StackType>> moUndoStack::s_multiCommands;
std::vector<moMultiCommand*> moUndoStack::s_abandoned;

namespace {

constexpr const char* redoMessage = "moURManager::redo";
constexpr const char* undoMessage = "moURManager::undo";
constexpr unsigned int stackCount = 2;

/// What QString::toStdString() gives, without its detour over a byte array for texts that are plain ASCII, as most are.
std::string toUtf8(const QString& text)
{
    ushort bits = 0;
    for (const QChar c : text)
        bits |= c.unicode();
    if (bits > 0x7f) return text.toStdString();
    std::string bytes(static_cast<std::size_t>(text.size()), '\0');
    std::transform(text.begin(), text.end(), bytes.begin(), [](QChar c) { return static_cast<char>(c.unicode()); });
    return bytes;
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
        qRemovePostRoutine(closeHistories);
        // What a command holds may call the stacks when it goes. Both are there until the last command has gone, but
        // at work for good, so that such a call changes nothing any more.
        for (moUndoStack& stack : all)
            ++stack.m_busyDepth;
        while (!moUndoStack::s_multiCommands.isEmpty())
            moUndoStack::abandon(moUndoStack::s_multiCommands.pop().first);
        for (const moMultiCommand* composite : moUndoStack::s_abandoned)
            delete composite;
        moUndoStack::s_abandoned.clear();
        all[moUndoStack::SecondStack].deleteCommands();
        all[moUndoStack::DefaultStack].deleteCommands();
    }

    /// A widget must be gone before the application object is. Its destructor calls this; if the application object is
    /// never destroyed, the handler of process exit does, before anything that Qt made earlier goes.
    static void closeHistories()
    {
        for (moUndoStack& stack : the().all)
            stack.closeHistory();
    }

    static void closeHistoriesInTime()
    {
        qAddPostRoutine(closeHistories);
        static const int s_registered = std::atexit(closeHistories);
        Q_UNUSED(s_registered)
    }
};

moUndoStack::moUndoStack() : m_stack(new QUndoStack)
{
    connect(m_stack, &QUndoStack::indexChanged, this, &moUndoStack::indexChanged);
}

moUndoStack::~moUndoStack()
{
    closeHistory();
    delete m_stack;
}

/// The first half of the end, see ~moUndoStacks(). Nobody is told of it.
void moUndoStack::deleteCommands()
{
    closeHistory();
    m_stack->disconnect(this);
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
    return s_multiCommands.isEmpty() ? nullptr : s_multiCommands.constLast().first;
}

bool moUndoStack::isComposing()
{
    return !s_multiCommands.isEmpty();
}

QUndoCommand* moUndoStack::getCurrentCommandParent()
{
    return undoEnabled() ? currentMultiCommand() : nullptr;
}

bool moUndoStack::isChildOfMultiCommand(const QUndoCommand* command)
{
    for (const auto& composition : s_multiCommands) {
        if (composition.first->hasChild(command)) return true;
    }
    return false;
}

void moUndoStack::beginMultiCommand(const QString& text, const QString& description, bool mergeEnabled)
{
    auto* composite = new moMultiCommand(moUndoString(text, description, QString()), nullptr, mergeEnabled);
    s_multiCommands.push({composite, getType()});
}

void moUndoStack::endMultiCommand()
{
    if (s_multiCommands.isEmpty()) {
        moLog::errorNR("moUndoStack::endMultiCommand(): no matching beginMultiCommand()");
        return;
    }
    if (s_multiCommands.top().second != getType()) {
        moLog::errorNR("moUndoStack::endMultiCommand(): no matching beginMultiCommand() for stack %i.",
                       static_cast<int>(getType()));
        return;
    }

    moMultiCommand* composite = s_multiCommands.top().first;
    if (s_multiCommands.size() > 1) {
        abandon(composite);
        s_multiCommands.pop();
        return;
    }
    s_multiCommands.pop();
    const int count = composite->childCount();
    if (count < 1) {
        delete composite;
        return;
    }

    if (composite->getDescription().isEmpty()) {
        if (const auto* first = dynamic_cast<const moUndoCommandBase*>(composite->child(0)))
            composite->setDescription(QStringLiteral("Set ") + first->getDescription());
    }
    if (composite->text().isEmpty()) {
        QString text = tr("Set ");
        for (int i = 0; i < count; ++i) {
            const QString name = composite->child(i)->text();
            text += count == 1 ? name : QLatin1Char('(') + name + QLatin1String(") ");
        }
        composite->setText(text);
    }
    addOrExecute(composite);
}

void moUndoStack::clearMultiCommands()
{
    if (s_multiCommands.isEmpty()) return;
    moLog::warningNR("moUndoStack::clearMultiCommands() called while multi command is composed.");
    while (s_multiCommands.size() > 1) {
        abandon(s_multiCommands.top().first);
        s_multiCommands.pop();
    }
    delete s_multiCommands.pop().first;
}

/// A nested composite lives on as a child of the one around it. Without a parent it was begun while recording was off:
/// nobody runs or records it, it is only kept until the process ends, as somebody may have made commands for it.
void moUndoStack::abandon(moMultiCommand* composite)
{
    if (!composite->parent()) s_abandoned.push_back(composite);
}

// --- work on Qt's stack ---------------------------------------------------------------------------------------------

/// Does one call on Qt's stack. What it throws does not keep those that wait from being done.
template<class Call>
void moUndoStack::work(const Call& call)
{
    ++m_busyDepth;
    moStep::attempt(call);
    --m_busyDepth;
    m_pushing = false;
}

/// Carries a call out, or lets it wait while this stack is at work; the outermost call then sees to those that wait.
template<class Call>
void moUndoStack::perform(Call call)
{
    if (m_busyDepth > 0) {
        m_waiting.push_back(std::move(call));
        return;
    }
    moStep::runOutermost([this, &call] {
        work(call);
        for (std::size_t i = 0; i < m_waiting.size(); ++i) {
            const std::function<void()> next = std::move(m_waiting[i]);
            work(next);
        }
        m_waiting.clear();
    });
}

bool moUndoStack::owns(const QUndoCommand* command) const
{
    const QUndoCommand* last = m_stack->command(m_stack->count() - 1);
    if (!last || last == command) return last;
    return last->childCount() > 0 && last->child(last->childCount() - 1) == command;
}

/// Deletes a command that could not be pushed, unless somebody has it: Qt takes a command over only after it was run
/// and not merged. Listeners do not throw into Qt, see indexChanged().
void moUndoStack::drop(QUndoCommand* command) const
{
    const auto* ours = dynamic_cast<const moUndoCommandBase*>(command);
    if (!owns(command) && !(ours && ours->parent())) delete command;
}

void moUndoStack::push(QUndoCommand* command)
{
    const auto pushNow = [this, command] {
        m_pushing = true;
        try {
            m_stack->push(command);
        } catch (...) {
            drop(command);
            throw;
        }
    };
    if (m_busyDepth == 0) {
        perform(pushNow);
        return;
    }
    try {
        perform(pushNow);
    } catch (...) {
        // No memory for it to wait its turn.
        drop(command);
        throw;
    }
}

void moUndoStack::add(QUndoCommand* command)
{
    if (command && s_multiCommands.isEmpty()) push(command);
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
    // A command with a parent is pushed even while nothing is being composed: intended.
    add(command);
}

void moUndoStack::undo()
{
    perform([this] { m_stack->undo(); });
}

void moUndoStack::redo()
{
    perform([this] { m_stack->redo(); });
}

void moUndoStack::beginMacro(const QString& text)
{
    perform([this, text] { m_stack->beginMacro(text); });
}

void moUndoStack::endMacro()
{
    perform([this] {
        m_pushing = true;
        m_stack->endMacro();
    });
}

void moUndoStack::mark()
{
    perform([this] { m_markIndex = m_stack->index(); });
}

void moUndoStack::reset()
{
    perform([this] { m_stack->setIndex(m_markIndex); });
}

void moUndoStack::jump(int index)
{
    perform([this, index] { m_stack->setIndex(index); });
}

void moUndoStack::clear()
{
    perform([this] {
        m_stack->clear();
        m_lastIndex = 0;
        m_pushing = false;
        m_markIndex = 0;
        clearMultiCommands();
        moStep::afterwards([this] { Q_EMIT cleared(); });
    });
}

void moUndoStack::clearAll()
{
    get(DefaultStack).clear();
    get(SecondStack).clear();
}

// --- queries --------------------------------------------------------------------------------------------------------

bool moUndoStack::canUndo() const
{
    return m_stack->canUndo();
}

bool moUndoStack::canRedo() const
{
    return m_stack->canRedo();
}

const QUndoCommand* moUndoStack::currentCommand() const
{
    return m_stack->command(m_stack->index() - 1);
}

int moUndoStack::size() const
{
    return m_stack->count();
}

bool moUndoStack::isEmpty() const
{
    return m_stack->count() == 0;
}

// --- history --------------------------------------------------------------------------------------------------------

void moUndoStack::showHistory()
{
    if (!qobject_cast<QApplication*>(QCoreApplication::instance())) {
        moLog::errorNR("moUndoStack::showHistory(): there is no QApplication");
        return;
    }
    if (!m_historyView) {
        constexpr int width = 300;
        constexpr int height = 100;
        m_historyView = new QUndoView(m_stack);
        m_historyView->setWindowTitle(tr("Undo/Redo History"));
        m_historyView->resize(width, height);
        // The view lays its whole list out again at each step; with rows of one height that needs no look at each.
        m_historyView->setUniformItemSizes(true);
        // Qt's model would move Qt's stack behind our back, with nobody to let calls from commands wait meanwhile.
        const QItemSelectionModel* selection = m_historyView->selectionModel();
        disconnect(selection, &QItemSelectionModel::currentChanged, m_historyView->model(), nullptr);
        connect(selection, &QItemSelectionModel::currentChanged, this, [this](const QModelIndex& chosen) {
            if (chosen.isValid() && chosen.row() != m_stack->index()) jump(chosen.row());
        });
        moUndoStacks::closeHistoriesInTime();
    }
    m_historyView->show();
    m_historyView->raise();
}

void moUndoStack::closeHistory()
{
    delete m_historyView;
}

// --- notifications --------------------------------------------------------------------------------------------------

void moUndoStack::setMessageCallback(MessageCallback callback)
{
    m_messageCallback = callback;
}

/// Called by Qt after every push, merge, undo, redo, jump, end of a macro and clear, always from within a call of ours.
void moUndoStack::indexChanged(int i)
{
    const bool forward = m_lastIndex <= i;
    const bool added = m_pushing;
    m_lastIndex = i;
    m_pushing = false;

    if (forward) {
        sendRedoNotification(m_stack->command(i - 1), i - 1, added);
        return;
    }
    const QUndoCommand* undone = m_stack->command(i);
    moStep::afterwards([&] { Q_EMIT undoPerformed(undone); });
    sendMessage(undoMessage, i, false);
    callChangedCB(undone, false);
}

void moUndoStack::sendRedoNotification(const QUndoCommand* command, int index, bool added)
{
    moStep::afterwards([&] { Q_EMIT redoPerformed(command, added); });
    sendMessage(command, redoMessage, index, added);
    callChangedCB(command, true);
}

void moUndoStack::sendMessage(const char* name, int index, bool added) const
{
    sendMessage(m_stack->command(index), name, index, added);
}

void moUndoStack::sendMessage(const QUndoCommand* command, const char* name, int index, bool added) const
{
    if (!command || !m_messageCallback) return;

    moMessage message;
    message.set("index", index, true);
    message.set("added", added, true);
    message.set("text", toUtf8(command->text()), true);
    // The usual kind is asked for first: each look at what a command is takes a good part of the time of undoing it.
    const auto* single = dynamic_cast<const moUndoCommand*>(command);
    const auto* described = single ? single : dynamic_cast<const moUndoCommandBase*>(command);
    if (described) message.set("description", toUtf8(described->getDescription()), true);
    moStep::afterwards([&] {
        if (single)
            single->makeMessage(message);
        else if (const auto* composite = dynamic_cast<const moMultiCommand*>(described))
            composite->makeMessage(message);
    });
    moStep::afterwards([&] { m_messageCallback(name, message, 0); });
}

void moUndoStack::callChangedCB(const QUndoCommand* command, bool done)
{
    if (moUndoCommandBase::s_changedCount == 0) return;
    if (const auto* ours = dynamic_cast<const moUndoCommandBase*>(command)) ours->callChangedCB(done);
}
