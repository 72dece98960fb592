#include <moUndoStack/core/moUndoHistoryModel.h>

#include <moUndoStack/core/moMultiCommand.h>
#include <moUndoStack/core/moStackCalls_p.h>
#include <moUndoStack/core/moStep.h>
#include <moUndoStack/core/moUndoStack.h>

#include <QUndoStack>
#include <QtCore/QItemSelectionModel>
#include <QtCore/QScopedValueRollback>
#include <QtCore/QTimer>
#include <QtGui/QFont>
#include <QtGui/QGuiApplication>
#include <QtGui/QPalette>
#include <QtGui/QTextDocument>
#include <QtWidgets/QAbstractItemView>
#include <QtWidgets/QListView>
#include <QtWidgets/QTreeView>

#include <algorithm>
#include <map>
#include <utility>
#include <vector>

/// A row that has children. Indexes of children point to it; it is made when a view asks for the children first.
struct moUndoHistoryModel::Parent
{
    Parent* around = nullptr;  ///< where its own row stands; null: the root
    int key = 0;               ///< its row in `around`, plus around->firstKey
    int firstKey = 0;          ///< key of row 0: grows as the oldest steps are deleted, so that no key changes
    std::vector<int> children; ///< positions among the children of the command; cancelled ones are left out
    std::map<int, std::unique_ptr<Parent>> parents; ///< those among the rows that have children themselves, by key

    int rows() const { return static_cast<int>(children.size()); }
    int row() const { return key - around->firstKey; }

    void forget(int firstRow, int lastRow)
    {
        parents.erase(parents.lower_bound(firstRow + firstKey), parents.upper_bound(lastRow + firstKey));
    }
};

/// Ties a view to the model.
class moUndoHistoryModel::View : public QObject
{
public:
    View(moUndoHistoryModel& model, QAbstractItemView& view)
        : QObject(&view), m_model(&model), m_view(view), m_selection(view.selectionModel())
    {
        connect(m_selection, &QItemSelectionModel::currentChanged, this, &View::choose);
        if (model.m_stack) connect(&model.m_stack->m_calls->moves(), &moStackMoves::moved, this, &View::follow);
        connect(&m_later, &QTimer::timeout, this, &View::show);
        m_later.setSingleShot(true);
        follow();
    }

private:
    bool isInUse() const { return m_model && m_selection && m_selection == m_view.selectionModel(); }

    /// Makes the row of the present state the current one.
    void follow()
    {
        if (!isInUse()) return;
        select();
        m_later.start();
    }

    /// Without a signal: a view that hears of it lays out all its rows at once, which would cost more than any step.
    void select()
    {
        const QSignalBlocker later(m_selection);
        m_selection->setCurrentIndex(m_model->currentIndex(), QItemSelectionModel::ClearAndSelect);
        m_view.viewport()->update();
    }

    /// Called when the user, or anyone but follow(), made another row the current one.
    void choose(const QModelIndex& chosen)
    {
        m_shown = chosen;
        if (!isInUse() || m_model->m_changing) return;
        m_later.start();
        const bool isChild = chosen.parent().isValid();
        if (isChild || !chosen.isValid() || chosen == m_model->currentIndex() || !m_model->m_stack) return;
        m_model->m_stack->setIndex(chosen.row());
    }

    /// Tells the view, once the program is back in its event loop. A choice that the stack refused is taken back here,
    /// because a view that was clicked selects the row after it has told of it.
    void show()
    {
        if (!isInUse()) return;
        if (!m_selection->currentIndex().parent().isValid()) select();
        const QModelIndex current = m_selection->currentIndex();
        const QModelIndex before = m_shown;
        if (current != before) Q_EMIT m_selection->currentChanged(current, before);
    }

    QPointer<moUndoHistoryModel> m_model;
    QAbstractItemView& m_view;
    QPointer<QItemSelectionModel> m_selection;
    QPersistentModelIndex m_shown; ///< the current row, as the view knows it
    QTimer m_later;
};

namespace {

/// The text of a tool tip that shows it as it is.
QString plain(const QString& text)
{
    return Qt::mightBeRichText(text) ? Qt::convertFromPlainText(text, Qt::WhiteSpaceNormal) : text;
}

QString descriptionOf(const QUndoCommand& command)
{
    const auto* ours = dynamic_cast<const moUndoCommandBase*>(&command);
    return ours ? ours->getDescription() : QString();
}

QVariant undoneColour()
{
    if (!qobject_cast<QGuiApplication*>(QCoreApplication::instance())) return {};
    return QGuiApplication::palette().brush(
        QPalette::PlaceholderText); // seen in any palette, unlike that of disabled text
}

QFont bold()
{
    QFont font;
    font.setBold(true);
    return font;
}

} // namespace

moUndoHistoryModel::moUndoHistoryModel(moUndoStack& stack, QObject* parent)
    : QAbstractItemModel(parent), m_stack(&stack), m_root(std::make_unique<Parent>())
{
    readStack();
    // What the call at hand has done to Qt's stack so far will be told again.
    m_lost = stack.m_calls->isAtWork();
    connect(&stack.m_calls->moves(), &moStackMoves::moved, this, &moUndoHistoryModel::update);
}

moUndoHistoryModel::~moUndoHistoryModel() = default;

void moUndoHistoryModel::showIn(QAbstractItemView& view)
{
    const QString name = QStringLiteral("moUndoHistoryModel");
    delete view.findChild<QObject*>(name, Qt::FindDirectChildrenOnly);
    view.setModel(this);
    view.setEditTriggers(QAbstractItemView::NoEditTriggers);
    if (auto* list = qobject_cast<QListView*>(&view)) list->setUniformItemSizes(true);
    if (auto* tree = qobject_cast<QTreeView*>(&view)) {
        tree->setUniformRowHeights(true);
        tree->setHeaderHidden(true);
    }
    (new View(*this, view))->setObjectName(name);
}

// --- rows -----------------------------------------------------------------------------------------------------------

/// Qt's stack; null while its commands must not be looked at, and once it is destroyed.
const QUndoStack* moUndoHistoryModel::stack() const
{
    return m_stack && !m_stack->m_calls->isClearing() ? m_stack->m_stack : nullptr;
}

moUndoHistoryModel::Parent* moUndoHistoryModel::around(const QModelIndex& index) const
{
    return static_cast<Parent*>(index.internalPointer());
}

/// The row as one that has children; null if it has none.
moUndoHistoryModel::Parent* moUndoHistoryModel::parentAt(const QModelIndex& index) const
{
    if (!index.isValid()) return m_root.get();
    Parent& outer = *around(index);
    const int key = index.row() + outer.firstKey;
    const auto found = outer.parents.find(key);
    if (found != outer.parents.end()) return found->second.get();

    const QUndoCommand* command = commandAt(index);
    if (!command || command->childCount() == 0) return nullptr;
    // Before the rows show the call at hand, the command may be that of another row.
    m_lost = m_lost || (m_stack->m_calls->isAtWork() && m_call != m_stack->m_calls->number());
    auto made = std::make_unique<Parent>();
    made->around = &outer;
    made->key = key;
    made->children = moMultiCommand::positionsOf(*command);
    return (outer.parents[key] = std::move(made)).get();
}

/// The command of a row; null for the start, and if it was deleted. Looked up each time: commands are deleted before
/// the model hears of it.
const QUndoCommand* moUndoHistoryModel::commandAt(const QModelIndex& index) const
{
    const Parent& outer = *around(index);
    if (&outer == m_root.get()) {
        const QUndoStack* qtStack = stack();
        return qtStack ? qtStack->command(index.row() - 1 - m_dropped) : nullptr;
    }
    const QUndoCommand* command = commandAt(parent(index));
    const auto row = static_cast<std::size_t>(index.row());
    return command && row < outer.children.size() ? command->child(outer.children[row]) : nullptr;
}

/// The row of the step that an index belongs to.
int moUndoHistoryModel::stepRow(const QModelIndex& index) const
{
    const QModelIndex outer = parent(index);
    return outer.isValid() ? stepRow(outer) : index.row();
}

QModelIndex moUndoHistoryModel::currentIndex() const
{
    return index(m_index, 0);
}

QModelIndex moUndoHistoryModel::index(int row, int column, const QModelIndex& parent) const
{
    return hasIndex(row, column, parent) ? createIndex(row, column, parentAt(parent)) : QModelIndex();
}

QModelIndex moUndoHistoryModel::parent(const QModelIndex& child) const
{
    const Parent* outer = child.isValid() ? around(child) : m_root.get();
    return outer == m_root.get() ? QModelIndex() : createIndex(outer->row(), 0, outer->around);
}

int moUndoHistoryModel::rowCount(const QModelIndex& parent) const
{
    if (!parent.isValid()) return m_rows;
    const Parent* known = parentAt(parent);
    return known ? known->rows() : 0;
}

int moUndoHistoryModel::columnCount(const QModelIndex& /*parent*/) const
{
    return 1;
}

QVariant moUndoHistoryModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid()) return {};
    const bool step = !parent(index).isValid();
    const bool start = step && index.row() == 0;
    const bool clean = step && index.row() == m_clean;
    const bool done = stepRow(index) <= m_index;
    const QUndoCommand* command = commandAt(index);
    switch (role) {
    case Qt::DisplayRole:
        if (start) return tr("<empty>");
        return command ? command->text().simplified() : QString();
    case Qt::ToolTipRole:
        return command ? plain(descriptionOf(*command)) : QString();
    case Qt::FontRole:
        return clean ? bold() : QVariant();
    case Qt::ForegroundRole:
        return done ? QVariant() : undoneColour();
    case CleanRole:
        return clean;
    case DoneRole:
        return done;
    default:
        return {};
    }
}

// --- changes --------------------------------------------------------------------------------------------------------

/// Emits a signal. If a slot throws, those behind it did not get it, and only a reset brings all views in line.
template<class Signal>
bool moUndoHistoryModel::tell(const Signal& signal)
{
    bool told = false;
    moStep::afterwards([&] {
        signal();
        told = true;
    });
    m_lost = m_lost || !told;
    return told;
}

template<class Change>
void moUndoHistoryModel::remove(const QModelIndex& parent, int first, int last, const Change& change)
{
    if (first > last) return;
    const bool told = tell([&] { beginRemoveRows(parent, first, last); });
    change();
    if (told) tell([this] { endRemoveRows(); });
}

template<class Change>
void moUndoHistoryModel::insert(const QModelIndex& parent, int first, int last, const Change& change)
{
    if (first > last) return;
    const bool told = tell([&] { beginInsertRows(parent, first, last); });
    change();
    if (told) tell([this] { endInsertRows(); });
}

void moUndoHistoryModel::update(const moStackMove& move)
{
    const QScopedValueRollback<bool> changing(m_changing, true);
    m_call = m_stack->m_calls->number();
    if (!m_lost && !move.unknown) apply(move);
    if (m_lost || move.unknown) reset();
}

void moUndoHistoryModel::apply(const moStackMove& move)
{
    m_dropped = move.dropped;
    if (move.merged) refresh(move.kept, move.kept); // first: any signal may make a view ask for its children
    removeFrom(move.kept + 1);
    removeOldest();
    if (move.appended) insert({}, m_rows, m_rows, [this] { m_index = m_rows++; });
    const int now = stack()->index();
    const int before = std::exchange(m_index, now);
    if (now != before) refresh(std::min(now, before) + 1, std::max(now, before));
    refreshClean();
}

/// Removes the rows of steps that were deleted, up to the last one.
void moUndoHistoryModel::removeFrom(int first)
{
    const int last = m_rows - 1;
    remove({}, first, last, [this, first] {
        m_rows = first;
        m_index = std::min(m_index, first - 1);
        if (m_clean >= first) m_clean = -1;
    });
    m_root->forget(first, last);
}

/// Removes the rows of the oldest steps. Row 0 stays: it is the start of what is left.
void moUndoHistoryModel::removeOldest()
{
    const int count = m_dropped;
    remove({}, 1, count, [this, count] {
        m_rows -= count;
        m_index = std::max(m_index - count, 0);
        if (m_clean > 0) m_clean = m_clean > count ? m_clean - count : -1;
        m_root->firstKey += count;
        m_dropped = 0;
    });
    m_root->forget(1 - count, 0);
}

/// Tells that steps have run or were merged into. Children come first: a view that hears of a changed row may ask for
/// them.
void moUndoHistoryModel::refresh(int first, int last)
{
    for (int row = first; row <= last; ++row) {
        const QModelIndex step = index(row, 0);
        if (const QUndoCommand* command = commandAt(step)) refreshChildren(step, *command);
    }
    tell([&] { Q_EMIT dataChanged(index(first, 0), index(last, 0)); });
}

/// Tells which children a command has now.
void moUndoHistoryModel::refreshChildren(const QModelIndex& parent, const QUndoCommand& command)
{
    Parent& outer = *around(parent);
    const int key = parent.row() + outer.firstKey;
    std::vector<int> now = moMultiCommand::positionsOf(command);
    if (now.empty() && outer.parents.count(key) == 0) return;
    std::unique_ptr<Parent>& known = outer.parents[key];
    if (!known) {
        known = std::make_unique<Parent>();
        known->around = &outer;
        known->key = key;
    }
    Parent& children = *known;
    const int before = children.rows();
    const int after = static_cast<int>(now.size());
    const int both = std::min(before, after);
    remove(parent, after, before - 1, [&] { children.children.resize(now.size()); });
    children.forget(after, before - 1);
    insert(parent, before, after - 1, [&] { children.children = now; });
    children.children = std::move(now);
    for (int row = 0; row < both; ++row) {
        const int position = children.children[static_cast<std::size_t>(row)];
        refreshChildren(index(row, 0, parent), *command.child(position));
    }
    if (both > 0) tell([&] { Q_EMIT dataChanged(index(0, 0, parent), index(both - 1, 0, parent)); });
}

void moUndoHistoryModel::refreshClean()
{
    const int now = stack()->cleanIndex();
    const int before = std::exchange(m_clean, now);
    if (now == before) return;
    for (const int row : {before, now}) {
        const QModelIndex step = index(row, 0);
        if (step.isValid()) tell([&] { Q_EMIT dataChanged(step, step, {Qt::FontRole, CleanRole}); });
    }
}

void moUndoHistoryModel::readStack()
{
    const QUndoStack* qtStack = stack();
    if (!qtStack) return;
    // The step of an open macro is there already, but the index has not moved, and nothing can be redone.
    m_rows = 1 + (qtStack->canRedo() ? qtStack->count() : qtStack->index());
    m_index = qtStack->index();
    m_clean = qtStack->cleanIndex();
    m_dropped = 0;
}

void moUndoHistoryModel::reset()
{
    m_lost = false;
    tell([this] { beginResetModel(); });
    const auto parents = std::exchange(m_root->parents, {}); // indexes point to them until the end
    readStack();
    tell([this] { endResetModel(); });
}
